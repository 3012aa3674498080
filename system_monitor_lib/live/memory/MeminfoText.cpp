#include "system_monitor_lib/live/memory/MeminfoText.h"

#include "system_monitor_lib/live/files/TextFields.h"

namespace {

struct Lines
{
    std::optional<quint64> total;
    std::optional<quint64> available;
    std::optional<quint64> free;
    std::optional<quint64> buffers;
    std::optional<quint64> cached;
};

/// The number of kB after the colon.
std::optional<quint64> amount(std::string_view text)
{
    const std::optional<quint64> number = takeNumber(text);
    if (!number || trimmed(text) != "kB")
        return std::nullopt;
    return number;
}

void takeOver(std::string_view line, Lines &lines)
{
    const std::size_t colon = line.find(':');
    if (colon == std::string_view::npos)
        return;
    const std::string_view key = line.substr(0, colon);
    const std::string_view value = line.substr(colon + 1);
    if (key == "MemTotal")
        lines.total = amount(value);
    else if (key == "MemAvailable")
        lines.available = amount(value);
    else if (key == "MemFree")
        lines.free = amount(value);
    else if (key == "Buffers")
        lines.buffers = amount(value);
    else if (key == "Cached")
        lines.cached = amount(value);
}

} // namespace

std::optional<MemoryState> parseMeminfo(std::string_view text)
{
    Lines lines;
    while (const std::optional<std::string_view> line = takeLine(text))
        takeOver(*line, lines);
    if (!lines.available && lines.free && lines.buffers && lines.cached)
        lines.available = *lines.free + *lines.buffers + *lines.cached;
    if (!lines.total || !lines.available || *lines.total == 0 || *lines.available > *lines.total)
        return std::nullopt;
    return MemoryState{*lines.total, *lines.available};
}
