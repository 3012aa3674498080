#include "bench/PlainQt.h"

#include <QBuffer>
#include <QColor>
#include <QFontMetrics>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPainter>
#include <QPen>
#include <QStringList>

#include <algorithm>

namespace {

QString message(const char *event, const QString &context, const char *member, const QString &value)
{
    const QJsonObject payload{{QString::fromLatin1(member), value}, {QStringLiteral("target"), 0}};
    const QJsonObject object{{QStringLiteral("event"), QString::fromLatin1(event)},
                             {QStringLiteral("context"), context},
                             {QStringLiteral("payload"), payload}};
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

} // namespace

namespace plainqt {

QImage paint(const Key &key, const QString &text)
{
    const QFontMetrics metrics(key.font);
    const QStringList lines = text.split(QLatin1Char('\n'));
    int width = 0;
    for (const QString &line : lines)
        width = std::max(width, metrics.horizontalAdvance(line));
    QImage image(width, metrics.height() * lines.size(), QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setFont(key.font);
    QPen pen = painter.pen();
    pen.setColor(QColor(key.color));
    painter.setPen(pen);
    painter.setOpacity(1.0 - key.opacity);
    int y = 0;
    for (const QString &line : lines) {
        painter.drawText(QRect(0, y, metrics.horizontalAdvance(line), metrics.height()),
                         Qt::AlignCenter, line);
        y += metrics.height();
    }
    return image;
}

QByteArray encode(const QImage &image)
{
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "png");
    return png;
}

QString dataUrl(const QByteArray &png)
{
    return QStringLiteral("data:image/png;base64,") + QString::fromLatin1(png.toBase64());
}

QString imageMessage(const QString &context, const QString &image)
{
    return message("setImage", context, "image", image);
}

QString titleMessage(const QString &context, const QString &title)
{
    return message("setTitle", context, "title", title);
}

} // namespace plainqt
