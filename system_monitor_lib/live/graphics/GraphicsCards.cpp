#include "system_monitor_lib/live/graphics/GraphicsCards.h"

#include "system_monitor_lib/live/graphics/AdapterAnswers.h"

#include <algorithm>

using namespace adapter_answers;

namespace {

QByteArray answer(GraphicsSystem &system, quint64 luid, Topic topic)
{
    return system.ask(luid, static_cast<quint32>(topic), question(topic));
}

/// The adapters that Windows itself provides, for machines without a driver.
bool isOfWindows(const DisplayAdapter &adapter)
{
    constexpr quint32 microsoft = 0x1414;
    return adapter.isSoftware || adapter.vendor == microsoft || adapter.vendor == 0;
}

QString nameOf(const DisplayAdapter &adapter)
{
    return adapter.name.isEmpty()
               ? QStringLiteral("GPU %1").arg(adapter.vendor, 4, 16, QLatin1Char('0')).toUpper()
               : adapter.name;
}

} // namespace

GraphicsCards::GraphicsCards(std::unique_ptr<GraphicsSystem> system)
    : m_system(std::move(system))
{
}

void GraphicsCards::list()
{
    std::vector<GraphicsCard> cards;
    for (const DisplayAdapter &adapter : m_system->adapters()) {
        const auto isSame = [&adapter](const GraphicsCard &card) {
            return card.luid == adapter.luid;
        };
        const auto known = std::find_if(m_cards.begin(), m_cards.end(), isSame);
        if (isOfWindows(adapter) || std::any_of(cards.begin(), cards.end(), isSame))
            continue;
        if (known != m_cards.end()) {
            cards.push_back(*known);
            continue;
        }
        const AdapterType type = parseType(answer(*m_system, adapter.luid, Topic::Type));
        if (!type.isHardware)
            continue;
        const QString address = parseAddress(answer(*m_system, adapter.luid, Topic::Address));
        // Windows may list a card once more for a display that is attached indirectly.
        const bool isListed =
            !address.isEmpty() && std::any_of(cards.begin(), cards.end(), [&](const auto &card) {
                return card.address == address;
            });
        if (!isListed)
            cards.push_back(
                {adapter.luid, nameOf(adapter), adapter.memoryBytes, address, type.maySleep});
    }
    m_cards = std::move(cards);
}

const std::vector<GraphicsCard> &GraphicsCards::look(qint64 nowNs)
{
    if (m_listing.isDue(nowNs))
        list();
    return m_cards;
}
