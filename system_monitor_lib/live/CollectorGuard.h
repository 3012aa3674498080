#pragma once

#include "system_monitor_lib/live/Collector.h"
#include "system_monitor_lib/live/MonotonicClock.h"

#include <memory>

/// Keeps a collector that has become slow, such as one whose device hangs, from stopping the
/// others: after two slow samples in a row, and after each slow one from then on, it rests. Its
/// last readings stand in meanwhile, until they are too old; then its devices have none.
class CollectorGuard : public Collector
{
public:
    /// How old readings may become.
    static constexpr std::chrono::nanoseconds oldest = std::chrono::seconds(75);
    /// The longest rest.
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
