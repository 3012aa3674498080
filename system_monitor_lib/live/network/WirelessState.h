#pragma once

#include "system_monitor_lib/SensorTrees.h"

#include <QJsonObject>
#include <QStringList>

#include <optional>

/// The link of a wireless adapter. What its driver does not tell is absent.
struct WirelessState
{
    std::optional<double> percent; ///< 0 to 100.
    std::optional<double> dbm;
    std::optional<double> bitsPerSecond;
};

/// The quality that Windows shows for a signal: 0 % at -100 dBm, 100 % at -50 dBm
/// (WLAN_ASSOCIATION_ATTRIBUTES).
double signalPercent(double dbm);

/// "Wireless Signal" (%), "Wireless Signal Level" (dBm) and "Wireless Bit Rate" (Mbit/s).
QJsonObject wirelessLabels(const WirelessState &state);
QStringList wirelessLabelNames();

/// Adds \a labels, some of those above, to the adapter's group "Network: ADAPTER".
void addWirelessGroup(SensorTrees &trees, const QString &adapter, const QJsonObject &labels);
