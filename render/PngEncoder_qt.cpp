#include "render/PngEncoder.h"

#include <QBuffer>

QByteArray encodedPng(const QImage &image)
{
    if (image.format() != QImage::Format_ARGB32)
        return {};
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    return image.save(&buffer, "png") ? png : QByteArray();
}

QByteArray encodedPng(const QImage &image, const IndexedPixels & /*pixels*/)
{
    return encodedPng(image);
}
