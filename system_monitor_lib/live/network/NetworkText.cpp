#include "system_monitor_lib/live/network/NetworkText.h"

#include "system_monitor_lib/live/files/TextFields.h"

std::optional<quint64> parseCounter(std::string_view text)
{
    std::optional<std::string_view> line = takeLine(text);
    if (!line)
        return std::nullopt;
    const std::optional<quint64> number = takeNumber(*line);
    if (!number || !trimmed(*line).empty())
        return std::nullopt;
    return number;
}

double parseLinkSpeed(std::string_view text)
{
    constexpr quint64 fastestPlausible = 10'000'000;
    constexpr double bytesPerMegabit = 1'000'000.0 / 8;
    const std::optional<quint64> megabits = parseCounter(text);
    if (!megabits || *megabits > fastestPlausible)
        return 0;
    return static_cast<double>(*megabits) * bytesPerMegabit;
}
