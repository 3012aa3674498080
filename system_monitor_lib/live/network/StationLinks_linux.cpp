#include "system_monitor_lib/live/network/StationLinks.h"

#include "system_monitor_lib/live/network/GenericNetlink.h"
#include "system_monitor_lib/live/network/StationMessages.h"

StationLinks::StationLinks(Ask ask)
    : m_ask(std::move(ask))
{
}

std::vector<WirelessLink> StationLinks::read(qint64 nowNs)
{
    if (m_protocol == 0 && m_retry.isDue(nowNs))
        findProtocol();
    std::vector<WirelessLink> links;
    if (m_protocol == 0)
        return links;
    for (const QByteArray &answer : m_ask(stationmessages::adaptersQuestion(m_protocol))) {
        if (const auto station = stationmessages::stationIn(answer)) {
            links.push_back(linkOf(station->index));
            links.back().adapter = station->name;
        }
    }
    return links;
}

void StationLinks::findProtocol()
{
    for (const QByteArray &answer : m_ask(stationmessages::protocolQuestion()))
        m_protocol = stationmessages::protocolIn(answer).value_or(m_protocol);
}

WirelessLink StationLinks::linkOf(quint32 adapter)
{
    for (const QByteArray &answer : m_ask(stationmessages::linksQuestion(m_protocol, adapter))) {
        if (const auto link = stationmessages::linkIn(answer))
            return *link;
    }
    return {};
}

std::unique_ptr<WirelessLinks> wirelessLinks()
{
    return std::make_unique<StationLinks>(
        [netlink = std::make_shared<GenericNetlink>()](const QByteArray &question) {
            return netlink->ask(question);
        });
}
