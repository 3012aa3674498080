#pragma once

#include "render/Gauge.h"
#include "render/gauges/InkCanvas.h"

#include <QRectF>

namespace gauge {

/// Where the texts of a style stand, in shares of the sheet's side.
struct TextPlaces
{
    qreal titleBase = 0;   ///< The title's base line.
    qreal valueCentre = 0; ///< The middle of the value's digits.
    qreal valueSize = 0;   ///< The most that the font may have.
    qreal valueWidth = 0;  ///< The most that value and unit may take.
    /// Below this size of the value its unit stands on a line of its own; 0: never.
    qreal stackedBelow = 0;
};

/// Of the letters' colour, where the gauge would be if it were full.
constexpr qreal trackStrength = 0.16;

/// One value with its unit, and the room that they have.
struct ValueRoom
{
    QRectF area;       ///< In pixels.
    qreal largest = 0; ///< The value's font size at most, in pixels.
    qreal unit = 0;    ///< The unit's size, as a share of the value's.
};

/// What all styles share: the canvas, its parts, texts and marks. Lengths named as shares are those
/// of the side, the height of a square.
class GaugeSheet
{
public:
    GaugeSheet(const Content &content, const Look &look);

    InkCanvas &canvas() { return m_canvas; }
    QPainter &painter() { return m_canvas.painter(); }
    [[nodiscard]] const Content &content() const { return m_content; }

    /// The value of a gauge with one value, 0 where it is missing, else 0 to 1.
    [[nodiscard]] qreal share() const;
    /// \a share of the side, in pixels.
    [[nodiscard]] qreal length(qreal share) const { return share * m_side; }
    /// The same in whole pixels, at least one.
    [[nodiscard]] int pixels(qreal share) const;
    [[nodiscard]] bool isWide() const { return m_textArea != m_gaugeArea; }
    /// The left half of a wide sheet, else all of it; in pixels, as the next.
    [[nodiscard]] QRectF textArea() const { return m_textArea; }
    [[nodiscard]] QRectF gaugeArea() const { return m_gaugeArea; }

    /// Draws title and value of a gauge with one value. Without a title the value is at \a bare. On
    /// a wide sheet they stand beside the gauge, in the same places in each style.
    void drawTexts(const TextPlaces &titled, const TextPlaces &bare);
    void drawTitle(qreal base);
    /// The font size at which the widest text of \a reading fits into \a room, in whole pixels.
    [[nodiscard]] int valueSize(const Reading &reading, const ValueRoom &room) const;
    /// Draws value and unit with \a size in the middle of \a room's height, \a alignment says where
    /// of its width.
    void drawValue(const Reading &reading, const ValueRoom &room, int size,
                   Qt::Alignment alignment);
    /// The marks in the upper corners: the triangle of a critical value, what an extreme is.
    void drawMarks();
    /// How far the marks reach from the left and the right edge, in pixels; 0 without.
    [[nodiscard]] qreal leftMarkRoom() const;
    [[nodiscard]] qreal rightMarkRoom() const;

    QImage finished();

private:
    /// Draws the value in \a room with the unit below it.
    void drawStacked(const Reading &reading, ValueRoom room);
    void drawExtreme(const QRectF &box);

    const Content &m_content;
    const Look &m_look;
    InkCanvas m_canvas;
    QRectF m_textArea;
    QRectF m_gaugeArea;
    qreal m_side;
};

} // namespace gauge
