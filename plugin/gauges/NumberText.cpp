#include "plugin/gauges/NumberText.h"

#include "plugin/gauges/RoundNumber.h"
#include "sensors/readings/NetworkReadings.h"
#include "values/ReadingText.h"
#include "values/WholeNumber.h"

#include <array>

namespace {

constexpr double degreesEach = 1.8;
constexpr double freezingPoint = 32;

QString digitsOf(double number, const NumberStyle &style, bool isMean)
{
    if (style.decimals)
        return readingtext::fixed(number, *style.decimals, QString());
    switch (style.digits) {
    case Digits::One:
        return readingtext::fixed(number, 1, QString());
    case Digits::Three:
        return readingtext::fixed(number, 3, QString());
    case Digits::General:
        return readingtext::general(number, QString());
    case Digits::Whole:
        break;
    }
    return isMean ? readingtext::fixed(number, 0, QString())
                  : readingtext::integer(wholenumber::truncated(number));
}

/// In the largest unit of which there is at least one, as it is shown.
NumberText bitsText(double kilobytes, const NumberStyle &style)
{
    constexpr double step = 1000;
    static const std::array<QString, 3> units{QStringLiteral("kbit/s"), QStringLiteral("Mbit/s"),
                                              QStringLiteral("Gbit/s")};
    double number = kilobytes / kilobytesPerKilobit;
    std::size_t unit = 0;
    while (unit + 1 < units.size() && digitsOf(number, style, false).toDouble() >= step) {
        number /= step;
        ++unit;
    }
    return {digitsOf(number, style, false), units[unit]};
}

NumberText rateText(double kilobytes, const NumberStyle &style)
{
    if (style.isInBits)
        return bitsText(kilobytes, style);
    const Reading<double> scaled = scaledRate(kilobytes);
    return {digitsOf(scaled.value, style, false), scaled.units};
}

} // namespace

double fahrenheit(double celsius)
{
    return celsius * degreesEach + freezingPoint;
}

double celsius(double fahrenheit)
{
    return (fahrenheit - freezingPoint) / degreesEach;
}

int decimalsOf(double number)
{
    const QString text = readingtext::general(number, QString());
    const auto point = text.indexOf(QLatin1Char('.'));
    const bool isWhole = point < 0 || text.contains(QLatin1Char('e'));
    return isWhole ? 0 : static_cast<int>(text.size() - point) - 1;
}

NumberText missingNumber()
{
    return {QStringLiteral("–"), QString()};
}

NumberText numberText(double number, Quantity quantity, const QString &units,
                      const NumberStyle &style, bool isMean)
{
    switch (quantity) {
    case Quantity::Temperature:
        return style.isFahrenheit
                   ? NumberText{digitsOf(fahrenheit(number), style, isMean), QStringLiteral("°F")}
                   : NumberText{digitsOf(number, style, isMean), QStringLiteral("°C")};
    case Quantity::Rate:
        return rateText(number, style);
    case Quantity::Plain:
        break;
    }
    return {digitsOf(number, style, isMean), units};
}
