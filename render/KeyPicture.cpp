#include "render/KeyPicture.h"

#include <QBuffer>
#include <QColor>
#include <QDebug>
#include <QPainter>
#include <QPen>

namespace {

/// The raster paint engine draws nothing beyond this coordinate.
constexpr int longestSide = 32767;

} // namespace

QImage paintPicture(const QSize &size, const QVector<PictureLine> &lines, const PictureStyle &style)
{
    if (size.isEmpty() || size.width() > longestSide || size.height() > longestSide)
        return {};
    QImage picture(size, QImage::Format_ARGB32);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setFont(style.font);
    QPen pen = painter.pen();
    pen.setColor(QColor(style.color));
    painter.setPen(pen);
    painter.setOpacity(style.opacity);
    for (const PictureLine &line : lines)
        painter.drawText(line.rect, style.alignment, line.text);
    return picture;
}

QString pngDataUrl(const QImage &image, const char *operation)
{
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    if (!image.save(&buffer, "png"))
        qCritical() << operation << "Can't convert QImage to png";
    buffer.close();
    return QStringLiteral("data:image/png;base64,") + QString::fromLatin1(png.toBase64());
}
