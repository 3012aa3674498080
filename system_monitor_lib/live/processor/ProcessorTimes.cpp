#include "system_monitor_lib/live/processor/ProcessorTimes.h"

#include "system_monitor_lib/live/BinaryAnswer.h"

#include <algorithm>

namespace {

constexpr int processorSize = 48;

/// The times of one processor.
struct Times
{
    Times(const QByteArray &group, int at)
        : idle(numberAt<quint64>(group, at).value_or(0))
        , kernel(numberAt<quint64>(group, at + kernelOffset).value_or(0))
        , user(numberAt<quint64>(group, at + userOffset).value_or(0))
    {
    }

    static constexpr int kernelOffset = 8;
    static constexpr int userOffset = 16;
    quint64 idle;
    quint64 kernel; ///< Includes the idle time.
    quint64 user;
};

/// Nothing when a group did not answer.
std::optional<std::vector<Times>> timesOf(const std::vector<QByteArray> &groups)
{
    std::vector<Times> processors;
    for (const QByteArray &group : groups) {
        if (group.size() < processorSize)
            return std::nullopt;
        for (int at = 0; at + processorSize <= group.size(); at += processorSize)
            processors.emplace_back(group, at);
    }
    return processors.empty() ? std::nullopt : std::optional(processors);
}

} // namespace

std::optional<CpuTimes> sumOfProcessorTimes(const std::vector<QByteArray> &groups)
{
    const std::optional<std::vector<Times>> processors = timesOf(groups);
    if (!processors)
        return std::nullopt;
    quint64 idle = 0;
    quint64 total = 0;
    for (const Times &times : *processors) {
        idle += times.idle;
        total += times.kernel + times.user;
    }
    return idle <= total ? std::optional(CpuTimes{total - idle, idle}) : std::nullopt;
}

CpuDetails detailsOfProcessorTimes(const std::vector<QByteArray> &groups)
{
    const std::optional<std::vector<Times>> processors = timesOf(groups);
    if (!processors)
        return {};
    CpuDetails details;
    CpuModes modes;
    for (const Times &times : *processors) {
        const quint64 system = times.kernel - std::min(times.idle, times.kernel);
        details.cores.push_back(
            {static_cast<int>(details.cores.size()), CpuTimes{system + times.user, times.idle}});
        modes.user += times.user;
        modes.system += system;
        modes.total += times.kernel + times.user;
    }
    details.modes = modes;
    return details;
}
