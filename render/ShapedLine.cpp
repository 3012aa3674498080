#include "render/ShapedLine.h"

#include "qt/QtVersions.h"
#include "render/CoverageCanvas.h"
#include "render/GlyphShapes.h"

#include <QFontMetrics>
#include <QGlyphRun>
#include <QPainter>
#include <QRect>
#include <QTextLine>

#include <algorithm>
#include <limits>
#include <utility>

namespace {

/// Wider than any line: it is never broken.
constexpr qreal unbounded = 1 << 24;

/// Whether \a character is written from left to right, and is a letter, figure or sign: no mark, no
/// control character and no blank but the common one. Some scripts join or reorder such letters;
/// the layout does that as the painter would.
bool isSimple(QChar character)
{
    if (character == QLatin1Char(' '))
        return true;
    const QChar::Direction direction = character.direction();
    return direction != QChar::DirR && direction != QChar::DirAL && direction != QChar::DirAN &&
           (character.isLetterOrNumber() || character.isPunct() || character.isSymbol());
}

/// A text of one line whose place does not depend on its content, as it would with blanks at its
/// ends.
bool isSimple(const QString &text)
{
    return !text.isEmpty() && text.size() <= longestText && !text.at(0).isSpace() &&
           !text.at(text.size() - 1).isSpace() &&
           std::all_of(text.begin(), text.end(), [](QChar each) { return isSimple(each); });
}

/// The painter reckons in 64ths of a pixel.
constexpr int fixedUnits = 64;

/// Cut off towards zero, as in the painter.
int fixedPoint(qreal position)
{
    return static_cast<int>(position * fixedUnits);
}

/// The pixel and the part of it in which \a position, in 64ths of a pixel, lies.
std::pair<int, int> split(int position)
{
    const int rest = position & (fixedUnits - 1);
    return {(position - rest) / fixedUnits, rest * GlyphShapes::partsOfPixel / fixedUnits};
}

int rounded(int position)
{
    return split(position + fixedUnits / 2).first;
}

/// Adds the glyphs of \a run, which starts at \a place, in 64ths of a pixel.
bool coverRun(CoverageCanvas &canvas, const QGlyphRun &run, const QPoint &place, const QRect &clip)
{
    GlyphShapes &shapes = GlyphShapes::of(run.rawFont());
    const QVector<quint32> glyphs = run.glyphIndexes();
    const QVector<QPointF> positions = run.positions();
    for (int i = 0; i < glyphs.size(); ++i) {
        const int position = place.x() + fixedPoint(positions.at(i).x());
        const auto [x, part] = split(position + addedToGlyphPlaces);
        const GlyphShape *const shape =
            shapes.find(glyphs.at(i), position == 0 ? GlyphShapes::edge : part);
        if (!shape)
            return false;
        canvas.add(*shape, {x, rounded(place.y() + fixedPoint(positions.at(i).y()))}, clip);
    }
    return true;
}

} // namespace

ShapedLine::ShapedLine(const QString &text, const QFont &font)
    : m_text(text)
    , m_font(font)
    , m_layout(text, font)
{
    if (!isSimple(text))
        return;
    m_layout.setCacheEnabled(true);
    m_layout.beginLayout();
    m_layout.createLine().setLineWidth(unbounded);
    m_layout.endLayout();
}

int ShapedLine::width() const
{
    if (m_layout.lineCount() > 0)
        return qRound(m_layout.lineAt(0).horizontalAdvance());
    const int width = QFontMetrics(m_font).horizontalAdvance(m_text.left(longestText));
    if (isWhole())
        return width;
    const double whole = static_cast<double>(width) * static_cast<int>(m_text.size()) / longestText;
    return static_cast<int>(std::min<double>(whole, std::numeric_limits<int>::max()));
}

void ShapedLine::draw(QPainter &painter, const QRect &rect, int alignment) const
{
    if (m_layout.lineCount() > 0 && alignment == Qt::AlignCenter)
        drawCentred(painter, rect);
    else if (isWhole())
        painter.drawText(rect, alignment, m_text);
}

ShapedLine::Place ShapedLine::centredIn(const QRect &rect) const
{
    const QTextLine line = m_layout.lineAt(0);
    const qreal height = line.ascent() + line.descent();
    const qreal y = rect.y() + (rect.height() - height) / 2;
    const auto left = [&rect](qreal width) { return rect.x() + (rect.width() - width) / 2; };
    // The natural width includes what extends beyond the last letter's advance, such as in italics.
    const qreal width = line.naturalTextWidth();
    const QRectF bounds(left(width), y, width, height);
    return {{left(line.horizontalAdvance()), y}, !QRectF(rect).contains(bounds)};
}

void ShapedLine::drawCentred(QPainter &painter, const QRect &rect) const
{
    const auto [origin, overhangs] = centredIn(rect);
    if (overhangs) {
        painter.save();
        painter.setClipRect(rect, Qt::IntersectClip);
    }
    m_layout.lineAt(0).draw(&painter, origin);
    if (overhangs)
        painter.restore();
}

bool ShapedLine::consistsOfGlyphs(int alignment) const
{
    // The painter caches glyphs of less than 64 pixels. Those that are not smooth it puts on whole
    // pixels in a way of their own.
    constexpr int largest = 48;
    return m_layout.lineCount() > 0 && alignment == Qt::AlignCenter && m_font.pixelSize() > 0 &&
           m_font.pixelSize() <= largest && !m_font.underline() && !m_font.overline() &&
           !m_font.strikeOut() && (m_font.styleStrategy() & QFont::NoAntialias) == 0;
}

bool ShapedLine::cover(CoverageCanvas &canvas, const QRect &rect) const
{
    const auto [origin, overhangs] = centredIn(rect);
    const QPoint place(fixedPoint(origin.x()), fixedPoint(origin.y()));
    const QRect clip = overhangs ? rect & canvas.rect() : canvas.rect();
    const QList<QGlyphRun> runs = m_layout.glyphRuns();
    const bool covered = std::all_of(runs.begin(), runs.end(), [&](const QGlyphRun &run) {
        return coverRun(canvas, run, place, clip);
    });
    // The glyphs of each font are together, not in their order, which matters where they overlap.
    return covered && (runs.size() == 1 || !canvas.hasOverlaps());
}
