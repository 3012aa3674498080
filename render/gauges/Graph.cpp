#include "render/gauges/GaugeSheet.h"
#include "render/gauges/GaugeStyles.h"
#include "render/gauges/TraceCurve.h"

namespace gauge {

namespace {

constexpr qreal height = 0.44;
/// On a wide sheet nothing stands above it but the mark in the corner.
constexpr qreal heightBeside = 0.78;

constexpr TextPlaces titled{0.18, 0.365, 0.34, 0.90};
constexpr TextPlaces bare{0, 0.28, 0.44, 0.90};

} // namespace

void drawGraph(GaugeSheet &sheet)
{
    QRectF area = sheet.gaugeArea();
    area.setTop(area.bottom() - sheet.pixels(sheet.isWide() ? heightBeside : height));
    drawTrace(sheet.canvas(), area, sheet.content().first.trace, sheet.content().span, Ink::Gauge,
              sheet.content().thresholds);
    sheet.drawTexts(titled, bare);
    sheet.drawMarks();
}

} // namespace gauge
