#include "render/PngEncoder.h"

#include <QBuffer>

QByteArray encodedPng(const QImage &image)
{
    if (qint64{image.width()} * image.height() > largestPng)
        return {};
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    return image.save(&buffer, "png") ? png : QByteArray();
}
