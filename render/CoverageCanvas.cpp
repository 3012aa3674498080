#include "render/CoverageCanvas.h"

#include "render/GlyphShapes.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace {

constexpr QRgb full = 255;

/// All channels of \a color times \a share of 255, rounded.
QRgb scaled(QRgb color, QRgb share)
{
    constexpr QRgb even = 0x00ff00ff;
    constexpr QRgb half = 0x00800080;
    constexpr unsigned byte = 8;
    QRgb low = (color & even) * share;
    low = (low + ((low >> byte) & even) + half) >> byte & even;
    QRgb high = (color >> byte & even) * share;
    high = (high + ((high >> byte) & even) + half) & ~even;
    return low | high;
}

using Colors = std::array<QRgb, full + 1>;

/// What each coverage makes of a transparent pixel.
Colors colorsOf(QRgb color)
{
    Colors colors;
    for (QRgb coverage = 0; coverage <= full; ++coverage)
        colors[coverage] = scaled(color, coverage);
    return colors;
}

/// Eight pixels at a time, because most have no coverage.
using Block = quint64;
static_assert(sizeof(Block) == GlyphShape::block);

Block blockAt(const uchar *coverages)
{
    Block block = 0;
    std::memcpy(&block, coverages, sizeof(block));
    return block;
}

void writeRow(const uchar *coverage, int width, const Colors &colors, QRgb *out)
{
    const auto color = [&colors](uchar each) { return colors[each]; };
    const uchar *const end = coverage + width;
    for (; end - coverage >= GlyphShape::block; coverage += GlyphShape::block, out += GlyphShape::block) {
        if (blockAt(coverage) == 0)
            std::fill_n(out, GlyphShape::block, 0U);
        else
            std::transform(coverage, coverage + GlyphShape::block, out, color);
    }
    std::transform(coverage, end, out, color);
}

} // namespace

CoverageCanvas::CoverageCanvas(const QSize &size)
    : m_size(size)
    , m_stride(size.width() + GlyphShape::block)
    , m_coverages(static_cast<std::size_t>(m_stride) * static_cast<std::size_t>(size.height()))
{
}

void CoverageCanvas::add(const GlyphShape &shape, const QPoint &origin, const QRect &clip)
{
    const QPoint corner = origin + QPoint(shape.left, shape.top);
    const QRect box = QRect(corner, QSize(shape.width, shape.height)) & clip & rect();
    const int skipped = box.left() - corner.x();
    // Behind each row there is room for a block, which adds nothing there.
    const bool isWhole = box.width() == shape.width;
    const int length = isWhole ? shape.stride : box.width();
    for (int y = box.top(); y <= box.bottom(); ++y) {
        const uchar *const from = shape.coverages.data() + (y - corner.y()) * shape.stride + skipped;
        uchar *const to = m_coverages.data() + y * m_stride + box.left();
        int done = 0;
        for (; length - done >= GlyphShape::block; done += GlyphShape::block) {
            if (blockAt(to + done) == 0)
                std::memcpy(to + done, from + done, GlyphShape::block);
            else
                addSlowly(to + done, from + done, GlyphShape::block, {box.left() + done, y});
        }
        addSlowly(to + done, from + done, length - done, {box.left() + done, y});
    }
}

void CoverageCanvas::addSlowly(uchar *to, const uchar *from, int length, const QPoint &place)
{
    for (int i = 0; i < length; ++i) {
        if (to[i] == 0)
            to[i] = from[i];
        else if (from[i] != 0)
            m_overlaps.push_back({place.x() + i, place.y(), from[i]});
    }
}

QImage CoverageCanvas::picture(QRgb color) const
{
    QImage picture(m_size, QImage::Format_ARGB32);
    if (picture.isNull())
        return {};
    const Colors colors = colorsOf(color);
    for (int y = 0; y < m_size.height(); ++y)
        writeRow(m_coverages.data() + y * m_stride, m_size.width(), colors,
                 reinterpret_cast<QRgb *>(picture.scanLine(y)));
    return blendOverlaps(picture, color) ? picture : QImage();
}

bool CoverageCanvas::blendOverlaps(QImage &picture, QRgb color) const
{
    for (const auto &[x, y, coverage] : m_overlaps) {
        QRgb &pixel = reinterpret_cast<QRgb *>(picture.scanLine(y))[x];
        if (qAlpha(pixel) == static_cast<int>(full) && coverage != full)
            return false;
        const QRgb ink = scaled(color, coverage);
        pixel = ink + scaled(pixel, full - static_cast<QRgb>(qAlpha(ink)));
    }
    return true;
}
