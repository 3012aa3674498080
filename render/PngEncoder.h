#pragma once

#include <QByteArray>
#include <QImage>

/// The most pixels of a picture that is encoded.
constexpr int largestPng = 1 << 28;

/// The PNG file of \a image: a palette with transparency where the picture has at most 255 colours
/// beside transparent, true colour with transparency otherwise. Filters, which do not pay for
/// pictures of text, are not used. Decoded, it gives exactly the pixels of the picture as
/// QImage::Format_ARGB32. Empty for a null image and for one of more than largestPng pixels. Keeps
/// buffers between calls; used on the main thread.
QByteArray encodedPng(const QImage &image);
