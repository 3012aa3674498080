#include "deck_simulator/deck/DisplaySettings.h"

#include <QStringList>

#include <cmath>
#include <tuple>

namespace deck {

namespace {

constexpr int longestColor = 64; // letters
constexpr double largestNumber = 1e12;

auto members(const DisplaySettings &display)
{
    return std::tie(display.style, display.shape, display.size, display.minimum, display.maximum,
                    display.warning, display.critical, display.worse, display.normalColor,
                    display.warningColor, display.criticalColor, display.ground, display.span,
                    display.average, display.decimals, display.rates, display.press);
}

void take(const QJsonObject &object, const char *name, const QStringList &known, QString &text)
{
    const QString value = object.value(QLatin1String(name)).toString();
    if (known.contains(value))
        text = value;
}

void take(const QJsonObject &object, const char *name, std::optional<double> &number)
{
    const QJsonValue value = object.value(QLatin1String(name));
    if (value.isDouble() && std::abs(value.toDouble()) <= largestNumber)
        number = value.toDouble();
}

void takeWithin(const QJsonObject &object, const char *name, int &number, int least, int greatest)
{
    std::optional<double> value;
    take(object, name, value);
    if (value)
        number = int(qBound(double(least), *value, double(greatest)));
}

void takeColor(const QJsonObject &object, const char *name, QString &color)
{
    const QString value = object.value(QLatin1String(name)).toString();
    if (value.size() <= longestColor)
        color = value;
}

template <typename Value>
void insertIfOther(QJsonObject &object, const char *name, const Value &value, const Value &usual)
{
    if (value != usual)
        object.insert(QLatin1String(name), value);
}

template <typename Number>
void insertIfGiven(QJsonObject &object, const char *name, const std::optional<Number> &number)
{
    if (number)
        object.insert(QLatin1String(name), *number);
}

void insertColor(QJsonObject &object, const char *name, const QString &color, const QString &usual)
{
    if (!color.isEmpty() && color.compare(usual, Qt::CaseInsensitive) != 0)
        object.insert(QLatin1String(name), color);
}

} // namespace

bool operator==(const DisplaySettings &left, const DisplaySettings &right)
{
    return members(left) == members(right);
}

bool operator!=(const DisplaySettings &left, const DisplaySettings &right)
{
    return !(left == right);
}

QString usualNormalColor()
{
    return QStringLiteral("#56B4E9");
}

QString usualWarningColor()
{
    return QStringLiteral("#F0E442");
}

QString usualCriticalColor()
{
    return QStringLiteral("#FF7043");
}

QJsonObject displayObject(const DisplaySettings &display)
{
    const DisplaySettings usual;
    QJsonObject object;
    insertIfOther(object, "style", display.style, usual.style);
    insertIfOther(object, "shape", display.shape, usual.shape);
    insertIfOther(object, "size", display.size, usual.size);
    insertIfGiven(object, "minimum", display.minimum);
    insertIfGiven(object, "maximum", display.maximum);
    insertIfGiven(object, "warning", display.warning);
    insertIfGiven(object, "critical", display.critical);
    insertIfOther(object, "worse", display.worse, usual.worse);
    insertColor(object, "normalColor", display.normalColor, usualNormalColor());
    insertColor(object, "warningColor", display.warningColor, usualWarningColor());
    insertColor(object, "criticalColor", display.criticalColor, usualCriticalColor());
    insertColor(object, "ground", display.ground, QString());
    insertIfOther(object, "span", display.span, usual.span);
    insertIfOther(object, "average", display.average, usual.average);
    insertIfGiven(object, "decimals", display.decimals);
    insertIfOther(object, "rates", display.rates, usual.rates);
    insertIfOther(object, "press", display.press, usual.press);
    return object;
}

DisplaySettings displayFrom(const QJsonObject &object)
{
    DisplaySettings display;
    take(object, "style",
         {QStringLiteral("bar"), QStringLiteral("ring"), QStringLiteral("graph"),
          QStringLiteral("pair")},
         display.style);
    take(object, "shape", {QStringLiteral("wide")}, display.shape);
    takeWithin(object, "size", display.size, DisplaySettings::smallestSize,
               DisplaySettings::largestSize);
    take(object, "minimum", display.minimum);
    take(object, "maximum", display.maximum);
    take(object, "warning", display.warning);
    take(object, "critical", display.critical);
    take(object, "worse", {QStringLiteral("above"), QStringLiteral("below")}, display.worse);
    takeColor(object, "normalColor", display.normalColor);
    takeColor(object, "warningColor", display.warningColor);
    takeColor(object, "criticalColor", display.criticalColor);
    takeColor(object, "ground", display.ground);
    takeWithin(object, "span", display.span, DisplaySettings::shortestSpan,
               DisplaySettings::longestSpan);
    takeWithin(object, "average", display.average, 1, DisplaySettings::longestAverage);
    int decimals = -1;
    takeWithin(object, "decimals", decimals, 0, DisplaySettings::mostDecimals);
    if (decimals >= 0)
        display.decimals = decimals;
    take(object, "rates", {QStringLiteral("bits")}, display.rates);
    take(object, "press", {QStringLiteral("extremes")}, display.press);
    return display;
}

bool isGaugePicture(const QSize &picture, const DisplaySettings &display)
{
    const bool square = picture.width() == picture.height();
    const bool wide = picture.width() == 2 * picture.height();
    return display.isGauge() && !picture.isEmpty() && (square || wide);
}

} // namespace deck
