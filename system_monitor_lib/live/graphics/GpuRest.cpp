#include "system_monitor_lib/live/graphics/GpuRest.h"

GpuRest::Turn GpuRest::turn(bool sleeps, std::optional<std::chrono::nanoseconds> sleepsAfter,
                            qint64 nowNs)
{
    if (sleeps) {
        *this = {};
        m_sleptNs = nowNs;
        return Turn::Sleeps;
    }
    if (m_sleptNs && nowNs >= *m_sleptNs && nowNs - *m_sleptNs < wakingTime.count())
        return Turn::Sleeps;
    m_sleptNs.reset();
    if (m_restNs && nowNs >= *m_restNs) {
        m_restNs.reset();
        m_pauseNs = nowNs + pause.count();
    }
    const bool pauses = m_pauseNs && nowNs < *m_pauseNs;
    const bool isIdle = m_idleNs && nowNs - *m_idleNs >= idleTime.count();
    if (!m_restNs && sleepsAfter && isIdle && !pauses)
        m_restNs = nowNs + sleepsAfter->count() + margin.count();
    return m_restNs ? Turn::LetAlone : Turn::Ask;
}

void GpuRest::setIdle(bool idle, qint64 nowNs)
{
    if (!idle)
        m_idleNs.reset();
    else if (!m_idleNs)
        m_idleNs = nowNs;
}
