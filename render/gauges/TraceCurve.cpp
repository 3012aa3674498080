#include "render/gauges/TraceCurve.h"

#include <QLineF>
#include <QPainter>
#include <QPen>

#include <algorithm>
#include <cmath>
#include <optional>

namespace gauge {

namespace {

constexpr qreal fillStrength = 0.35;
constexpr qreal thresholdStrength = 0.25;

bool isInScale(double share)
{
    return share >= 0 && share <= 1;
}

/// Turns the samples of one run into a line, column by column.
class CurveMaker
{
public:
    explicit CurveMaker(const QRectF &area)
        : m_area(area)
    {
    }

    void beginRun()
    {
        m_curve.clear();
        m_before.reset();
    }

    void add(const QPointF &sample)
    {
        if (sample.x() < m_area.left()) {
            m_before = sample;
            return;
        }
        const int column = columnOf(sample.x());
        if (column == m_column && m_count > 0) {
            m_sum += sample;
            ++m_count;
            return;
        }
        flush();
        if (column <= m_column)
            return;
        if (m_curve.isEmpty() && m_before)
            m_curve.append(enteringBetween(*m_before, sample));
        m_column = column;
        m_sum = sample;
        m_count = 1;
    }

    QPolygonF endRun()
    {
        flush();
        return m_curve;
    }

private:
    /// That of the right edge is the last one.
    [[nodiscard]] int columnOf(qreal x) const
    {
        return static_cast<int>(std::min(x - m_area.left(), m_area.width() - 1));
    }

    [[nodiscard]] QPointF enteringBetween(const QPointF &outside, const QPointF &inside) const
    {
        const qreal part = (m_area.left() - outside.x()) / (inside.x() - outside.x());
        return {m_area.left(), outside.y() + part * (inside.y() - outside.y())};
    }

    void flush()
    {
        if (m_count > 0)
            m_curve.append(m_sum / m_count);
        m_count = 0;
    }

    QRectF m_area;
    QPolygonF m_curve;
    std::optional<QPointF> m_before;
    QPointF m_sum;
    int m_count = 0;
    int m_column = -1; ///< The last one that holds a sample.
};

void fillBelow(QPainter &painter, const QPolygonF &curve, qreal bottom)
{
    QPolygonF shape(curve);
    shape.append({curve.last().x(), bottom});
    shape.append({curve.first().x(), bottom});
    painter.drawPolygon(shape);
}

void drawDot(QPainter &painter, const QPointF &place, qreal radius, const QRectF &area)
{
    const QPointF inside(qBound(area.left() + radius, place.x(), area.right() - radius),
                         qBound(area.top() + radius, place.y(), area.bottom() - radius));
    painter.drawEllipse(inside, radius, radius);
}

/// Dots in whole pixels, which need no antialiasing.
void drawDotted(QPainter &painter, const QRectF &area, double share, int width, const QColor &color)
{
    const int top = qRound(area.bottom() - share * area.height() - width / 2.0);
    const int dot = 2 * width;
    for (int x = qRound(area.left()); x < area.right(); x += 2 * dot)
        painter.fillRect(QRect(x, top, dot, width), color);
}

} // namespace

QVector<QPolygonF> curvesOf(const Trace &trace, double span, const QRectF &area)
{
    const double seconds = span >= 1 ? span : 1;
    QVector<QPolygonF> curves;
    CurveMaker maker(area);
    for (const QVector<Point> &run : trace) {
        maker.beginRun();
        for (const Point &point : run) {
            if (std::isfinite(point.age) && std::isfinite(point.share))
                maker.add({area.right() - std::max(0.0, point.age) / seconds * area.width(),
                           area.bottom() - qBound(0.0, point.share, 1.0) * area.height()});
        }
        const QPolygonF curve = maker.endRun();
        if (!curve.isEmpty())
            curves.append(curve);
    }
    return curves;
}

void drawTrace(InkCanvas &canvas, const QRectF &area, const Trace &trace, double span, Ink ink,
               const QVector<double> &thresholds)
{
    QPainter &painter = canvas.painter();
    const int width = std::max(1, qRound(canvas.size().height() / 72.0));
    // The line at either end of the scale stays inside.
    const QRectF scale = area.adjusted(0, width / 2.0, 0, -width / 2.0);
    const QVector<QPolygonF> curves = curvesOf(trace, span, scale);

    painter.setPen(Qt::NoPen);
    painter.setBrush(canvas.colorOf(ink, fillStrength));
    for (const QPolygonF &curve : curves)
        fillBelow(painter, curve, area.bottom());
    for (const double threshold : thresholds) {
        if (isInScale(threshold))
            drawDotted(painter, scale, threshold, width,
                       canvas.colorOf(Ink::Letters, thresholdStrength));
    }
    painter.setBrush(canvas.colorOf(ink));
    for (const QPolygonF &curve : curves) {
        if (curve.size() == 1)
            drawDot(painter, curve.first(), width, area);
    }
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(canvas.colorOf(ink), width, Qt::SolidLine, Qt::FlatCap, Qt::BevelJoin));
    for (const QPolygonF &curve : curves)
        painter.drawPolyline(curve);
}

} // namespace gauge
