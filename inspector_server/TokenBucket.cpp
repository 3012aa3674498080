#include "inspector_server/TokenBucket.h"

#include <algorithm>
#include <cmath>

using Seconds = std::chrono::duration<double>;

TokenBucket::TokenBucket(double perSecond, double burst)
    : m_perSecond(perSecond)
    , m_burst(burst)
    , m_level(burst)
{
}

void TokenBucket::take(double amount)
{
    const double deepestDebt = m_perSecond * Seconds(longestWait).count();
    m_level = std::max(m_level - amount, -deepestDebt);
}

bool TokenBucket::isEmpty(std::chrono::nanoseconds now)
{
    if (now > m_filled) {
        m_level = std::min(m_level + m_perSecond * Seconds(now - m_filled).count(), m_burst);
        m_filled = now;
    }
    return m_level <= 0;
}

std::chrono::nanoseconds TokenBucket::wait() const
{
    if (m_level > 0)
        return std::chrono::nanoseconds(0);
    // One more, so that something is left by then.
    const double nanoseconds = -m_level / m_perSecond * std::nano::den;
    return std::chrono::nanoseconds(std::llround(std::ceil(nanoseconds)) + 1);
}
