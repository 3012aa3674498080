#pragma once

#include "render/PngEncoder.h"

#include <QImage>

/// A picture and, where painting it has told them, its pixels in the form in which they are
/// encoded.
struct PaintedPicture
{
    QImage image;
    IndexedPixels pixels = {};
};
