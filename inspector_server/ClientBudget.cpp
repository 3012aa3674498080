#include "inspector_server/ClientBudget.h"

#include <algorithm>

void ClientBudget::takeTime(std::chrono::nanoseconds time)
{
    m_time.takeTime(time);
}

void ClientBudget::takeIn(qint64 bytes)
{
    m_in.take(static_cast<double>(bytes));
}

void ClientBudget::takeOut(qint64 bytes)
{
    m_out.take(static_cast<double>(bytes));
}

bool ClientBudget::isSpent(std::chrono::nanoseconds now)
{
    const bool noTime = m_time.isSpent(now);
    const bool noIn = m_in.isEmpty(now);
    const bool noOut = m_out.isEmpty(now);
    return noTime || noIn || noOut;
}

std::chrono::nanoseconds ClientBudget::wait() const
{
    return std::max({m_time.wait(), m_in.wait(), m_out.wait()});
}
