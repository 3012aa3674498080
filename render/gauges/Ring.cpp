#include "render/gauges/GaugeSheet.h"
#include "render/gauges/GaugeStyles.h"

#include <QPainterPath>
#include <QPen>

#include <algorithm>

namespace gauge {

namespace {

constexpr qreal width = 0.09;
constexpr qreal margin = 0.06;

/// Counterclockwise from three o'clock, in degrees.
constexpr qreal start = 225;
constexpr qreal whole = -270;

constexpr TextPlaces titled{0.95, 0.49, 0.34, 0.60, 0.27};
constexpr TextPlaces bare{0, 0.50, 0.34, 0.60, 0.27};

/// Draws no more than the round end.
constexpr qreal leastShare = 1.0 / 4096;

void drawArc(QPainter &painter, const QRectF &circle, qreal share)
{
    QPainterPath arc;
    arc.arcMoveTo(circle, start);
    arc.arcTo(circle, start, whole * share);
    painter.drawPath(arc);
}

} // namespace

void drawRing(GaugeSheet &sheet)
{
    sheet.drawTexts(titled, bare);
    QRectF circle(0, 0, 1, 1);
    const qreal diameter = sheet.length(1 - 2 * margin - width);
    circle.setSize({diameter, diameter});
    circle.moveCenter(sheet.gaugeArea().center());
    QPainter &painter = sheet.painter();
    painter.setBrush(Qt::NoBrush);
    QPen pen(sheet.canvas().colorOf(Ink::Letters, trackStrength), sheet.length(width),
             Qt::SolidLine, Qt::RoundCap);
    painter.setPen(pen);
    drawArc(painter, circle, 1);
    const qreal share = sheet.share();
    if (share > 0) {
        pen.setColor(sheet.canvas().colorOf(Ink::Gauge));
        painter.setPen(pen);
        drawArc(painter, circle, std::max(share, leastShare));
    }
    sheet.drawMarks();
}

} // namespace gauge
