#include "system_monitor_lib/live/processor/ProcStatText.h"

#include "system_monitor_lib/live/files/TextFields.h"

#include <array>
#include <numeric>

namespace {

constexpr std::string_view summaryLine = "cpu ";
constexpr std::string_view coreLine = "cpu";
/// Up to and without the guest times.
constexpr std::size_t fieldCount = 8;
constexpr std::size_t fewestFields = 4;

enum Field { User, Nice, System, Idle, Iowait, Irq, Softirq, Steal };
using Fields = std::array<quint64, fieldCount>;

/// The numbers of a line without its name; nothing when it is malformed.
std::optional<Fields> parseFields(std::string_view line)
{
    Fields fields{};
    for (std::size_t index = 0; index < fieldCount; ++index) {
        if (index >= fewestFields && trimmed(line).empty())
            break;
        const std::optional<quint64> number = takeNumber(line);
        if (!number)
            return std::nullopt;
        fields.at(index) = *number;
    }
    return fields;
}

quint64 sum(const Fields &fields)
{
    return std::accumulate(fields.begin(), fields.end(), quint64{0});
}

CpuTimes timesOf(const Fields &fields)
{
    const quint64 idle = fields[Idle] + fields[Iowait];
    return {sum(fields) - idle, idle};
}

/// The fields of the first line, which sums up all processors.
std::optional<Fields> takeSummary(std::string_view &text)
{
    std::optional<std::string_view> line = takeLine(text);
    if (!line || line->substr(0, summaryLine.size()) != summaryLine)
        return std::nullopt;
    line->remove_prefix(summaryLine.size());
    return parseFields(*line);
}

std::optional<CoreTimes> parseCore(std::string_view line)
{
    constexpr quint64 highestNumber = 1'000'000;
    line.remove_prefix(coreLine.size());
    const std::optional<quint64> number = takeNumber(line);
    const std::optional<Fields> fields =
        number && *number <= highestNumber ? parseFields(line) : std::nullopt;
    if (!fields)
        return std::nullopt;
    return CoreTimes{static_cast<int>(*number), timesOf(*fields)};
}

} // namespace

std::optional<CpuTimes> parseProcStat(std::string_view text)
{
    const std::optional<Fields> fields = takeSummary(text);
    return fields ? std::optional(timesOf(*fields)) : std::nullopt;
}

CpuDetails parseProcStatDetails(std::string_view text)
{
    const std::optional<Fields> all = takeSummary(text);
    if (!all)
        return {};
    const Fields &fields = *all;
    CpuDetails details;
    details.modes =
        CpuModes{fields[User] + fields[Nice], fields[System] + fields[Irq] + fields[Softirq],
                 fields[Iowait], sum(fields)};
    while (const std::optional<std::string_view> line = takeLine(text)) {
        if (line->substr(0, coreLine.size()) != coreLine)
            break;
        if (const std::optional<CoreTimes> core = parseCore(*line))
            details.cores.push_back(*core);
    }
    return details;
}
