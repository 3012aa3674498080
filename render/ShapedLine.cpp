#include "render/ShapedLine.h"

#include <QFontMetrics>
#include <QPainter>
#include <QRect>
#include <QTextLine>

#include <algorithm>
#include <limits>

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

void ShapedLine::drawCentred(QPainter &painter, const QRect &rect) const
{
    const QTextLine line = m_layout.lineAt(0);
    const qreal height = line.ascent() + line.descent();
    const qreal y = rect.y() + (rect.height() - height) / 2;
    const auto left = [&rect](qreal width) { return rect.x() + (rect.width() - width) / 2; };
    // The natural width includes what extends beyond the last letter's advance, such as in italics.
    const qreal width = line.naturalTextWidth();
    const QRectF bounds(left(width), y, width, height);
    const bool overhangs = !QRectF(rect).contains(bounds);
    if (overhangs) {
        painter.save();
        painter.setClipRect(rect, Qt::IntersectClip);
    }
    line.draw(&painter, {left(line.horizontalAdvance()), y});
    if (overhangs)
        painter.restore();
}
