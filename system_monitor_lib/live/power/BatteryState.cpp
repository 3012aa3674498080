#include "system_monitor_lib/live/power/BatteryState.h"

#include "system_monitor_lib/ListedNames.h"
#include "system_monitor_lib/SensorTrees.h"

#include <cmath>

namespace {

const QString chargeLabel = QStringLiteral("Battery Charge");
const QString powerLabel = QStringLiteral("Battery Power");
const QString timeLabel = QStringLiteral("Battery Time Left");
const QString cyclesLabel = QStringLiteral("Battery Cycles");
const QString healthLabel = QStringLiteral("Battery Health");

} // namespace

std::optional<double> batteryMinutes(std::optional<double> wattHours, std::optional<double> watts)
{
    constexpr double minutesPerHour = 60;
    constexpr double longest = 7 * 24 * minutesPerHour;
    if (!wattHours || !watts || !(*watts > 0) || *wattHours < 0)
        return std::nullopt;
    const double minutes = *wattHours / *watts * minutesPerHour;
    return minutes <= longest ? std::optional(minutes) : std::nullopt;
}

QJsonObject batteryLabels(const BatteryState &state)
{
    const QString percent = QStringLiteral("%");
    QJsonObject labels;
    addReading(labels, chargeLabel, state.percent, percent);
    addReading(labels, powerLabel, state.watts, QStringLiteral("W"));
    if (state.minutesLeft)
        addReading(labels, timeLabel, std::floor(*state.minutesLeft), QStringLiteral("min"));
    if (state.cycles)
        addReading(labels, cyclesLabel, static_cast<double>(*state.cycles), QString());
    addReading(labels, healthLabel, state.healthPercent, percent);
    return labels;
}

QStringList batteryLabelNames()
{
    static const QStringList names{chargeLabel, powerLabel, timeLabel, cyclesLabel, healthLabel};
    return names;
}

QString batteryGroup(const QString &name)
{
    return deviceGroup(QStringLiteral("Battery"), name);
}

QJsonObject mainsLabels(bool isPluggedIn)
{
    return {{QStringLiteral("Mains Power"), reading(isPluggedIn ? 1 : 0, QString())}};
}

QString mainsGroup()
{
    return QStringLiteral("Mains");
}
