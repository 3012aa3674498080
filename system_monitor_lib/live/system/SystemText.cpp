#include "system_monitor_lib/live/system/SystemText.h"

#include "system_monitor_lib/live/files/SysfsText.h"
#include "system_monitor_lib/live/files/TextFields.h"

#include <QByteArray>

#include <cmath>

namespace {

/// Removes the first word, a number of at least 0, from the front of \a line.
std::optional<double> takeDecimal(std::string_view &line)
{
    constexpr std::size_t longest = 32;
    line = trimmed(line);
    const std::string_view word = line.substr(0, line.find_first_of(" \t"));
    line.remove_prefix(word.size());
    if (word.size() > longest)
        return std::nullopt;
    bool isNumber = false;
    const double number =
        QByteArray(word.data(), static_cast<int>(word.size())).toDouble(&isNumber);
    return isNumber && std::isfinite(number) && number >= 0 ? std::optional(number) : std::nullopt;
}

} // namespace

std::optional<double> parseUptime(std::string_view text)
{
    std::optional<std::string_view> line = takeLine(text);
    return line ? takeDecimal(*line) : std::nullopt;
}

void parseLoadAverages(std::string_view text, SystemState &state)
{
    std::optional<std::string_view> line = takeLine(text);
    for (auto *const load : {&state.load1, &state.load5, &state.load15}) {
        *load = line ? takeDecimal(*line) : std::nullopt;
        if (!*load)
            line.reset();
    }
}

std::optional<double> parsePressure(std::string_view text)
{
    constexpr std::string_view start = "some avg10=";
    std::optional<std::string_view> line = takeLine(text);
    if (!line || line->substr(0, start.size()) != start)
        return std::nullopt;
    line->remove_prefix(start.size());
    const std::optional<double> share = takeDecimal(*line);
    return share && *share <= 100 ? share : std::nullopt;
}

bool isUserSession(std::string_view text)
{
    return parseUevent(text, "CLASS").startsWith(QLatin1String("user")) &&
           parseUevent(text, "STATE") != QLatin1String("closing");
}
