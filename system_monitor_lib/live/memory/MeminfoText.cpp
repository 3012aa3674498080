#include "system_monitor_lib/live/memory/MeminfoText.h"

#include "system_monitor_lib/live/files/TextFields.h"

#include <utility>

namespace {

struct Lines
{
    std::optional<quint64> total;
    std::optional<quint64> available;
    std::optional<quint64> free;
    std::optional<quint64> buffers;
    std::optional<quint64> cached;
    std::optional<quint64> dirty;
    std::optional<quint64> swapTotal;
    std::optional<quint64> swapFree;
    std::optional<quint64> zswapped;
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
    static constexpr std::pair<std::string_view, std::optional<quint64> Lines::*> keys[] = {
        {"MemTotal", &Lines::total},      {"MemAvailable", &Lines::available},
        {"MemFree", &Lines::free},        {"Buffers", &Lines::buffers},
        {"Cached", &Lines::cached},       {"Dirty", &Lines::dirty},
        {"SwapTotal", &Lines::swapTotal}, {"SwapFree", &Lines::swapFree},
        {"Zswapped", &Lines::zswapped}};
    for (const auto &[name, member] : keys) {
        if (key == name)
            lines.*member = amount(value);
    }
}

/// All lines up to the one after which \a isEnough.
template <typename Predicate>
Lines linesOf(std::string_view text, const Predicate &isEnough)
{
    Lines lines;
    while (const std::optional<std::string_view> line = takeLine(text)) {
        takeOver(*line, lines);
        if (isEnough(lines))
            break;
    }
    return lines;
}

} // namespace

std::optional<MemoryState> parseMeminfo(std::string_view text)
{
    // They are among the first lines.
    Lines lines = linesOf(text, [](const Lines &found) { return found.total && found.available; });
    if (!lines.available && lines.free && lines.buffers && lines.cached)
        lines.available = *lines.free + *lines.buffers + *lines.cached;
    if (!lines.total || !lines.available || *lines.total == 0 || *lines.available > *lines.total)
        return std::nullopt;
    return MemoryState{*lines.total, *lines.available};
}

MemoryDetails parseMeminfoDetails(std::string_view text)
{
    const Lines lines = linesOf(text, [](const Lines &) { return false; });
    MemoryDetails details;
    details.cached = lines.cached;
    details.dirty = lines.dirty;
    details.compressed = lines.zswapped;
    if (lines.swapTotal.value_or(0) > 0) {
        details.swapTotal = lines.swapTotal;
        if (lines.swapFree && *lines.swapFree <= *lines.swapTotal)
            details.swapUsed = *lines.swapTotal - *lines.swapFree;
    }
    return details;
}

std::optional<quint64> parseZramStat(std::string_view text)
{
    std::optional<std::string_view> line = takeLine(text);
    return line ? takeNumber(*line) : std::nullopt;
}
