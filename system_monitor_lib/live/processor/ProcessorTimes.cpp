#include "system_monitor_lib/live/processor/ProcessorTimes.h"

#include "system_monitor_lib/live/BinaryAnswer.h"

std::optional<CpuTimes> sumOfProcessorTimes(const std::vector<QByteArray> &groups)
{
    constexpr int processorSize = 48;
    constexpr int kernelOffset = 8;
    constexpr int userOffset = 16;
    if (groups.empty())
        return std::nullopt;
    quint64 idle = 0;
    quint64 total = 0;
    for (const QByteArray &group : groups) {
        if (group.size() < processorSize)
            return std::nullopt;
        for (int at = 0; at + processorSize <= group.size(); at += processorSize) {
            idle += numberAt<quint64>(group, at).value_or(0);
            // The kernel's time includes the idle time.
            total += numberAt<quint64>(group, at + kernelOffset).value_or(0) +
                     numberAt<quint64>(group, at + userOffset).value_or(0);
        }
    }
    return idle <= total ? std::optional(CpuTimes{total - idle, idle}) : std::nullopt;
}
