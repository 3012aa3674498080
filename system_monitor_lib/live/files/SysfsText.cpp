#include "system_monitor_lib/live/files/SysfsText.h"

#include "system_monitor_lib/live/files/TextFields.h"

#include <charconv>

namespace {

std::string_view withoutLineEnd(std::string_view text)
{
    const std::size_t end = text.find('\n');
    return trimmed(text.substr(0, end));
}

} // namespace

std::optional<qint64> parseInteger(std::string_view text)
{
    std::string_view field = withoutLineEnd(text);
    const bool negative = !field.empty() && field.front() == '-';
    if (negative)
        field.remove_prefix(1);
    if (field.empty() || field.find_first_of(" \t") != std::string_view::npos)
        return std::nullopt;
    const std::optional<quint64> number = takeNumber(field);
    if (!number)
        return std::nullopt;
    const auto magnitude = static_cast<qint64>(*number);
    return negative ? -magnitude : magnitude;
}

QString parseWord(std::string_view text)
{
    const std::string_view word = withoutLineEnd(text);
    return QString::fromUtf8(word.data(), static_cast<int>(word.size())).simplified();
}

bool meansAsleep(const QString &runtimeStatus)
{
    return runtimeStatus == QLatin1String("suspended") ||
           runtimeStatus == QLatin1String("suspending") ||
           runtimeStatus == QLatin1String("resuming");
}

std::optional<double> parseCelsius(std::string_view text)
{
    const std::optional<qint64> thousandths = parseInteger(text);
    if (!thousandths)
        return std::nullopt;
    const double celsius = static_cast<double>(*thousandths) / 1000;
    return isPlausibleCelsius(celsius) ? std::optional(celsius) : std::nullopt;
}

bool isPlausibleCelsius(double celsius)
{
    constexpr double hottest = 140;
    return celsius >= 0 && celsius <= hottest;
}

QString parseUevent(std::string_view text, std::string_view key)
{
    while (const std::optional<std::string_view> line = takeLine(text)) {
        const std::size_t equals = line->find('=');
        if (equals != std::string_view::npos && line->substr(0, equals) == key)
            return parseWord(line->substr(equals + 1));
    }
    return {};
}

std::optional<int> parseFirstProcessor(std::string_view text)
{
    int number = 0;
    const char *const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || stop == text.data() || number < 0)
        return std::nullopt;
    return number;
}
