#pragma once

#include <QFont>
#include <QPointF>
#include <QString>
#include <QTextLayout>

class CoverageCanvas;
class QPainter;
class QRect;

/// The longest text that is completely measured and painted, in characters.
constexpr int longestText = 4096;

/// A line of text in its font. It is shaped once, for measuring and for drawing.
class ShapedLine
{
public:
    ShapedLine(const QString &text, const QFont &font);
    ~ShapedLine() = default;
    Q_DISABLE_COPY(ShapedLine)

    /// In pixels, the same as QFontMetrics::horizontalAdvance. Of a text longer than longestText
    /// only the beginning is measured; the rest is assumed to have the same width per character.
    [[nodiscard]] int width() const;
    /// Whether the text is at most longestText long; otherwise nothing is drawn.
    [[nodiscard]] bool isWhole() const { return m_text.size() <= longestText; }
    /// Draws a complete text as QPainter::drawText does with the same arguments, with the pen and
    /// font of \a painter; a text that is too long is not drawn. The font must be that of this
    /// line, and the painter's layout direction must be left to right.
    void draw(QPainter &painter, const QRect &rect, int alignment) const;

    /// Whether draw() draws nothing but glyphs from the painter's cache: no large letters, no lines
    /// under or through them, no edges that are not smooth, and no text left to the painter.
    [[nodiscard]] bool consistsOfGlyphs(int alignment) const;
    /// Adds these glyphs to \a canvas; false when one is not drawn in a single colour.
    [[nodiscard]] bool cover(CoverageCanvas &canvas, const QRect &rect) const;

private:
    struct Place
    {
        QPointF origin;         ///< Of the layout.
        bool overhangs = false; ///< The line must be clipped to its rectangle.
    };

    Place centredIn(const QRect &rect) const;
    void drawCentred(QPainter &painter, const QRect &rect) const;

    QString m_text;
    QFont m_font;
    QTextLayout m_layout; ///< One line, or none where the text is left to the painter.
};
