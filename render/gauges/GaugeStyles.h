#pragma once

namespace gauge {

class GaugeSheet;

/// Draws one style on a sheet.
using StylePainter = void (*)(GaugeSheet &sheet);

void drawBar(GaugeSheet &sheet);
void drawRing(GaugeSheet &sheet);
void drawGraph(GaugeSheet &sheet);
void drawPair(GaugeSheet &sheet);

} // namespace gauge
