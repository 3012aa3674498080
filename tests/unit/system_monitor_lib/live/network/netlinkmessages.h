#pragma once

#include "tests/unit/system_monitor_lib/bytes.h"

#include <QString>

#include <initializer_list>

#include <linux/genetlink.h>
#include <linux/netlink.h>
#include <linux/nl80211.h>

/// An attribute of a netlink message: length, type, content, filled up to four bytes.
inline QByteArray attribute(int type, const QByteArray &content)
{
    constexpr int header = 4;
    const QByteArray all = bytes(static_cast<quint16>(header + content.size())) +
                           bytes(static_cast<quint16>(type)) + content;
    return all + QByteArray(-all.size() & 3, '\0');
}

/// A message of a generic protocol: length, protocol, flags, number, process; command, version,
/// reserved.
inline QByteArray netlinkMessage(quint16 protocol, quint8 command, const QByteArray &attributes,
                                 quint16 flags = 0)
{
    constexpr int headers = 20;
    return bytes(static_cast<quint32>(headers + attributes.size())) + bytes(protocol) +
           bytes(flags) + QByteArray(8, '\0') + bytes(command) + bytes<quint8>(1) +
           QByteArray(2, '\0') + attributes;
}

/// The answer that describes a wireless adapter.
inline QByteArray adapterMessage(quint32 index, quint32 kind, const QByteArray &name)
{
    return netlinkMessage(28, NL80211_CMD_NEW_INTERFACE,
                          attribute(NL80211_ATTR_IFINDEX, bytes(index)) +
                              attribute(NL80211_ATTR_IFNAME, name) +
                              attribute(NL80211_ATTR_IFTYPE, bytes(kind)));
}

/// The answer that describes a link.
inline QByteArray linkMessage(const QByteArray &station)
{
    return netlinkMessage(28, NL80211_CMD_NEW_STATION,
                          attribute(NL80211_ATTR_IFINDEX, bytes<quint32>(3)) +
                              attribute(NL80211_ATTR_MAC, QByteArray(6, 'm')) +
                              attribute(NL80211_ATTR_STA_INFO | NLA_F_NESTED, station));
}

inline QByteArray signalOf(qint8 dbm)
{
    return attribute(NL80211_STA_INFO_SIGNAL, bytes(dbm));
}

/// A rate upwards in units of 100 kbit/s, as drivers of today and of old write it.
inline QByteArray rateOf(quint32 units)
{
    return attribute(NL80211_STA_INFO_TX_BITRATE | NLA_F_NESTED,
                     attribute(NL80211_RATE_INFO_BITRATE32, bytes(units)));
}

inline QByteArray oldRateOf(quint16 units)
{
    return attribute(NL80211_STA_INFO_TX_BITRATE | NLA_F_NESTED,
                     attribute(NL80211_RATE_INFO_BITRATE, bytes(units)));
}

inline QByteArray flagsOf(quint32 flags)
{
    return attribute(NL80211_STA_INFO_STA_FLAGS, bytes(~quint32{0}) + bytes(flags));
}
