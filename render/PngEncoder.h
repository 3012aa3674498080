#pragma once

#include <QByteArray>
#include <QImage>

/// The PNG file of \a image, a picture of QImage::Format_ARGB32 that is no larger than those of
/// paintPicture. Decoded, it gives exactly the same pixels. Empty for a null image, for one of
/// another format and when the encoder fails. Used on the main thread.
///
/// PngEncoder_isal.cpp, optimised for pictures of text, writes a palette for up to 255 colours
/// besides transparent, and true colour otherwise; it keeps a buffer between calls.
/// PngEncoder_qt.cpp, for builds without ISA-L, uses Qt's encoder.
QByteArray encodedPng(const QImage &image);
