#include "render/gauges/GaugeSheet.h"

#include "render/gauges/GaugeText.h"

#include <QFontMetricsF>
#include <QPen>
#include <QPolygonF>

#include <algorithm>
#include <cmath>

namespace gauge {

namespace {

/// More characters than these cannot be read on a key.
constexpr int longestValue = 16;
constexpr int longestUnit = 8;
constexpr int longestTitle = 64;

/// Shares of the side.
constexpr qreal titleSize = 0.15;
constexpr qreal leastTitleSize = 0.10;
/// In pixels: smaller letters cannot be read, so that fewer of them tell more.
constexpr int leastLegible = 9;
constexpr qreal titleMargin = 0.05;
constexpr qreal markSize = 0.135;
constexpr qreal markMargin = 0.04;
constexpr qreal markGap = 0.025;

/// On a wide sheet.
constexpr TextPlaces titledBeside{0.26, 0.60, 0.38, 0.90};
constexpr TextPlaces bareBeside{0, 0.50, 0.44, 0.90};

/// Of a value above its unit: how far it is raised, its size at most, the unit's size, and the
/// unit's base line below the value's middle.
constexpr qreal stackedRise = 0.05;
constexpr qreal stackedSize = 0.30;
constexpr qreal stackedUnitSize = 0.13;
constexpr qreal stackedUnitBase = 0.24;

/// Shares of the value's size.
constexpr qreal halfTheValue = 0.5;
constexpr qreal unitGap = 0.07;

constexpr qreal titleStrength = 0.75;
constexpr qreal unitStrength = 0.8;

bool isWideSize(const QSize &size)
{
    return size.width() >= 2 * size.height();
}

QRectF half(const QSize &size, bool right)
{
    const qreal width = isWideSize(size) ? size.width() / 2.0 : size.width();
    return {right && isWideSize(size) ? width : 0.0, 0.0, width, qreal(size.height())};
}

std::array<QColor, inks> colorsOf(const Content &content, const Look &look)
{
    // Of the palette by Okabe and Ito, like the others.
    const QColor upload(0xCC, 0x79, 0xA7);
    const bool isPair = content.style == Style::Pair;
    switch (content.level) {
    case Level::Normal:
        return {look.color, isPair ? upload : look.normal, look.normal};
    case Level::Warning:
        return {look.color, look.warning, look.warning};
    case Level::Critical:
        break;
    }
    return {look.color, look.critical, look.critical};
}

/// \a value with its digits alike, as they are in width.
QString shapeOf(const QString &value)
{
    QString shape = value.left(longestValue);
    std::replace_if(
        shape.begin(), shape.end(),
        [](QChar each) { return each >= QLatin1Char('0') && each <= QLatin1Char('9'); },
        QLatin1Char('0'));
    return shape;
}

/// A value and its unit in fonts of one size.
class ValueTexts
{
public:
    ValueTexts(const QString &value, const QString &unit, const Look &look, int size,
               qreal unitShare)
        : m_font(fontOf(look.font, QFont::Bold, size))
        , m_value(limited(value, longestValue), m_font)
        , m_unit(limited(unit, longestUnit),
                 fontOf(look.font, QFont::Bold, qRound(size * unitShare)))
        , m_gap(unit.isEmpty() ? 0 : size * unitGap)
    {
    }

    [[nodiscard]] qreal width() const { return m_value.width() + m_gap + m_unit.width(); }
    /// That with another value.
    [[nodiscard]] qreal widthWith(const QString &value) const
    {
        return DigitLine(limited(value, longestValue), m_font).width() + m_gap + m_unit.width();
    }

