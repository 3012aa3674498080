#include "system_monitor_lib/live/graphics/ListedNvidiaDevices.h"

#include "system_monitor_lib/live/graphics/NvidiaLibrary.h"

#include <algorithm>

ListedNvidiaDevices::ListedNvidiaDevices(const QString &library,
                                         std::shared_ptr<DisplayPower> power,
                                         std::shared_ptr<GraphicsCards> cards)
    : m_library(library)
    , m_power(std::move(power))
    , m_cards(std::move(cards))
{
}

bool ListedNvidiaDevices::hasLibrary(qint64 nowNs)
{
    if (!m_hasLibrary && m_trying.isDue(nowNs))
        m_hasLibrary = NvidiaLibrary::canLoad(m_library);
    return m_hasLibrary;
}

std::vector<NvidiaDevice> ListedNvidiaDevices::look(qint64 nowNs)
{
    std::vector<NvidiaDevice> found;
    if (hasLibrary(nowNs)) {
        const std::vector<GraphicsCard> &cards = m_cards->look(nowNs);
        for (const DisplayDevice &listed : m_power->look(nowNs)) {
            NvidiaDevice device;
            device.pciId = pciIdOfInstance(listed.instance);
            if (!device.pciId.startsWith(QLatin1String("10de:")))
                continue;
            device.address = listed.address;
            device.name = listed.name;
            device.sleeps = m_power->sleeps(listed.address, nowNs);
            if (std::any_of(cards.begin(), cards.end(), [&listed](const GraphicsCard &card) {
                    return card.maySleep && isSamePlace(card.address, listed.address);
                }))
                device.sleepsAfter = GraphicsCards::sleepDelay;
            found.push_back(device);
        }
    }
    if (found.empty())
        found.emplace_back();
    return found;
}
