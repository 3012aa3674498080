#pragma once

#include <QByteArray>
#include <QImage>

/// The PNG file of \a image, a picture of QImage::Format_ARGB32 that is no larger than those of
/// paintPicture. Decoded, it gives exactly the same pixels. Empty for a null image, for one of
/// another format and when the encoder fails. Used on the main thread.
///
/// PngEncoder_isal.cpp, made for pictures of text, writes a palette where there are at most 255
/// colours beside transparent and true colours otherwise, and keeps a buffer between calls;
/// PngEncoder_qt.cpp, for builds without its library, hands the picture to Qt.
QByteArray encodedPng(const QImage &image);
