#include "system_monitor_lib/live/processor/ProcStatText.h"

#include "system_monitor_lib/live/files/TextFields.h"

#include <array>
#include <numeric>

namespace {

constexpr std::string_view summaryLine = "cpu ";
constexpr std::size_t idleField = 3;
constexpr std::size_t iowaitField = 4;
/// Up to and without the guest times.
constexpr std::size_t fieldCount = 8;
constexpr std::size_t fewestFields = 4;

} // namespace

std::optional<CpuTimes> parseProcStat(std::string_view text)
{
    std::optional<std::string_view> line = takeLine(text);
    if (!line || line->substr(0, summaryLine.size()) != summaryLine)
        return std::nullopt;
    line->remove_prefix(summaryLine.size());

    std::array<quint64, fieldCount> fields{};
    for (std::size_t index = 0; index < fieldCount; ++index) {
        if (index >= fewestFields && trimmed(*line).empty())
            break;
        const std::optional<quint64> number = takeNumber(*line);
        if (!number)
            return std::nullopt;
        fields.at(index) = *number;
    }
    const quint64 total = std::accumulate(fields.begin(), fields.end(), quint64{0});
    const quint64 idle = fields[idleField] + fields[iowaitField];
    return CpuTimes{total - idle, idle};
}
