#include "plugin/GaugeView.h"

#include "render/ActionCatalogue.h"
#include "render/normalAction.h"

#include <algorithm>
#include <cmath>

namespace {

using Style = DisplaySettings::Style;

/// How far a value has to come back over a threshold, as a share of the scale.
constexpr double slack = 0.02;

gauge::Style paintedStyle(Style style)
{
    switch (style) {
    case Style::Ring:
        return gauge::Style::Ring;
    case Style::Graph:
        return gauge::Style::Graph;
    case Style::Pair:
        return gauge::Style::Pair;
    case Style::Bar:
    case Style::Text:
        break;
    }
    return gauge::Style::Bar;
}

bool hasTrace(Style style)
{
    return style == Style::Graph || style == Style::Pair;
}

} // namespace

GaugeView::GaugeView(const normalAction &key, const GaugeSource &source, const GaugeRecord &record,
                     qint64 now)
    : m_key(key)
    , m_kind(*source.kind)
    , m_record(record)
    , m_now(now)
    , m_readings{m_kind.value(source.selection),
                 m_kind.isPair() ? m_kind.second(source.selection) : Reading<double>()}
    , m_style(styleOf(key.display, source.kind))
    , m_range(range())
{
}

Style GaugeView::styleOf(const DisplaySettings &display, const GaugeKind *kind)
{
    if (!kind || display.style == Style::Text)
        return Style::Text;
    if (kind->isPair())
        return Style::Pair;
    return display.style == Style::Pair ? Style::Text : display.style;
}

gauge::Level GaugeView::level(gauge::Level before) const
{
    const Thresholds limits = thresholds();
    std::optional<double> worst = present(0);
    const std::optional<double> second = m_kind.isPair() ? present(1) : std::nullopt;
    if (worst && second)
        worst = limits.isWorseAbove ? std::max(*worst, *second) : std::min(*worst, *second);
    else if (second)
        worst = second;
    return worst ? levelOf(*worst, limits, slack * m_range.length(), before) : gauge::Level::Normal;
}

gauge::Content GaugeView::content(KeyGaugeState &state) const
{
    gauge::Content content;
    content.style = paintedStyle(m_style);
    content.title = title();
    content.first = reading(0, state);
    if (m_kind.isPair())
        content.second = reading(1, state);
    content.level = state.level;
    content.extreme = state.turn.shown();
    content.span = m_key.display.span;
    content.thresholds = thresholdShares();
    return content;
}

gauge::Look GaugeView::lookOf(const normalAction &key)
{
    const DisplaySettings &display = key.display;
    // Letters of an unknown colour are black, as in a text.
    const QColor color(key.color);
    gauge::Look look;
    look.size = {display.isWide ? 2 * display.size : display.size, display.size};
    look.font = key.font;
    look.color = color.isValid() ? color : QColor(Qt::black);
    look.normal = display.normalColor;
    look.warning = display.warningColor;
    look.critical = display.criticalColor;
    look.ground = display.ground;
    look.opacity = std::clamp(1.0 - key.opacity, 0.0, 1.0);
    return look;
}

/// The reading, or the mean that the key shows in its place; nothing where it is missing.
std::optional<double> GaugeView::present(std::size_t direction) const
{
    const Reading<double> &reading = m_readings.at(direction);
    if (reading.isMissing || !std::isfinite(reading.value))
        return std::nullopt;
    const int average = m_style == Style::Text ? 1 : m_key.display.average;
    if (average == 1)
        return reading.value;
    return m_record.directions.at(direction).series.mean(average, m_now).value_or(reading.value);
}

gauge::Reading GaugeView::reading(std::size_t direction, KeyGaugeState &state) const
{
    const gauge::Extreme extreme = state.turn.shown();
    const std::optional<double> number =
        extreme == gauge::Extreme::None
            ? present(direction)
            : m_record.directions.at(direction).extremes.valueOf(extreme);
    const bool isMean = extreme == gauge::Extreme::Mean ||
                        (extreme == gauge::Extreme::None && m_key.display.average > 1);
    const NumberText text =
        number ? textOf(*number, m_readings.at(direction), isMean) : missingNumber();
    gauge::Reading reading;
    reading.value = text.value;
    reading.unit = text.unit;
    reading.widest = state.widest.at(direction).with(text.value, m_now);
    if (number)
        reading.share = m_range.shareOf(*number);
    reading.trace = trace(direction);
    return reading;
}

gauge::Trace GaugeView::trace(std::size_t direction) const
{
    if (!hasTrace(m_style))
        return {};
    return m_record.directions.at(direction).series.trace(m_key.display.span, m_now, m_range);
}

QString GaugeView::title() const
{
    if (!m_key.showTitle)
        return {};
    return isDefaultTitle(m_key.GetAction(), m_key.titleText) ? m_kind.shortTitle(m_key)
                                                              : m_key.titleText;
}

ScaleRange GaugeView::range() const
{
    const std::optional<ScaleRange> own = m_kind.scale ? m_kind.scale() : std::nullopt;
    const SteadyScale &steady = m_key.display.showsBits ? m_record.scaleInBits : m_record.scale;
    return withEnds(own ? *own : steady.range(), inBaseUnits(m_key.display.minimum),
                    inBaseUnits(m_key.display.maximum));
}

Thresholds GaugeView::thresholds() const
{
    Thresholds result = m_kind.limits ? m_kind.limits() : Thresholds();
    const DisplaySettings &display = m_key.display;
    if (m_style == Style::Text) {
        result.warning.reset();
        result.critical.reset();
    }
    if (display.warning)
        result.warning = inBaseUnits(display.warning);
    if (display.critical)
        result.critical = inBaseUnits(display.critical);
    if (display.worse)
        result.isWorseAbove = *display.worse == DisplaySettings::Worse::Above;
    return result;
}

QVector<double> GaugeView::thresholdShares() const
{
    const Thresholds limits = thresholds();
    QVector<double> shares;
    for (const std::optional<double> &threshold : {limits.warning, limits.critical}) {
        if (threshold && m_range.contains(*threshold))
            shares.append(m_range.shareOf(*threshold));
    }
    return shares;
}

/// Settings are in the unit that the key shows, but rates always in KB/s.
std::optional<double> GaugeView::inBaseUnits(std::optional<double> setting) const
{
    const bool isFahrenheit = m_kind.quantity == Quantity::Temperature && m_key.isFahrenheit();
    return setting && isFahrenheit ? celsius(*setting) : setting;
}

NumberText GaugeView::textOf(double number, const Reading<double> &reading, bool isMean) const
{
    NumberStyle style;
    style.digits = m_kind.digits;
    style.decimals = m_key.display.decimals;
    if (!style.decimals && isMean && style.digits == Digits::General)
        style.decimals = decimalsOf(reading.value);
    style.isFahrenheit = m_key.isFahrenheit();
    style.isInBits = m_key.display.showsBits;
    return numberText(number, m_kind.quantity, reading.units, style, isMean);
}
