#include "render/gauges/GaugeSheet.h"
#include "render/gauges/GaugeStyles.h"

#include <algorithm>

namespace gauge {

namespace {

constexpr qreal height = 0.11;
constexpr qreal margin = 0.08;
constexpr qreal top = 0.74;

constexpr TextPlaces titled{0.215, 0.46, 0.34, 0.90};
constexpr TextPlaces bare{0, 0.38, 0.44, 0.90};

/// The bar's place, in whole pixels.
QRectF barPlace(const GaugeSheet &sheet)
{
    const QRectF area = sheet.gaugeArea();
    const int inset = sheet.pixels(margin);
    const int thickness = sheet.pixels(height);
    const int y = sheet.isWide() ? qRound(area.center().y() - thickness / 2.0)
                                 : qRound(area.top() + sheet.length(top));
    return QRectF(qRound(area.left()) + inset, y, area.width() - 2 * inset, thickness);
}

void drawRounded(QPainter &painter, const QRectF &rect)
{
    painter.drawRoundedRect(rect, rect.height() / 2, rect.height() / 2);
}

} // namespace

void drawBar(GaugeSheet &sheet)
{
    sheet.drawTexts(titled, bare);
    QRectF bar = barPlace(sheet);
    QPainter &painter = sheet.painter();
    painter.setPen(Qt::NoPen);
    painter.setBrush(sheet.canvas().colorOf(Ink::Letters, trackStrength));
    drawRounded(painter, bar);
    const qreal share = sheet.share();
    if (share > 0) {
        bar.setWidth(std::max(bar.height(), bar.width() * share));
        painter.setBrush(sheet.canvas().colorOf(Ink::Gauge));
        drawRounded(painter, bar);
    }
    sheet.drawMarks();
}

} // namespace gauge
