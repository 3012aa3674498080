#include "render/KeyPicture.h"

#include "render/PngEncoder.h"
#include "render/ShapedLine.h"

#include <QColor>
#include <QDebug>
#include <QPainter>
#include <QPen>

#include <algorithm>

namespace {

/// The raster paint engine draws nothing beyond this coordinate.
constexpr int longestSide = 32767;

/// Most pictures are narrower and painted in one go.
constexpr int stripWidth = 512;

// Pictures are painted on the thread that serves every key, once a second each. With these limits
// no picture holds up the others for much longer than half a second, most of it for its encoding.
bool canBePainted(const QSize &size, const QVector<PictureLine> &lines)
{
    if (size.isEmpty() || size.width() > longestSide || size.height() > longestSide)
        return false;
    return size.width() * size.height() <= largestArea &&
           std::all_of(lines.begin(), lines.end(),
                       [](const PictureLine &each) { return each.line->isWhole(); });
}

} // namespace

QImage paintPicture(const QSize &size, const QVector<PictureLine> &lines, const PictureStyle &style)
{
    if (!canBePainted(size, lines))
        return {};
    QImage picture(size, QImage::Format_ARGB32);
    if (picture.isNull())
        return {};
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setFont(style.font);
    QPen pen = painter.pen();
    pen.setColor(QColor(style.color));
    painter.setPen(pen);
    painter.setOpacity(style.opacity);
    // Above 64 pixels letters are filled as outlines, whose cost grows with the square of the
    // line's length. In strips it stays in proportion, and the picture is the same.
    for (int x = 0; x < size.width(); x += stripWidth) {
        painter.setClipRect(x, 0, stripWidth, size.height());
        for (const PictureLine &each : lines)
            each.line->draw(painter, each.rect, style.alignment);
    }
    return picture;
}

QString pngDataUrl(const QImage &image, const char *operation)
{
    const QByteArray png = encodedPng(image);
    if (png.isEmpty())
        qCritical() << operation << "Can't convert QImage to png";
    return QString::fromLatin1("data:image/png;base64," + png.toBase64());
}
