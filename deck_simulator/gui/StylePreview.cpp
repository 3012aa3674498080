#include "deck_simulator/gui/StylePreview.h"

#include <QPainter>
#include <QPainterPath>

#include <tuple>

namespace deck {

namespace {

const QColor keyColor(0x08, 0x08, 0x0a);
const QColor keyEdgeColor(0x4a, 0x4c, 0x52);
const QColor upColor(0xcc, 0x79, 0xa7);

constexpr qreal shown = 0.62; // of the scale
constexpr qreal trackOpacity = 0.25;

// The course of a graph: how far above its lower edge, from left to right.
constexpr qreal course[] = {0.25, 0.35, 0.3, 0.55, 0.45, 0.8, 0.7, 0.95};

QColor faded(QColor color, qreal opacity)
{
    color.setAlphaF(static_cast<decltype(color.alphaF())>(opacity));
    return color;
}

void paintValue(QPainter &painter, const QRectF &rect, const QColor &color, qreal height)
{
    QFont font;
    font.setBold(true);
    font.setPixelSize(qMax(6, qRound(height)));
    painter.setFont(font);
    painter.setPen(color);
    painter.drawText(rect, Qt::AlignCenter, QStringLiteral("62"));
}

void paintText(QPainter &painter, const QRectF &key, const PreviewLook &look)
{
    QFont font;
    font.setBold(true);
    font.setPixelSize(qMax(6, qRound(key.height() * 0.26)));
    painter.setFont(font);
    painter.setPen(look.text);
    painter.drawText(key, Qt::AlignCenter, QStringLiteral("62%"));
}

void paintBar(QPainter &painter, const QRectF &rect, const PreviewLook &look, qreal height)
{
    QRectF track(rect.left() + rect.width() * 0.1, rect.center().y() - height / 2,
                 rect.width() * 0.8, height);
    painter.setPen(Qt::NoPen);
    painter.setBrush(faded(look.text, trackOpacity));
    painter.drawRoundedRect(track, height / 2, height / 2);
    track.setWidth(track.width() * shown);
    painter.setBrush(look.gauge);
    painter.drawRoundedRect(track, height / 2, height / 2);
}

// Open at the bottom; angles in sixteenths of a degree, from the lower left end clockwise.
void paintRing(QPainter &painter, const QRectF &rect, const PreviewLook &look)
{
    const qreal side = qMin(rect.width(), rect.height());
    QRectF ring(0, 0, side * 0.74, side * 0.74);
    ring.moveCenter(rect.center());
    const int start = 225 * 16;
    const int whole = -270 * 16;
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(faded(look.text, trackOpacity), side * 0.1, Qt::SolidLine, Qt::RoundCap));
    painter.drawArc(ring, start, whole);
    painter.setPen(QPen(look.gauge, side * 0.1, Qt::SolidLine, Qt::RoundCap));
    painter.drawArc(ring, start, qRound(whole * shown));
}

void paintGraph(QPainter &painter, const QRectF &rect, const QColor &color)
{
    const int last = int(std::size(course)) - 1;
    QPolygonF line;
    for (int index = 0; index <= last; ++index)
        line.append({rect.left() + rect.width() * index / last,
                     rect.bottom() - rect.height() * course[index]});
    QPolygonF area = line;
    area << rect.bottomRight() << rect.bottomLeft();
    painter.setPen(Qt::NoPen);
    painter.setBrush(faded(color, 0.35));
    painter.drawPolygon(area);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(color, qMax(1.0, rect.width() / 30)));
    painter.drawPolyline(line);
}

void paintHalf(QPainter &painter, const QRectF &half, const PreviewLook &look, bool up)
{
    const qreal unit = half.height();
    const qreal direction = up ? -1 : 1;
    const QPointF tip(half.left() + half.width() * 0.2, half.top() + unit * (up ? 0.15 : 0.45));
    const qreal wing = direction * unit * 0.12;
    painter.setPen(QPen(look.text, qMax(1.0, unit / 14)));
    painter.drawLine(tip, tip - QPointF(0, direction * unit * 0.3));
    painter.drawLine(tip, tip + QPointF(wing, -wing));
    painter.drawLine(tip, tip + QPointF(-wing, -wing));
    QFont font;
    font.setBold(true);
    font.setPixelSize(qMax(6, qRound(unit * 0.4)));
    painter.setFont(font);
    painter.drawText(QRectF(half.left(), half.top(), half.width() * 0.88, unit * 0.6),
                     Qt::AlignRight | Qt::AlignVCenter,
                     up ? QStringLiteral("12") : QStringLiteral("62"));
    paintGraph(painter, half.adjusted(0, unit * 0.62, 0, 0), up ? upColor : look.gauge);
}

void paintPair(QPainter &painter, const QRectF &key, const PreviewLook &look)
{
    QRectF up = key;
    QRectF down = key;
    up.setBottom(key.center().y());
    down.setTop(key.center().y());
    if (look.wide) {
        up = key.adjusted(0, key.height() * 0.2, -key.width() / 2, 0);
        down = up.translated(key.width() / 2, 0);
    }
    paintHalf(painter, up, look, true);
    paintHalf(painter, down, look, false);
}

// The value on the left and the gauge on the right, or the value above the gauge.
void paintGauge(QPainter &painter, const QString &style, const QRectF &key, const PreviewLook &look)
{
    const qreal height = key.height();
    QRectF value = key.adjusted(0, 0, look.wide ? -key.width() / 2 : 0, 0);
    QRectF gauge = key.adjusted(look.wide ? key.width() / 2 : 0, 0, 0, 0);
    const bool above = !look.wide && style != QLatin1String("ring");
    if (above)
        value.setBottom(key.top() + height * 0.6);
    paintValue(painter, value, look.text, height * (style == QLatin1String("ring") ? 0.3 : 0.4));
    if (style == QLatin1String("ring")) {
        paintRing(painter, gauge, look);
    } else if (style == QLatin1String("bar")) {
        gauge.setTop(above ? key.top() + height * 0.6 : key.top());
        paintBar(painter, gauge, look, height * 0.14);
    } else {
        gauge.setTop(key.top() + height * (above ? 0.55 : 0.3));
        paintGraph(painter, gauge, look.gauge);
    }
}

} // namespace

bool operator==(const PreviewLook &left, const PreviewLook &right)
{
    return std::tie(left.text, left.gauge, left.ground, left.wide) ==
           std::tie(right.text, right.gauge, right.ground, right.wide);
}

QPixmap stylePreview(const QString &style, const PreviewLook &look, int side, qreal ratio)
{
    QPixmap pixmap(QSize(side, side) * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    const bool text = style == QLatin1String("text");
    QRectF key(0.5, 0.5, side - 1, side - 1);
    if (look.wide && !text)
        key.adjust(0, side / 4.0, 0, -side / 4.0);
    const qreal radius = side / 8.0;
    QPainterPath glass;
    glass.addRoundedRect(key, radius, radius);
    painter.fillPath(glass, look.ground.isValid() && !text ? look.ground : keyColor);
    painter.setClipPath(glass);
    if (text)
        paintText(painter, key, look);
    else if (style == QLatin1String("pair"))
        paintPair(painter, key, look);
    else
        paintGauge(painter, style, key, look);
    painter.setClipping(false);
    painter.strokePath(glass, QPen(keyEdgeColor, 1));
    return pixmap;
}

} // namespace deck