    /// \a middle is that of a capital letter's height.
    void draw(InkCanvas &canvas, qreal left, qreal middle) const
    {
        const QPointF start(qRound(left), qRound(middle + capHeight(m_font) / 2));
        canvas.painter().setPen(canvas.colorOf(Ink::Letters));
        m_value.draw(canvas.painter(), start);
        canvas.painter().setPen(canvas.colorOf(Ink::Letters, unitStrength));
        m_unit.draw(canvas.painter(), start + QPointF(m_value.width() + m_gap, 0));
    }

private:
    QFont m_font;
    DigitLine m_value;
    PlainLine m_unit;
    qreal m_gap;
};

} // namespace

GaugeSheet::GaugeSheet(const Content &content, const Look &look)
    : m_content(content)
    , m_look(look)
    , m_canvas(look.size, colorsOf(content, look))
    , m_textArea(half(look.size, false))
    , m_gaugeArea(half(look.size, true))
    , m_side(std::min(m_textArea.width(), m_textArea.height()))
{
}

qreal GaugeSheet::share() const
{
    // Also 0 for what is no number.
    const double share = m_content.first.share.value_or(0);
    return share > 0 ? std::min(share, 1.0) : 0;
}

int GaugeSheet::pixels(qreal share) const
{
    return std::max(1, qRound(length(share)));
}

void GaugeSheet::drawTexts(const TextPlaces &titled, const TextPlaces &bare)
{
    const bool hasTitle = !m_content.title.isEmpty();
    const TextPlaces &places =
        isWide() ? (hasTitle ? titledBeside : bareBeside) : (hasTitle ? titled : bare);
    if (hasTitle)
        drawTitle(places.titleBase);
    const qreal width = length(places.valueWidth);
    const qreal height = length(places.valueSize);
    const ValueRoom room{{m_textArea.center().x() - width / 2,
                          length(places.valueCentre) - height / 2, width, height},
                         height,
                         halfTheValue};
    const Reading &reading = m_content.first;
    const int size = valueSize(reading, room);
    if (!reading.unit.isEmpty() && size < length(places.stackedBelow))
        drawStacked(reading, room);
    else
        drawValue(reading, room, size, Qt::AlignHCenter);
}

void GaugeSheet::drawStacked(const Reading &reading, ValueRoom room)
{
    room.area.translate(0, -length(stackedRise));
    room.largest = length(stackedSize);
    Reading bare = reading;
    bare.unit.clear();
    drawValue(bare, room, valueSize(bare, room), Qt::AlignHCenter);

    const PlainLine unit(limited(reading.unit, longestUnit),
                         fontOf(m_look.font, QFont::Bold, pixels(stackedUnitSize)));
    painter().setPen(m_canvas.colorOf(Ink::Letters, unitStrength));
    unit.draw(painter(), QPointF(qRound(room.area.center().x() - unit.width() / 2),
                                 qRound(room.area.center().y() + length(stackedUnitBase))));
}

void GaugeSheet::drawTitle(qreal base)
{
    const bool isAtTop = base < 1.0 / 2;
    const qreal margin = length(titleMargin);
    const qreal left = m_textArea.left() + std::max(margin, isAtTop ? leftMarkRoom() : 0);
    const qreal right =
        m_textArea.right() - std::max(margin, isAtTop && !isWide() ? rightMarkRoom() : 0);
    QString title = limited(m_content.title, longestTitle);
    QFont font = fontOf(m_look.font, QFont::Medium, pixels(titleSize));
    qreal width = PlainLine(title, font).width();
    if (width > right - left) {
        const auto fitting = static_cast<int>(font.pixelSize() * (right - left) / width);
        font.setPixelSize(std::max({fitting, pixels(leastTitleSize), leastLegible}));
        title = QFontMetricsF(font).elidedText(title, Qt::ElideRight, right - left);
        width = PlainLine(title, font).width();
    }
    const qreal centred = m_textArea.center().x() - width / 2;
    const qreal start = std::max(left, std::min(centred, right - width));
    painter().setPen(m_canvas.colorOf(Ink::Letters, titleStrength));
    PlainLine(title, font).draw(painter(), QPointF(qRound(start), qRound(length(base))));
}

int GaugeSheet::valueSize(const Reading &reading, const ValueRoom &room) const
{
    const bool isWidest = shapeOf(reading.value) == shapeOf(reading.widest);
    const auto widthAt = [&](int size) {
        const ValueTexts texts(reading.value, reading.unit, m_look, size, room.unit);
        return isWidest ? texts.width() : std::max(texts.width(), texts.widthWith(reading.widest));
    };
    int size = std::max(1, static_cast<int>(room.largest));
    qreal width = widthAt(size);
    if (width > room.area.width()) {
        size = std::max(1, static_cast<int>(size * room.area.width() / width));
        // Fonts do not grow in proportion to their sizes.
        while (size > 1 && widthAt(size) > room.area.width())
            --size;
    }
    return size;
}

void GaugeSheet::drawValue(const Reading &reading, const ValueRoom &room, int size,
                           Qt::Alignment alignment)
{
    const ValueTexts texts(reading.value, reading.unit, m_look, size, room.unit);
    const qreal left = alignment & Qt::AlignRight ? room.area.right() - texts.width()
                                                  : room.area.center().x() - texts.width() / 2;
    texts.draw(m_canvas, left, room.area.center().y());
}

qreal GaugeSheet::leftMarkRoom() const
{
    return m_content.extreme == Extreme::None ? 0 : length(markMargin + markSize + markGap);
}

qreal GaugeSheet::rightMarkRoom() const
{
    return m_content.level != Level::Critical ? 0 : length(markMargin + markSize + markGap);
}

void GaugeSheet::drawMarks()
{
    const qreal margin = pixels(markMargin);
    const QSizeF size(length(markSize), length(markSize));
    if (m_content.level == Level::Critical) {
        const QRectF box(QPointF(m_gaugeArea.right() - margin - size.width(), margin), size);
        painter().setPen(Qt::NoPen);
        painter().setBrush(m_canvas.colorOf(Ink::Gauge));
        painter().drawPolygon(
            QPolygonF({{box.center().x(), box.top()}, box.bottomRight(), box.bottomLeft()}));
    }
    if (m_content.extreme != Extreme::None)
        drawExtreme({QPointF(m_textArea.left() + margin, margin), size});
}

void GaugeSheet::drawExtreme(const QRectF &box)
{
    const qreal width = std::max<qreal>(1, length(1.0 / 48));
    const QRectF mark = box.adjusted(width, width, -width, -width);
    painter().setPen(QPen(m_canvas.colorOf(Ink::Letters, titleStrength), width, Qt::SolidLine,
                          Qt::RoundCap, Qt::RoundJoin));
    painter().setBrush(Qt::NoBrush);
    if (m_content.extreme == Extreme::Mean) {
        const qreal inset = mark.width() / 8;
        painter().drawEllipse(mark.adjusted(inset, inset, -inset, -inset));
        painter().drawLine(mark.bottomLeft(), mark.topRight());
        return;
    }
    // An arrow up to a line, or down to one.
    const bool isMost = m_content.extreme == Extreme::Maximum;
    const qreal line = isMost ? mark.top() : mark.bottom();
    const qreal end = isMost ? mark.bottom() : mark.top();
    const qreal tip = line + (end - line) / 4;
    const qreal wing = mark.width() / 3;
    const qreal wingEnd = tip + (isMost ? wing : -wing);
    const qreal x = mark.center().x();
    painter().drawLine(QPointF(mark.left(), line), QPointF(mark.right(), line));
    painter().drawLine(QPointF(x, end), QPointF(x, tip));
    painter().drawPolyline(QPolygonF({{x - wing, wingEnd}, {x, tip}, {x + wing, wingEnd}}));
}

QImage GaugeSheet::finished()
{
    const qreal opacity = m_look.opacity;
    return m_canvas.finished(m_look.ground, std::isnan(opacity) ? 1 : qBound(0.0, opacity, 1.0));
}

} // namespace gauge
