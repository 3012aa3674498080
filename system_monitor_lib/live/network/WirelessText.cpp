#include "system_monitor_lib/live/network/WirelessText.h"

#include "system_monitor_lib/live/files/SysfsText.h"
#include "system_monitor_lib/live/files/TextFields.h"

namespace {

/// Removes the first word from the front of \a line.
std::string_view takeWord(std::string_view &line)
{
    line = trimmed(line);
    const std::string_view word = line.substr(0, line.find_first_of(" \t"));
    line.remove_prefix(word.size());
    return word;
}

/// A value is followed by a dot if it is new.
std::optional<double> parseLevel(std::string_view word)
{
    constexpr qint64 weakest = -200;
    if (!word.empty() && word.back() == '.')
        word.remove_suffix(1);
    const std::optional<qint64> level = parseInteger(word);
    // What is not in dBm is positive; the lowest number stands for "unknown".
    return level && *level > weakest && *level < 0 ? std::optional(static_cast<double>(*level))
                                                   : std::nullopt;
}

} // namespace

std::vector<std::pair<QString, WirelessState>> parseWireless(std::string_view text)
{
    std::vector<std::pair<QString, WirelessState>> adapters;
    while (std::optional<std::string_view> line = takeLine(text)) {
        const std::size_t colon = line->find(':');
        if (colon == std::string_view::npos)
            continue;
        const QString name = parseWord(line->substr(0, colon));
        line->remove_prefix(colon + 1);
        takeWord(*line);
        takeWord(*line);
        const std::optional<double> dbm = parseLevel(takeWord(*line));
        if (!name.isEmpty() && dbm)
            adapters.emplace_back(name, WirelessState{signalPercent(*dbm), dbm, {}});
    }
    return adapters;
}
