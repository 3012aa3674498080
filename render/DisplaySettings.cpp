#include "render/DisplaySettings.h"

#include <QJsonValue>

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <utility>

namespace {

using Settings = DisplaySettings;

constexpr double largestNumber = 1e12;

template <typename Number>
struct Range
{
    Number lowest;
    Number highest;
};

constexpr Range<int> sizes{72, 288};
constexpr Range<double> spans{10, 3600};
constexpr Range<int> averages{1, 60};
constexpr Range<int> decimalCounts{0, 3};

std::optional<double> numberFrom(const QJsonValue &value)
{
    const double number = value.toDouble();
    // Written so that it is false for what is not a number.
    const bool isUsable = value.isDouble() && std::abs(number) <= largestNumber;
    return isUsable ? std::optional(number) : std::nullopt;
}

template <typename Number>
std::optional<Number> numberFrom(const QJsonValue &value, const Range<Number> &range)
{
    const std::optional<double> number = numberFrom(value);
    if (!number)
        return std::nullopt;
    return static_cast<Number>(
        std::clamp(*number, static_cast<double>(range.lowest), static_cast<double>(range.highest)));
}

template <typename Choice>
using Words = std::initializer_list<std::pair<const char *, Choice>>;

template <typename Choice>
std::optional<Choice> wordFrom(const QJsonValue &value, Words<Choice> words)
{
    const QString text = value.toString();
    const auto *const word = std::find_if(words.begin(), words.end(), [&text](const auto &each) {
        return text == QLatin1String(each.first);
    });
    return word == words.end() ? std::nullopt : std::optional(word->second);
}

QColor colorFrom(const QJsonValue &value, const QColor &fallback)
{
    const QString name = value.toString();
    return QColor::isValidColor(name) ? QColor(name) : fallback;
}

Settings::Style styleFrom(const QJsonValue &value)
{
    return wordFrom<Settings::Style>(value, {{"bar", Settings::Style::Bar},
                                             {"ring", Settings::Style::Ring},
                                             {"graph", Settings::Style::Graph},
                                             {"pair", Settings::Style::Pair}})
        .value_or(Settings::Style::Text);
}

} // namespace

DisplaySettings parseDisplaySettings(const QJsonObject &display)
{
    const auto member = [&display](const char *name) { return display.value(QLatin1String(name)); };
    Settings result;
    result.style = styleFrom(member("style"));
    result.size = numberFrom(member("size"), sizes).value_or(result.size);
    result.isWide = member("shape") == QLatin1String("wide");
    result.minimum = numberFrom(member("minimum"));
    result.maximum = numberFrom(member("maximum"));
    result.warning = numberFrom(member("warning"));
    result.critical = numberFrom(member("critical"));
    result.worse = wordFrom<Settings::Worse>(
        member("worse"), {{"above", Settings::Worse::Above}, {"below", Settings::Worse::Below}});
    result.normalColor = colorFrom(member("normalColor"), result.normalColor);
    result.warningColor = colorFrom(member("warningColor"), result.warningColor);
    result.criticalColor = colorFrom(member("criticalColor"), result.criticalColor);
    result.ground = colorFrom(member("ground"), result.ground);
    result.span = numberFrom(member("span"), spans).value_or(result.span);
    result.average = numberFrom(member("average"), averages).value_or(result.average);
    result.decimals = numberFrom(member("decimals"), decimalCounts);
    result.showsBits = member("rates") == QLatin1String("bits");
    result.showsExtremes = member("press") == QLatin1String("extremes");
    return result;
}
