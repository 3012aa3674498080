#include "system_monitor_lib/live/CollectorGuard.h"

#include <algorithm>

CollectorGuard::CollectorGuard(std::unique_ptr<Collector> guarded, const MonotonicClock &stopwatch)
    : m_guarded(std::move(guarded))
    , m_stopwatch(stopwatch)
{
}

bool CollectorGuard::rests(qint64 nowNs) const
{
    return m_rest.count() > 0 && nowNs >= m_askedNs && nowNs - m_askedNs < m_rest.count();
}

void CollectorGuard::ask(qint64 nowNs, SensorTrees &trees)
{
    // A hanging device may cost at most one second out of a hundred.
    constexpr qint64 share = 100;
    const qint64 start = m_stopwatch();
    // A copy costs some time, so it is kept only for a collector that may have to be paused.
    const bool isCopied = m_wasSlow;
    SensorTrees copy;
    m_wasReadable = m_guarded->collect(nowNs, isCopied ? copy : trees);
    const qint64 spent = m_stopwatch() - start;
    const bool isSlow = spent > m_guarded->patience().count();
    // A single slow sample is not an error: a library may have been loaded.
    const bool mustRest = isSlow && m_wasSlow;
    m_wasSlow = isSlow;
    m_askedNs = nowNs;
    m_rest = std::chrono::nanoseconds(
        mustRest ? std::min(spent, longestRest.count() / share) * share : 0);
    if (isCopied)
        trees.add(copy);
    m_last = std::move(copy);
}

bool CollectorGuard::collect(qint64 nowNs, SensorTrees &trees)
{
    if (!rests(nowNs)) {
        ask(nowNs, trees);
        return m_wasReadable;
    }
    if (nowNs - m_askedNs > oldest.count())
        m_last = m_last.withoutReadings();
    trees.add(m_last);
    return m_wasReadable;
}
