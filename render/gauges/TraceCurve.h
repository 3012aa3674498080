#pragma once

#include "render/Gauge.h"
#include "render/gauges/InkCanvas.h"

#include <QPolygonF>
#include <QRectF>
#include <QVector>

namespace gauge {

/// The runs of \a trace as lines within \a area, whose right edge is the present and whose left
/// edge is \a span seconds ago: each from left to right. Where a pixel column holds several
/// samples, the line has one point there, their mean. A run that only holds what lies before the
/// span, or in a column that another run ended in, is left out; so is what is not finite or stands
/// in a wrong order. There are at most as many points as columns, and one for each left end.
QVector<QPolygonF> curvesOf(const Trace &trace, double span, const QRectF &area);

/// Draws a reading's history in \a area with \a ink: the lines, filled below, and \a thresholds,
/// shares of the height, as dotted lines.
void drawTrace(InkCanvas &canvas, const QRectF &area, const Trace &trace, double span, Ink ink,
               const QVector<double> &thresholds);

} // namespace gauge
