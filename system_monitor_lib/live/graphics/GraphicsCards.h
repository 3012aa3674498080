#pragma once

#include "system_monitor_lib/live/Pace.h"
#include "system_monitor_lib/live/graphics/GraphicsSystem.h"

#include <memory>

/// An adapter that is hardware.
struct GraphicsCard
{
    quint64 luid = 0;
    QString name;
    quint64 memoryBytes = 0;
    /// Its place on the bus, such as "0000:09:00.0"; empty when unknown.
    QString address;
    bool maySleep = false;
};

/// The graphics cards of the machine. The list is refreshed every 10 seconds; a card is only
/// examined when it is new, by
/// what the system itself knows: this wakes nothing.
class GraphicsCards
{
public:
    /// How long a card that may sleep is assumed to stay awake after its last use. Windows does not
    /// tell.
    static constexpr std::chrono::nanoseconds sleepDelay = std::chrono::seconds(15);

    explicit GraphicsCards(std::unique_ptr<GraphicsSystem> system);

    const std::vector<GraphicsCard> &look(qint64 nowNs);
    /// What answers questions about them.
    [[nodiscard]] GraphicsSystem &system() const { return *m_system; }

private:
    void list();

    const std::unique_ptr<GraphicsSystem> m_system;
    Pace m_listing{listingPeriod};
    std::vector<GraphicsCard> m_cards;
};
