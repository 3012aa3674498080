#include "render/KeyPicture.h"

#include "render/Base64.h"
#include "render/CoverageCanvas.h"
#include "render/ShapedLine.h"

#include <QColor>
#include <QDebug>
#include <QPainter>
#include <QPen>

#include <algorithm>

namespace {

/// Most pictures are narrower and painted in one go.
constexpr int leastStripWidth = 512;

// Pictures are painted on the thread that serves every key, once a second each. With these limits
// no picture holds up the others for much longer than half a second.
bool canBePainted(const QSize &size, const QVector<PictureLine> &lines)
{
    if (size.isEmpty() || size.width() > longestSide || size.height() > longestSide)
        return false;
    return size.width() * size.height() <= largestArea &&
           std::all_of(lines.begin(), lines.end(),
                       [](const PictureLine &each) { return each.line->isWhole(); });
}

void clear(QImage &picture, const QRect &area)
{
    for (int y = area.top(); y <= area.bottom(); ++y)
        std::fill_n(reinterpret_cast<QRgb *>(picture.scanLine(y)) + area.x(), area.width(), 0U);
}

/// Restores \a part to the place from which it was copied.
void putBack(QImage &picture, const QImage &part, const QPoint &place)
{
    for (int y = 0; y < part.height(); ++y)
        std::copy_n(reinterpret_cast<const QRgb *>(part.constScanLine(y)), part.width(),
                    reinterpret_cast<QRgb *>(picture.scanLine(place.y() + y)) + place.x());
}

/// Paints with \a draw what is visible in \a strip and some columns to its right, which the next
/// strip paints again. The paint engine skips letters whose boxes lie outside the clip, although
/// slanted and emboldened ones extend beyond their boxes; the clip therefore has a \a margin.
template <typename Draw>
void paintStrip(QImage &picture, QPainter &painter, const QRect &strip, int margin, Draw draw)
{
    const QRect clip = strip.adjusted(-margin, 0, margin, 0) & picture.rect();
    const QRect done(clip.topLeft(), QPoint(strip.left() - 1, clip.bottom()));
    const QImage kept = done.isEmpty() ? QImage() : picture.copy(done);
    clear(picture, clip);
    painter.setClipRect(clip);
    draw();
    putBack(picture, kept, done.topLeft());
}

/// A null image where the painter is needed.
PaintedPicture paintGlyphs(const QSize &size, const QVector<PictureLine> &lines,
                           const PictureStyle &style)
{
    const QColor color(style.color);
    // Otherwise the paint engine blends with another arithmetic.
    const bool isOpaque = color.alphaF() >= 1 && style.opacity >= 1;
    if (!isOpaque || !std::all_of(lines.begin(), lines.end(), [&style](const PictureLine &each) {
            return each.line->consistsOfGlyphs(style.alignment);
        }))
        return {};
    static CoverageCanvas canvas;
    canvas.begin(size);
    const bool covered = std::all_of(lines.begin(), lines.end(), [](const PictureLine &each) {
        return each.line->cover(canvas, each.rect);
    });
    return covered ? canvas.finish(color.rgba()) : PaintedPicture();
}

QImage paintWithPainter(const QSize &size, const QVector<PictureLine> &lines,
                        const PictureStyle &style)
{
    QImage picture(size, QImage::Format_ARGB32);
    if (picture.isNull())
        return {};
    QPainter painter(&picture);
    painter.setFont(style.font);
    QPen pen = painter.pen();
    pen.setColor(QColor(style.color));
    painter.setPen(pen);
    painter.setOpacity(style.opacity);
    // Above 64 pixels letters are filled as outlines, whose cost grows with the square of the
    // line's length. With strips it grows linearly, and the picture is the same.
    const int margin = painter.fontMetrics().height();
    const int stripWidth = std::max(leastStripWidth, 3 * margin);
    for (int x = 0; x < size.width(); x += stripWidth)
        paintStrip(picture, painter, {x, 0, stripWidth, size.height()}, margin, [&] {
            for (const PictureLine &each : lines)
                each.line->draw(painter, each.rect, style.alignment);
        });
    return picture;
}

} // namespace

PaintedPicture paintPicture(const QSize &size, const QVector<PictureLine> &lines,
                            const PictureStyle &style)
{
    if (!canBePainted(size, lines))
        return {};
    PaintedPicture picture = paintGlyphs(size, lines, style);
    if (picture.image.isNull())
        picture.image = paintWithPainter(size, lines, style);
    return picture;
}

QString pngDataUrl(const PaintedPicture &picture, const char *operation)
{
    const QByteArray png = encodedPng(picture.image, picture.pixels);
    if (png.isEmpty())
        qCritical() << operation << "Can't convert QImage to png";
    return withBase64(QLatin1String("data:image/png;base64,"), png);
}
