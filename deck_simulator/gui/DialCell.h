#pragma once

#include "deck_simulator/gui/KeyCell.h"

namespace deck {

/// One dial on the screen: a screen, up to twice as wide as high, above a knob. The wheel turns it,
/// a press on the knob presses it.
class DialCell : public KeyCell
{
    Q_OBJECT

public:
    explicit DialCell(int number, QWidget *parent = nullptr);

    /// Turns it by \a ticks, clockwise if positive.
    void turn(int ticks);
    [[nodiscard]] QRect knobRect() const;

Q_SIGNALS:
    void turned(int ticks, bool pressed);

protected:
    void wheelEvent(QWheelEvent *event) override;
    [[nodiscard]] QRect screenRect() const override;
    [[nodiscard]] bool pressesAt(const QPoint &point) const override;
    void paintGround(QPainter &painter) override;

private:
    int m_angle = 0;     // degrees
    int m_wheelRest = 0; // eighths of a degree that make no tick yet
};

} // namespace deck
