#include "system_monitor_lib/live/memory/ArcText.h"

#include "system_monitor_lib/live/files/TextFields.h"

namespace {

/// The value of the line of \a name: "size    4    8589934592". Nothing when it is another line.
std::optional<quint64> valueOf(std::string_view line, std::string_view name)
{
    const bool isNamed = line.substr(0, name.size()) == name && line.size() > name.size() &&
                         (line[name.size()] == ' ' || line[name.size()] == '\t');
    if (!isNamed)
        return std::nullopt;
    line.remove_prefix(name.size());
    const std::optional<quint64> type = takeNumber(line);
    return type ? takeNumber(line) : std::nullopt;
}

} // namespace

quint64 parseArcGivesBack(std::string_view text)
{
    constexpr quint64 bytesPerKibibyte = 1024;
    std::optional<quint64> size;
    std::optional<quint64> least;
    while (const std::optional<std::string_view> line = takeLine(text)) {
        if (const auto value = valueOf(*line, "size"))
            size = value;
        else if (const auto minimum = valueOf(*line, "c_min"))
            least = minimum;
    }
    if (!size || !least || *size <= *least)
        return 0;
    return (*size - *least) / bytesPerKibibyte;
}
