#pragma once

#include <QByteArray>

/// Netlink messages as the kernel writes them (netlink(7), linux/genetlink.h).

/// An attribute: length, type, content, filled up to four bytes.
QByteArray attribute(int type, const QByteArray &content);
/// A message of a generic protocol: length, protocol, flags, number, process; command, version,
/// reserved.
QByteArray netlinkMessage(quint16 protocol, quint8 command, const QByteArray &attributes,
                          quint16 flags = 0);

/// The answer that describes a wireless adapter.
QByteArray adapterMessage(quint32 index, quint32 kind, const QByteArray &name);
/// The answer that describes a link.
QByteArray linkMessage(const QByteArray &station);

/// What describes a station: its signal, the rate upwards in units of 100 kbit/s, as drivers of
/// today and of old write it, and its flags.
QByteArray signalOf(qint8 dbm);
QByteArray rateOf(quint32 units);
QByteArray oldRateOf(quint16 units);
QByteArray flagsOf(quint32 flags);
