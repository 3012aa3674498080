#include "deck_simulator/gui/DialCell.h"

#include <QPainter>
#include <QWheelEvent>
#include <QtMath>

namespace deck {

namespace {

constexpr int wheelTick = 120;     // eighths of a degree
constexpr int degreesPerTick = 15; // as far as the mark on the knob goes

const QColor knobColor(0x3a, 0x3c, 0x42);
const QColor knobEdgeColor(0x5c, 0x5f, 0x66);
const QColor markColor(0xc8, 0xcc, 0xd4);

} // namespace

DialCell::DialCell(int number, QWidget *parent)
    : KeyCell({number, 0, true}, parent)
{
}

void DialCell::turn(int ticks)
{
    if (!isOccupied() || ticks == 0)
        return;
    m_angle = (m_angle + ticks * degreesPerTick) % 360;
    update();
    Q_EMIT turned(ticks, isDown());
}

QRect DialCell::screenRect() const
{
    return {3, 3, width() - 6, height() * 2 / 3 - 3};
}

QRect DialCell::knobRect() const
{
    const int side = qMin(height() / 3 - 6, width() - 6);
    QRect knob(0, 0, side, side);
    knob.moveCenter(QPoint(width() / 2, height() * 5 / 6));
    return knob;
}

bool DialCell::pressesAt(const QPoint &point) const
{
    const QPoint offset = point - knobRect().center();
    return QPoint::dotProduct(offset, offset) * 4 <= knobRect().width() * knobRect().width();
}

void DialCell::wheelEvent(QWheelEvent *event)
{
    m_wheelRest += event->angleDelta().y();
    const int ticks = m_wheelRest / wheelTick;
    m_wheelRest -= ticks * wheelTick;
    turn(ticks);
    event->accept();
}

void DialCell::paintGround(QPainter &painter)
{
    paintScreen(painter, screenRect());
    const QRectF knob = isDown() ? QRectF(knobRect()).adjusted(2, 2, -2, -2) : QRectF(knobRect());
    painter.setPen(QPen(knobEdgeColor, 1.5));
    painter.setBrush(knobColor);
    painter.drawEllipse(knob);
    const qreal angle = qDegreesToRadians(qreal(m_angle - 90));
    const QPointF direction(qCos(angle), qSin(angle));
    const qreal radius = knob.width() / 2;
    painter.setPen(QPen(markColor, 2.5, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(knob.center() + direction * radius * 0.55,
                     knob.center() + direction * radius * 0.85);
}

} // namespace deck
