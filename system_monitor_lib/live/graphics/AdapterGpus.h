#pragma once

#include "system_monitor_lib/live/graphics/AdapterAnswers.h"
#include "system_monitor_lib/live/graphics/DisplayPower.h"
#include "system_monitor_lib/live/graphics/GpuCounters.h"
#include "system_monitor_lib/live/graphics/GpuRest.h"
#include "system_monitor_lib/live/graphics/GpuSource.h"
#include "system_monitor_lib/live/graphics/GraphicsCards.h"

/// The graphics cards of Windows, of every maker. The readings of a maker's library come first;
/// what it lacks, and the cards that it does not know, come from the graphics kernel (temperature,
/// fan, clocks, voltage), DXGI (name, memory) and the performance counters (load, memory in use). A
/// card that may go to sleep is left alone when it has been idle.
class AdapterGpus : public GpuSource
{
public:
    /// How often the counters are read for the loads of single engines alone.
    static constexpr std::chrono::nanoseconds countingPeriod = std::chrono::seconds(5);

    AdapterGpus(std::unique_ptr<GpuSource> library, std::shared_ptr<GraphicsCards> cards,
                std::shared_ptr<DisplayPower> power);

    std::vector<GpuState> read(qint64 nowNs) override;

private:
    struct Unit
    {
        GraphicsCard card;
        GpuRest rest;
        /// What its driver said last.
        QJsonObject measured;
        /// Has a load for each kind of engine that it has.
        GraphicsDetails engines;
        /// The number of the engine that draws.
        std::optional<quint32> drawingNode;
        /// The labels that it has had so far.
        QStringList told;
    };

    void look(qint64 nowNs);
    /// The library's GPU for each card; null for one that the library does not know.
    std::vector<GpuState *> match(std::vector<GpuState> &gpus) const;
    /// Reads the counters. If the library knows the load and the memory of each card, only the
    /// loads of the single engines are missing, and the counters are read rarely.
    void count(const std::vector<GpuState *> &matches, qint64 nowNs);
    [[nodiscard]] QByteArray ask(const Unit &unit, adapter_answers::Topic topic,
                                 quint32 node = 0) const;
    /// Finds out which engines it has.
    void findEngines(Unit &unit) const;
    /// Queries the driver.
    void measure(Unit &unit) const;
    /// The readings of a card that is awake, and its memory.
    static void describe(Unit &unit, const GpuUsage &usage, GpuState &state);
    GpuState own(Unit &unit, const GpuUsage &usage, qint64 nowNs);
    /// Adds what the library did not say about the card.
    void supplement(GpuState &known, Unit &unit, const GpuUsage &usage) const;

    const std::unique_ptr<GpuSource> m_library;
    const std::shared_ptr<GraphicsCards> m_cards;
    const std::shared_ptr<DisplayPower> m_power;
    Pace m_counting{countingPeriod};
    /// By card.
    QHash<quint64, GpuUsage> m_usages;
    std::vector<Unit> m_units;
};
