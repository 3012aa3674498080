#pragma once

#include <QFont>
#include <QGlyphRun>
#include <QPointF>
#include <QString>
#include <QTextLayout>

class QPainter;

namespace gauge {

/// \a family in another weight and size, in pixels; slanted if it was.
QFont fontOf(const QFont &family, QFont::Weight weight, int pixelSize);

/// The height of a capital letter, in pixels.
qreal capHeight(const QFont &font);

/// \a text on one line of at most \a longest characters, the last of them an ellipsis if some are
/// missing.
QString limited(const QString &text, int longest);

/// A line of any text.
class PlainLine
{
public:
    PlainLine(const QString &text, const QFont &font);
    ~PlainLine() = default;
    Q_DISABLE_COPY(PlainLine)

    [[nodiscard]] qreal width() const;
    /// \a start is the left end of the base line.
    void draw(QPainter &painter, const QPointF &start) const;

private:
    QTextLayout m_layout;
};

/// A number whose digits stand in equal cells, and so does the dash of a missing one.
class DigitLine
{
public:
    DigitLine(const QString &text, const QFont &font);

    [[nodiscard]] qreal width() const { return m_width; }
    void draw(QPainter &painter, const QPointF &start) const;

private:
    QGlyphRun m_run; ///< Empty where the font lacks a character.
    QString m_text;  ///< What is drawn then.
    QFont m_font;    ///< That of the text.
    qreal m_width = 0;
};

} // namespace gauge
