#pragma once

#include "system_monitor_lib/live/Collector.h"
#include "system_monitor_lib/live/MonotonicClock.h"

#include <memory>

/// Keeps a slow collector, such as one whose device hangs, from blocking the others: after two slow
/// samples in a row, and after each slow one from then on, the collector is paused. Meanwhile its
/// last readings are used until they are too old; then its devices have no readings.
class CollectorGuard : public Collector
{
public:
    /// The maximum age of readings.
    static constexpr std::chrono::nanoseconds oldest = std::chrono::seconds(75);
    /// The longest pause.
    static constexpr std::chrono::nanoseconds longestRest = std::chrono::minutes(5);

    CollectorGuard(std::unique_ptr<Collector> guarded, const MonotonicClock &stopwatch);

    bool collect(qint64 nowNs, SensorTrees &trees) override;

private:
    void ask(qint64 nowNs, SensorTrees &trees);
    [[nodiscard]] bool rests(qint64 nowNs) const;

    const std::unique_ptr<Collector> m_guarded;
    const MonotonicClock m_stopwatch;
    SensorTrees m_last;
    bool m_wasReadable = false;
    bool m_wasSlow = false;
    qint64 m_askedNs = 0;
    std::chrono::nanoseconds m_rest{0};
};
