#include "render/gauges/GaugeSheet.h"
#include "render/gauges/GaugeStyles.h"
#include "render/gauges/TraceCurve.h"

#include <QPen>
#include <QPolygonF>

#include <algorithm>

namespace gauge {

namespace {

/// Of the graph below each rate.
constexpr qreal height = 0.22;
constexpr qreal margin = 0.05;
constexpr qreal valueSize = 0.21;
constexpr qreal arrowHeight = 0.15;
constexpr qreal arrowWidth = 0.11;
constexpr qreal arrowLine = 1.0 / 40;
constexpr qreal arrowGap = 0.03;
/// Of the value's size: half of these letters cannot be read.
constexpr qreal unitShare = 0.66;

struct Row
{
    const Reading *reading;
    Ink ink;
    bool isUpload;
    QRectF text;  ///< Of arrow and rate.
    QRectF graph; ///< In whole pixels.
};

Row rowOf(const GaugeSheet &sheet, bool isUpload)
{
    const QRectF area = sheet.gaugeArea();
    const qreal bottom = isUpload ? qRound(area.height() / 2) : area.bottom();
    const qreal top = isUpload ? area.top() : qRound(area.height() / 2);
    const qreal graphTop = sheet.isWide() ? top : bottom - sheet.pixels(height);
    const QRectF texts = sheet.textArea();
    const qreal inset = sheet.length(margin);
    return {isUpload ? &sheet.content().first : &sheet.content().second,
            isUpload ? Ink::Gauge : Ink::Second, isUpload,
            QRectF(QPointF(texts.left() + inset, top),
                   QPointF(texts.right() - inset, sheet.isWide() ? bottom : graphTop)),
            QRectF(QPointF(area.left(), graphTop), QPointF(area.right(), bottom))};
}

void drawArrow(GaugeSheet &sheet, const Row &row)
{
    const QSizeF size(sheet.length(arrowWidth), sheet.length(arrowHeight));
    const qreal x = row.text.left() + size.width() / 2;
    const qreal sign = row.isUpload ? 1 : -1;
    const qreal tip = row.text.center().y() - sign * size.height() / 2;
    const qreal end = tip + sign * size.height();
    const qreal wing = size.width() / 2;
    QPainter &painter = sheet.painter();
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(sheet.canvas().colorOf(row.ink),
                        std::max<qreal>(1, sheet.length(arrowLine)), Qt::SolidLine, Qt::RoundCap,
                        Qt::RoundJoin));
    painter.drawLine(QPointF(x, end), QPointF(x, tip));
    painter.drawPolyline(
        QPolygonF({{x - wing, tip + sign * wing}, {x, tip}, {x + wing, tip + sign * wing}}));
}

} // namespace

void drawPair(GaugeSheet &sheet)
{
    const std::array<Row, 2> rows{rowOf(sheet, true), rowOf(sheet, false)};
    const auto roomOf = [&sheet](const Row &row) {
        const qreal arrow = sheet.length(arrowWidth + arrowGap);
        return ValueRoom{row.text.adjusted(arrow, 0, 0, 0), sheet.length(valueSize), unitShare};
    };
    int size = sheet.pixels(valueSize);
    for (const Row &row : rows)
        size = std::min(size, sheet.valueSize(*row.reading, roomOf(row)));
    for (const Row &row : rows) {
        drawTrace(sheet.canvas(), row.graph, row.reading->trace, sheet.content().span, row.ink,
                  sheet.content().thresholds);
        drawArrow(sheet, row);
        sheet.drawValue(*row.reading, roomOf(row), size, Qt::AlignRight);
    }
    sheet.drawMarks();
}

} // namespace gauge
