#include "system_monitor_lib/live/drives/DriveActivity.h"

#include "system_monitor_lib/SensorTrees.h"
#include "system_monitor_lib/live/Rates.h"

#include <algorithm>

namespace {

const QString readLabel = QStringLiteral("Drive Read Rate");
const QString writeLabel = QStringLiteral("Drive Write Rate");
const QString busyLabel = QStringLiteral("Drive Busy");
const QString requestLabel = QStringLiteral("Drive Request Time");

constexpr double nanosecondsPerMillisecond = 1'000'000;

quint64 increaseOfTime(quint64 previous, quint64 current, quint64 wrapsAt)
{
    if (current >= previous)
        return current - previous;
    return wrapsAt > previous ? wrapsAt - previous + current : 0;
}

QJsonObject labelsOf(const DriveActivity &activity)
{
    constexpr double bytesPerMegabyte = 1024.0 * 1024.0;
    const QString rate = QStringLiteral("MB/s");
    return {{readLabel, reading(activity.readBytesPerSecond / bytesPerMegabyte, rate)},
            {writeLabel, reading(activity.writtenBytesPerSecond / bytesPerMegabyte, rate)},
            {busyLabel, reading(activity.busyPercent, QStringLiteral("%"))},
            {requestLabel, reading(activity.requestMs, QStringLiteral("ms"))}};
}

} // namespace

std::optional<DriveActivity> driveActivity(const DriveCounters &previous,
                                           const DriveCounters &current, qint64 intervalNs)
{
    const auto read = ratePerSecond(previous.readBytes, current.readBytes, intervalNs);
    const auto written = ratePerSecond(previous.writtenBytes, current.writtenBytes, intervalNs);
    if (!read || !written || current.requests < previous.requests)
        return std::nullopt;
    const auto spent = [&](quint64 DriveCounters::*time) {
        return static_cast<double>(
            increaseOfTime(previous.*time, current.*time, current.timesWrapAtNs));
    };
    const auto interval = static_cast<double>(intervalNs);
    const quint64 requests = current.requests - previous.requests;
    DriveActivity activity{*read, *written, 0, 0};
    // Systems count in steps, so that it may come out a little longer than the interval.
    activity.busyPercent = 100 * std::min(spent(&DriveCounters::busyNs) / interval, 1.0);
    if (requests > 0)
        activity.requestMs = (spent(&DriveCounters::readNs) + spent(&DriveCounters::writeNs)) /
                             static_cast<double>(requests) / nanosecondsPerMillisecond;
    return activity;
}

QJsonObject driveActivityLabels(const DriveActivity &activity)
{
    // Most drives are idle most of the time.
    static const QJsonObject idle = labelsOf({});
    const bool isIdle = activity.readBytesPerSecond <= 0 && activity.writtenBytesPerSecond <= 0 &&
                        activity.busyPercent <= 0 && activity.requestMs <= 0;
    return isIdle ? idle : labelsOf(activity);
}

QStringList driveActivityLabelNames()
{
    static const QStringList names{readLabel, writeLabel, busyLabel, requestLabel};
    return names;
}
