#include "render/Gauge.h"

#include "render/gauges/GaugeSheet.h"
#include "render/gauges/GaugeStyles.h"

namespace {

/// The longest side of a gauge, in pixels.
constexpr int largestGauge = 1024;

gauge::StylePainter painterOf(gauge::Style style)
{
    switch (style) {
    case gauge::Style::Bar:
        return gauge::drawBar;
    case gauge::Style::Ring:
        return gauge::drawRing;
    case gauge::Style::Graph:
        return gauge::drawGraph;
    case gauge::Style::Pair:
        break;
    }
    return gauge::drawPair;
}

} // namespace

QImage paintGauge(const gauge::Content &content, const gauge::Look &look)
{
    if (look.size.isEmpty() || look.size.width() > largestGauge ||
        look.size.height() > largestGauge)
        return {};
    gauge::GaugeSheet sheet(content, look);
    painterOf(content.style)(sheet);
    return sheet.finished();
}
