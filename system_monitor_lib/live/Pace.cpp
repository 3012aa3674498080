#include "system_monitor_lib/live/Pace.h"

Pace::Pace(std::chrono::nanoseconds period)
    : m_period(period)
{
}

bool Pace::isDue(qint64 nowNs)
{
    const bool wentBack = nowNs < m_lastNs;
    if (m_started && !wentBack && nowNs - m_lastNs < m_period.count())
        return false;
    m_started = true;
    m_lastNs = nowNs;
    return true;
}
