#pragma once

#include "render/PaintedPicture.h"

#include <QFont>
#include <QRect>
#include <QString>
#include <QVector>

class ShapedLine;

/// A line of text and its position in a picture.
struct PictureLine
{
    QRect rect;
    const ShapedLine *line = nullptr; ///< Never null.
};

/// How the lines of a picture are drawn.
struct PictureStyle
{
    QFont font;     ///< That of the lines.
    QString color;  ///< Any text that QColor accepts; another one is taken as an invalid colour.
    double opacity; ///< Any; the painter holds it to 0, invisible, to 1, opaque.
    int alignment;  ///< Qt::Alignment flags of each line within its rectangle.
};

/// The longest side of a picture: the raster paint engine draws nothing beyond this coordinate.
constexpr int longestSide = 32767;

/// The maximum number of pixels of a picture, at four bytes each: the longest side times the height
/// of a line at the largest font size in usual fonts.
constexpr int largestArea = 32768 * 800;

/// A transparent picture of \a size with \a lines drawn on it, in QImage::Format_ARGB32. A null
/// image when \a size is empty, when it has more pixels than longestSide on a side or than
/// largestArea, or when a line is not whole.
PaintedPicture paintPicture(const QSize &size, const QVector<PictureLine> &lines,
                            const PictureStyle &style);

/// "data:image/png;base64," and the base64 of \a picture as PNG. A picture that cannot be saved
/// gives nothing after the comma and a critical message that names \a operation.
QString pngDataUrl(const PaintedPicture &picture, const char *operation);
