#pragma once

#include <QFont>
#include <QString>
#include <QTextLayout>

class QPainter;
class QRect;

/// The longest text that is measured and painted whole, in characters.
constexpr int longestText = 4096;

/// A line of text in its font. Its letters are chosen and placed once, for measuring and for
/// drawing.
class ShapedLine
{
public:
    ShapedLine(const QString &text, const QFont &font);
    ~ShapedLine() = default;
    Q_DISABLE_COPY(ShapedLine)

    /// In pixels, as QFontMetrics::horizontalAdvance has it. Of a text longer than longestText only
    /// the beginning is measured; the rest is taken to be as wide.
    [[nodiscard]] int width() const;
    /// Whether the text is not longer than longestText; otherwise nothing is drawn.
    [[nodiscard]] bool isWhole() const { return m_text.size() <= longestText; }
    /// Draws a whole text as QPainter::drawText does with the same arguments, in the pen and font
    /// of \a painter; nothing of another one. The font must be this line's, and the painter's
    /// layout direction from left to right.
    void draw(QPainter &painter, const QRect &rect, int alignment) const;

private:
    void drawCentred(QPainter &painter, const QRect &rect) const;

    QString m_text;
    QFont m_font;
    QTextLayout m_layout; ///< One line, or none where the text is left to the painter.
};
