#include "render/gauges/GaugeText.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QRawFont>
#include <QTextLine>
#include <QTextOption>

#include <algorithm>
#include <numeric>

namespace gauge {

namespace {

/// Wider than any line: it is never broken.
constexpr qreal unbounded = 1 << 24;

const QString cellCharacters = QStringLiteral("0123456789");

bool standsInCell(QChar character)
{
    return (character >= QLatin1Char('0') && character <= QLatin1Char('9')) ||
           character == QChar(u'–');
}

qreal cellWidth(const QRawFont &font)
{
    const QVector<QPointF> advances =
        font.advancesForGlyphIndexes(font.glyphIndexesForString(cellCharacters));
    return std::accumulate(
        advances.begin(), advances.end(), 0.0,
        [](qreal widest, const QPointF &advance) { return std::max(widest, advance.x()); });
}

} // namespace

QFont fontOf(const QFont &family, QFont::Weight weight, int pixelSize)
{
    QFont font(family);
    const QString style = family.styleName();
    if (style.contains(QLatin1String("Italic")) || style.contains(QLatin1String("Oblique")))
        font.setItalic(true);
    // The name of a style would outweigh the weight.
    font.setStyleName({});
    font.setWeight(weight);
    font.setPixelSize(std::max(1, pixelSize));
    // Its colours would be taken for inks.
    font.setStyleStrategy(QFont::NoSubpixelAntialias);
    return font;
}

qreal capHeight(const QFont &font)
{
    return QRawFont::fromFont(font).capHeight();
}

QString limited(const QString &text, int longest)
{
    const QString line = text.left(longest + 1).simplified();
    return line.size() <= longest ? line : line.left(longest - 1) + QChar(u'…');
}

PlainLine::PlainLine(const QString &text, const QFont &font)
    : m_layout(text, font)
{
    QTextOption option(Qt::AlignLeft | Qt::AlignAbsolute);
    option.setWrapMode(QTextOption::NoWrap);
    m_layout.setTextOption(option);
    m_layout.setCacheEnabled(true);
    m_layout.beginLayout();
    m_layout.createLine().setLineWidth(unbounded);
    m_layout.endLayout();
}

qreal PlainLine::width() const
{
    return m_layout.lineAt(0).horizontalAdvance();
}

void PlainLine::draw(QPainter &painter, const QPointF &start) const
{
    const QTextLine line = m_layout.lineAt(0);
    line.draw(&painter, start - QPointF(0, line.ascent()));
}

DigitLine::DigitLine(const QString &text, const QFont &font)
    : m_text(text)
    , m_font(font)
{
    const QRawFont raw = QRawFont::fromFont(font);
    const QVector<quint32> glyphs = raw.glyphIndexesForString(text);
    if (glyphs.size() != text.size() || glyphs.contains(0)) {
        m_width = QFontMetricsF(font).horizontalAdvance(text);
        return;
    }
    const QVector<QPointF> advances = raw.advancesForGlyphIndexes(glyphs);
    const qreal cell = cellWidth(raw);
    QVector<QPointF> positions;
    positions.reserve(glyphs.size());
    for (int i = 0; i < glyphs.size(); ++i) {
        const qreal advance = advances.at(i).x();
        const qreal room = standsInCell(text.at(i)) ? std::max(cell, advance) : advance;
        positions.append({m_width + (room - advance) / 2, 0});
        m_width += room;
    }
    m_run.setRawFont(raw);
    m_run.setGlyphIndexes(glyphs);
    m_run.setPositions(positions);
}

void DigitLine::draw(QPainter &painter, const QPointF &start) const
{
    if (!m_run.isEmpty()) {
        painter.drawGlyphRun(start, m_run);
        return;
    }
    painter.setFont(m_font);
    painter.drawText(start, m_text);
}

} // namespace gauge
