#pragma once

#include <QByteArray>
#include <QImage>
#include <QVector>

/// The pixels of a picture as numbers of their colours.
struct IndexedPixels
{
    QVector<QRgb> colors; ///< At most 256; none when the numbers are not known.
    QByteArray rows;      ///< The numbers, one byte each; a 0 more before each row.
};

/// The PNG file of \a image, a picture of QImage::Format_ARGB32 that is no larger than those of
/// paintPicture. Decoded, it gives exactly the same pixels. Empty for a null image, for one of
/// another format and when the encoder fails. Used on the main thread.
///
/// PngEncoder_isal.cpp, optimised for pictures of text, writes a palette for up to 255 colours
/// besides transparent, and true colour otherwise; it keeps a buffer between calls.
/// PngEncoder_qt.cpp, for builds without ISA-L, uses Qt's encoder.
QByteArray encodedPng(const QImage &image);

/// The same, in less time for \a pixels that are known; they are those of \a image.
QByteArray encodedPng(const QImage &image, const IndexedPixels &pixels);
