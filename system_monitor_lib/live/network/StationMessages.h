#pragma once

#include "system_monitor_lib/live/network/WirelessLinks.h"

#include <QByteArray>

/// A wireless adapter that is the station of a network, not its access point.
struct WirelessStation
{
    quint32 index = 0;
    QString name;
};

/// The questions about wireless links and what their answers, netlink messages of the kernel, tell
/// (linux/nl80211.h). An answer that is cut, of another kind or without what is sought gives
/// nothing.
namespace stationmessages {

/// Which number the protocol has on this machine.
QByteArray protocolQuestion();
std::optional<quint16> protocolIn(const QByteArray &answer);

/// Which adapters there are: one answer for each.
QByteArray adaptersQuestion(quint16 protocol);
std::optional<WirelessStation> stationIn(const QByteArray &answer);

/// With whom an adapter has links: one answer for each. \a adapter is its index.
QByteArray linksQuestion(quint16 protocol, quint32 adapter);
/// The link to the access point, without the adapter's name.
std::optional<WirelessLink> linkIn(const QByteArray &answer);

} // namespace stationmessages
