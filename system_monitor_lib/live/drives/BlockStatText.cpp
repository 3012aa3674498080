#include "system_monitor_lib/live/drives/BlockStatText.h"

#include "system_monitor_lib/live/files/TextFields.h"

#include <algorithm>
#include <array>

namespace {

enum Field {
    Reads,
    MergedReads,
    SectorsRead,
    ReadMs,
    Writes,
    MergedWrites,
    SectorsWritten,
    WriteMs,
    InFlight,
    BusyMs,
    FieldCount
};

constexpr quint64 bytesPerSector = 512;
constexpr quint64 nanosecondsPerMs = 1'000'000;
constexpr quint64 timesWrapAtMs = quint64{1} << 32U;
/// Of which products with the constants above do not overflow.
constexpr quint64 largestNumber = quint64{1} << 43U;

} // namespace

std::optional<DriveCounters> parseBlockStat(std::string_view text)
{
    std::optional<std::string_view> line = takeLine(text);
    if (!line)
        return std::nullopt;
    std::array<quint64, FieldCount> fields{};
    for (quint64 &field : fields) {
        const std::optional<quint64> number = takeNumber(*line);
        if (!number || *number > largestNumber)
            return std::nullopt;
        field = *number;
    }
    return DriveCounters{
        fields[SectorsRead] * bytesPerSector, fields[SectorsWritten] * bytesPerSector,
        fields[Reads] + fields[Writes],       fields[ReadMs] * nanosecondsPerMs,
        fields[WriteMs] * nanosecondsPerMs,   fields[BusyMs] * nanosecondsPerMs,
        timesWrapAtMs * nanosecondsPerMs};
}
