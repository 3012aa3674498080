#include "system_monitor_lib/live/network/WirelessState.h"

#include "system_monitor_lib/ListedNames.h"

#include <algorithm>

namespace {

const QString signalLabel = QStringLiteral("Wireless Signal");
const QString levelLabel = QStringLiteral("Wireless Signal Level");
const QString rateLabel = QStringLiteral("Wireless Bit Rate");

} // namespace

double signalPercent(double dbm)
{
    constexpr double weakest = -100;
    constexpr double percentPerDecibel = 2;
    return std::clamp((dbm - weakest) * percentPerDecibel, 0.0, 100.0);
}

QJsonObject wirelessLabels(const WirelessState &state)
{
    constexpr double bitsPerMegabit = 1'000'000;
    QJsonObject labels;
    addReading(labels, signalLabel, state.percent, QStringLiteral("%"));
    addReading(labels, levelLabel, state.dbm, QStringLiteral("dBm"));
    if (state.bitsPerSecond)
        addReading(labels, rateLabel, *state.bitsPerSecond / bitsPerMegabit,
                   QStringLiteral("Mbit/s"));
    return labels;
}

QStringList wirelessLabelNames()
{
    static const QStringList names{signalLabel, levelLabel, rateLabel};
    return names;
}

void addWirelessGroup(SensorTrees &trees, const QString &adapter, const QJsonObject &labels)
{
    trees.addGroup(
        {deviceGroup(QStringLiteral("Network"), adapter), adapter, {}, wirelessLabelNames()},
        labels);
}
