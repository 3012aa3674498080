#include "render/GlyphShapes.h"

#include <QGlyphRun>
#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <list>
#include <utility>

namespace {

/// More than a large deck has; all are forgotten when there are more. A glyph of the usual 28
/// pixels takes half a kilobyte.
constexpr std::size_t mostGlyphs = 2048;
constexpr std::size_t mostFonts = 8;

constexpr QRgb white = 0xffffffff;

const QRgb *row(const QImage &image, int y)
{
    return reinterpret_cast<const QRgb *>(image.constScanLine(y));
}

/// A white drawing of \a glyph on a transparent picture.
QImage drawing(const QRawFont &font, quint32 glyph, const QSize &size, const QPointF &origin)
{
    QGlyphRun run;
    run.setRawFont(font);
    run.setGlyphIndexes({glyph});
    run.setPositions({QPointF()});
    QImage image(size, QImage::Format_ARGB32);
    // The painter may draw a glyph that it does not have in its cache differently.
    for (int time = 0; time < 2; ++time) {
        image.fill(Qt::transparent);
        QPainter painter(&image);
        painter.setPen(QColor(white));
        painter.drawGlyphRun(origin, run);
    }
    return image;
}

/// The box of the pixels of \a image that are not transparent.
QRect inkOf(const QImage &image)
{
    const auto isInk = [](QRgb pixel) { return pixel != 0; };
    const int width = image.width();
    QRect ink;
    for (int y = 0; y < image.height(); ++y) {
        const QRgb *const begin = row(image, y);
        const QRgb *const end = begin + width;
        const QRgb *const first = std::find_if(begin, end, isInk);
        if (first == end)
            continue;
        const auto last =
            std::find_if(std::make_reverse_iterator(end), std::make_reverse_iterator(first), isInk);
        ink |= QRect(static_cast<int>(first - begin), y, static_cast<int>(last.base() - first), 1);
    }
    return ink;
}

/// The channels of white ink are its coverage.
bool isWhite(QRgb pixel)
{
    constexpr QRgb each = 0x01010101;
    return pixel == static_cast<QRgb>(qAlpha(pixel)) * each;
}

/// The shape with this \a ink of \a image; nothing when the ink is not white.
std::optional<GlyphShape> shapeOf(const QImage &image, const QRect &ink)
{
    constexpr int block = GlyphShape::block;
    const int stride = (ink.width() + block - 1) / block * block;
    GlyphShape shape{ink.left(), ink.top(), ink.width(), ink.height(), stride, {}, {}};
    shape.coverages.resize(static_cast<std::size_t>(stride) *
                           static_cast<std::size_t>(ink.height()));
    uchar *out = shape.coverages.data();
    for (int y = ink.top(); y <= ink.bottom(); ++y, out += stride) {
        const QRgb *const begin = row(image, y) + ink.left();
        const QRgb *const end = begin + ink.width();
        if (!std::all_of(begin, end, isWhite))
            return std::nullopt;
        std::transform(begin, end, out,
                       [](QRgb pixel) { return static_cast<uchar>(qAlpha(pixel)); });
    }
    for (const uchar coverage : shape.coverages)
        shape.occurring.set(coverage);
    return shape;
}

std::optional<GlyphShape> shapeOf(const QRawFont &font, quint32 glyph, int part)
{
    // The box is that of the outline; slanting and hinting may add to it.
    const int margin = 2 + static_cast<int>(font.pixelSize()) / 4;
    const bool isAtEdge = part == GlyphShapes::edge;
    QRect box = font.boundingRect(glyph).toAlignedRect().adjusted(-margin, -margin, margin, margin);
    if (isAtEdge)
        box = QRect(QPoint(0, box.top()), QPoint(std::max(box.right(), margin), box.bottom()));
    constexpr qreal middle = 0.5;
    const qreal x = isAtEdge ? 0 : (part + middle) / GlyphShapes::partsOfPixel;
    const QImage image = drawing(font, glyph, box.size(), QPointF(x, 0) - box.topLeft());
    const QRect ink = inkOf(image);
    if (!image.rect().adjusted(isAtEdge ? 0 : 1, 1, -1, -1).contains(ink) && !ink.isEmpty())
        return std::nullopt;
    std::optional<GlyphShape> shape = shapeOf(image, ink);
    if (shape) {
        shape->left += box.left();
        shape->top += box.top();
    }
    return shape;
}

} // namespace

GlyphShapes::GlyphShapes(const QRawFont &font)
    : m_font(font)
{
}

const GlyphShape *GlyphShapes::find(quint32 glyph, int part)
{
    const quint64 key = quint64{glyph} * (edge + 1) + static_cast<quint64>(part);
    auto known = m_shapes.find(key);
    if (known == m_shapes.end()) {
        if (m_shapes.size() == mostGlyphs)
            m_shapes.clear();
        known = m_shapes.emplace(key, shapeOf(m_font, glyph, part)).first;
    }
    return known->second ? &*known->second : nullptr;
}

GlyphShapes &GlyphShapes::of(const QRawFont &font)
{
    // Never deleted, because the engines of the fonts end with the application.
    static auto &all = *new std::list<GlyphShapes>;
    const auto known = std::find_if(
        all.begin(), all.end(), [&font](const GlyphShapes &each) { return each.font() == font; });
    if (known != all.end()) {
        all.splice(all.begin(), all, known);
        return all.front();
    }
    if (all.size() == mostFonts)
        all.pop_back();
    return all.emplace_front(font);
}
