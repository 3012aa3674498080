#include "tests/unit/system_monitor_lib/live/network/netlinkmessages.h"

#include "tests/unit/system_monitor_lib/bytes.h"

#include <linux/genetlink.h>
#include <linux/netlink.h>
#include <linux/nl80211.h>

QByteArray attribute(int type, const QByteArray &content)
{
    constexpr int header = 4;
    const QByteArray all = bytes(static_cast<quint16>(header + content.size())) +
                           bytes(static_cast<quint16>(type)) + content;
    return all + QByteArray(-all.size() & 3, '\0');
}

QByteArray netlinkMessage(quint16 protocol, quint8 command, const QByteArray &attributes,
                          quint16 flags)
{
    constexpr int headers = 20;
    return bytes(static_cast<quint32>(headers + attributes.size())) + bytes(protocol) +
           bytes(flags) + QByteArray(8, '\0') + bytes(command) + bytes<quint8>(1) +
           QByteArray(2, '\0') + attributes;
}

QByteArray adapterMessage(quint32 index, quint32 kind, const QByteArray &name)
{
    return netlinkMessage(28, NL80211_CMD_NEW_INTERFACE,
                          attribute(NL80211_ATTR_IFINDEX, bytes(index)) +
                              attribute(NL80211_ATTR_IFNAME, name) +
                              attribute(NL80211_ATTR_IFTYPE, bytes(kind)));
}

QByteArray linkMessage(const QByteArray &station)
{
    return netlinkMessage(28, NL80211_CMD_NEW_STATION,
                          attribute(NL80211_ATTR_IFINDEX, bytes<quint32>(3)) +
                              attribute(NL80211_ATTR_MAC, QByteArray(6, 'm')) +
                              attribute(NL80211_ATTR_STA_INFO | NLA_F_NESTED, station));
}

QByteArray signalOf(qint8 dbm)
{
    return attribute(NL80211_STA_INFO_SIGNAL, bytes(dbm));
}

QByteArray rateOf(quint32 units)
{
    return attribute(NL80211_STA_INFO_TX_BITRATE | NLA_F_NESTED,
                     attribute(NL80211_RATE_INFO_BITRATE32, bytes(units)));
}

QByteArray oldRateOf(quint16 units)
{
    return attribute(NL80211_STA_INFO_TX_BITRATE | NLA_F_NESTED,
                     attribute(NL80211_RATE_INFO_BITRATE, bytes(units)));
}

QByteArray flagsOf(quint32 flags)
{
    return attribute(NL80211_STA_INFO_STA_FLAGS, bytes(~quint32{0}) + bytes(flags));
}
