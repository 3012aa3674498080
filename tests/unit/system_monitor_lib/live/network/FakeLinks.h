#pragma once

#include "system_monitor_lib/live/network/WirelessLinks.h"

/// The wireless links that a test writes and may change later.
class FakeLinks : public WirelessLinks
{
public:
    explicit FakeLinks(std::vector<WirelessLink> &links)
        : m_links(links)
    {
    }

    std::vector<WirelessLink> read(qint64 /*nowNs*/) override { return m_links; }

private:
    std::vector<WirelessLink> &m_links;
};
