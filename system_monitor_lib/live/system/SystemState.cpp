#include "system_monitor_lib/live/system/SystemState.h"

#include "system_monitor_lib/SensorTrees.h"

#include <cmath>

namespace {

std::optional<double> hours(std::optional<double> seconds)
{
    constexpr double secondsPerTenth = 360;
    return seconds ? std::optional(std::floor(*seconds / secondsPerTenth) / 10) : std::nullopt;
}

} // namespace

QJsonObject systemStateLabels(const SystemState &state)
{
    QJsonObject labels;
    const auto add = [&labels](const QString &label, const auto &number) {
        if (number)
            addReading(labels, label, static_cast<double>(*number), QString());
    };
    addReading(labels, QStringLiteral("Uptime"), hours(state.uptimeSeconds), QStringLiteral("h"));
    add(QStringLiteral("Processes"), state.processes);
    add(QStringLiteral("Load Average 1 min"), state.load1);
    add(QStringLiteral("Load Average 5 min"), state.load5);
    add(QStringLiteral("Load Average 15 min"), state.load15);
    add(QStringLiteral("User Sessions"), state.sessions);
    return labels;
}

QString systemStateGroup()
{
    return QStringLiteral("Machine");
}
