#pragma once

#include "system_monitor_lib/live/Pace.h"
#include "system_monitor_lib/live/network/WirelessLinks.h"

#include <QByteArray>

#include <functional>

/// The wireless adapters of Linux that are stations of a network, as the kernel's drivers describe
/// them. The kernel may learn of wireless adapters later: where it knows of none, it is asked for
/// them again a minute later.
class StationLinks : public WirelessLinks
{
public:
    /// Gives the messages with which the kernel answers a question.
    using Ask = std::function<std::vector<QByteArray>(const QByteArray &question)>;

    explicit StationLinks(Ask ask);

    std::vector<WirelessLink> read(qint64 nowNs) override;

private:
    void findProtocol();
    WirelessLink linkOf(quint32 adapter);

    const Ask m_ask;
    Pace m_retry{std::chrono::minutes(1)};
    /// The protocol's number; 0 while there is none.
    quint16 m_protocol = 0;
};
