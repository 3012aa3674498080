#include "inspector_server/TimeBudget.h"

namespace {

double units(std::chrono::nanoseconds time)
{
    return static_cast<double>(time.count());
}

} // namespace

TimeBudget::TimeBudget(std::chrono::nanoseconds perSecond, std::chrono::nanoseconds burst)
    : m_bucket(units(perSecond), units(burst))
{
}

void TimeBudget::takeTime(std::chrono::nanoseconds time)
{
    m_bucket.take(units(time));
}

bool TimeBudget::isSpent(std::chrono::nanoseconds now)
{
    return m_bucket.isEmpty(now);
}

std::chrono::nanoseconds TimeBudget::wait() const
{
    return m_bucket.wait();
}
