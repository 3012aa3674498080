#include "render/CoverageCanvas.h"

#include "render/GlyphShapes.h"

#include <algorithm>
#include <array>
#include <cstddef>
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

/// What each coverage makes of a transparent pixel. Most keys have the colour of the key before.
const Colors &colorsOf(QRgb color)
{
    static QRgb last = 0;
    static Colors colors = {};
    if (color != last) {
        for (QRgb coverage = 0; coverage <= full; ++coverage)
            colors[coverage] = scaled(color, coverage);
        last = color;
    }
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

/// Of each coverage, the number of its colour.
using Numbers = std::array<uchar, full + 1>;

/// What the coverages of a picture become.
struct Inks
{
    const Colors &colors;
    Numbers numbers;
    bool areNumbersComplete; ///< Each coverage has one: its complement to 256.
};

/// The colours of the coverages that are \a occurring, full coverage first, get numbers. If nearly
/// all occur, all do, for then the numbers need not be looked up.
QVector<QRgb> number(const std::bitset<full + 1> &occurring, Inks &inks)
{
    constexpr std::size_t nearlyAll = 224;
    inks.areNumbersComplete = occurring.count() >= nearlyAll;
    QVector<QRgb> found(full + 1);
    QRgb *next = found.data();
    *next++ = inks.colors[0];
    uchar count = 0;
    for (std::size_t coverage = full; coverage > 0; --coverage) {
        if (!occurring.test(coverage) && !inks.areNumbersComplete)
            continue;
        inks.numbers[coverage] = ++count;
        *next++ = inks.colors[coverage];
    }
    found.resize(count + 1);
    return found;
}

/// Notes that a pixel, whose number is \a number, has become \a pixel; false when there are too
/// many colours.
bool renumber(QRgb pixel, const Numbers &numberOf, QVector<QRgb> &colors, uchar &number)
{
    number = numberOf[static_cast<std::size_t>(qAlpha(pixel))];
    if (colors.at(number) == pixel)
        return true;
    auto place = colors.indexOf(pixel);
    if (place < 0) {
        place = colors.size();
        colors.append(pixel);
    }
    number = static_cast<uchar>(place);
    return place <= static_cast<int>(full);
}

std::ptrdiff_t offset(int stride, int row)
{
    return static_cast<std::ptrdiff_t>(stride) * row;
}

void writeNumbers(const uchar *coverages, int length, const Inks &inks, uchar *numbers)
{
    if (inks.areNumbersComplete)
        std::transform(coverages, coverages + length, numbers,
                       [](uchar each) { return static_cast<uchar>(-each); });
    else
        std::transform(coverages, coverages + length, numbers,
                       [&inks](uchar each) { return inks.numbers[each]; });
}

/// Writes a row of the picture, and clears the coverages, behind which there is room for a block.
void inkRow(uchar *coverages, int width, const Colors &colors, QRgb *pixels)
{
    constexpr int block = GlyphShape::block;
    int x = 0;
    for (; x <= width - block; x += block) {
        if (blockAt(coverages + x) == 0) {
            std::fill_n(pixels + x, block, 0U);
            continue;
        }
        for (int i = x; i < x + block; ++i)
            pixels[i] = colors[coverages[i]];
        std::memset(coverages + x, 0, block);
    }
    std::transform(coverages + x, coverages + width, pixels + x,
                   [&colors](uchar each) { return colors[each]; });
    std::memset(coverages + x, 0, block);
}

} // namespace

void CoverageCanvas::begin(const QSize &size)
{
    constexpr std::size_t mostKept = std::size_t{256} * 1024;
    m_size = size;
    m_stride = size.width() + GlyphShape::block;
    const auto needed =
        static_cast<std::size_t>(m_stride) * static_cast<std::size_t>(size.height());
    if (!m_isEmpty || m_coverages.size() > mostKept)
        m_coverages = std::vector<uchar>(needed);
    else if (m_coverages.size() < needed)
        m_coverages.resize(needed);
    m_isEmpty = true;
    m_occurring.reset();
    m_overlaps.clear();
}

void CoverageCanvas::add(const GlyphShape &shape, const QPoint &origin, const QRect &clip)
{
    const QPoint corner = origin + QPoint(shape.left, shape.top);
    const QRect box = QRect(corner, QSize(shape.width, shape.height)) & clip;
    m_isEmpty = false;
    m_occurring |= shape.occurring;
    const int skipped = box.left() - corner.x();
    // Behind each row there is room for a block, which adds nothing there.
    const bool isWhole = box.width() == shape.width;
    const int length = isWhole ? shape.stride : box.width();
    for (int y = box.top(); y <= box.bottom(); ++y) {
        const uchar *const from =
            shape.coverages.data() + offset(shape.stride, y - corner.y()) + skipped;
        uchar *const to = m_coverages.data() + offset(m_stride, y) + box.left();
        int done = 0;
        for (; length - done >= GlyphShape::block; done += GlyphShape::block) {
            if (blockAt(to + done) == 0)
                std::memcpy(to + done, from + done, GlyphShape::block);
            else
                addSlowly(to + done, from + done, GlyphShape::block, {box.left() + done, y});
        }
        if (done < length)
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

PaintedPicture CoverageCanvas::finish(QRgb color)
{
    PaintedPicture picture{QImage(m_size, QImage::Format_ARGB32)};
    if (picture.image.isNull())
        return {};
    Inks inks{colorsOf(color), {}, false};
    picture.pixels.colors = number(m_occurring, inks);
    picture.pixels.rows = QByteArray((m_size.width() + 1) * m_size.height(), Qt::Uninitialized);
    auto *numbers = reinterpret_cast<uchar *>(picture.pixels.rows.data());
    for (int y = 0; y < m_size.height(); ++y) {
        uchar *const coverages = m_coverages.data() + offset(m_stride, y);
        *numbers++ = 0;
        writeNumbers(coverages, m_size.width(), inks, numbers);
        numbers += m_size.width();
        inkRow(coverages, m_size.width(), inks.colors,
               reinterpret_cast<QRgb *>(picture.image.scanLine(y)));
    }
    m_isEmpty = true;
    return blendOverlaps(picture, color, inks.numbers) ? picture : PaintedPicture();
}

bool CoverageCanvas::blendOverlaps(PaintedPicture &picture, QRgb color,
                                   const Numbers &numberOf) const
{
    bool isNumbered = true;
    for (const auto &[x, y, coverage] : m_overlaps) {
        QRgb &pixel = reinterpret_cast<QRgb *>(picture.image.scanLine(y))[x];
        if (qAlpha(pixel) == static_cast<int>(full) && coverage != full)
            return false;
        const QRgb ink = scaled(color, coverage);
        pixel = ink + scaled(pixel, full - static_cast<QRgb>(qAlpha(ink)));
        auto *const numbers = reinterpret_cast<uchar *>(picture.pixels.rows.data());
        isNumbered = isNumbered && renumber(pixel, numberOf, picture.pixels.colors,
                                            numbers[y * (m_size.width() + 1) + 1 + x]);
    }
    if (!isNumbered)
        picture.pixels = {};
    return true;
}
