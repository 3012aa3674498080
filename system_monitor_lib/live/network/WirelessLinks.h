#pragma once

#include "system_monitor_lib/live/network/WirelessState.h"

#include <QString>

#include <memory>
#include <vector>

/// A wireless adapter, as the system describes it.
struct WirelessLink
{
    /// The name of the adapter, which its group bears.
    QString adapter;
    bool isConnected = false;
    /// Of its signal, if it is connected.
    std::optional<qint32> dbm;
    /// Of its link, upwards; 0 when unknown.
    quint64 bitsPerSecond = 0;
};

/// The wireless adapters that the system knows. There are none where Windows' service for them does
/// not run, or where Linux has no driver that describes them.
class WirelessLinks
{
public:
    WirelessLinks() = default;
    virtual ~WirelessLinks() = default;
    Q_DISABLE_COPY(WirelessLinks)

    virtual std::vector<WirelessLink> read(qint64 nowNs) = 0;
};

/// Those of this machine. The library of Windows and the socket of Linux are opened when they are
/// first needed.
std::unique_ptr<WirelessLinks> wirelessLinks();

/// Without what is implausible; nothing is known of an adapter that is not connected.
WirelessState stateOf(const WirelessLink &link);
