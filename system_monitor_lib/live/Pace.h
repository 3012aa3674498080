#pragma once

#include <QtGlobal>

#include <chrono>

/// Says when something that is done rarely is due again.
class Pace
{
public:
    explicit Pace(std::chrono::nanoseconds period);

    /// True at first, and whenever the period has passed since the last time that it was true.
    bool isDue(qint64 nowNs);
    /// Makes the next question true.
    void expire() { m_started = false; }
    /// Holds from the next time on.
    void setPeriod(std::chrono::nanoseconds period) { m_period = period; }

private:
    std::chrono::nanoseconds m_period;
    qint64 m_lastNs = 0;
    bool m_started = false;
};

/// How often the devices of the machine are listed anew.
inline constexpr std::chrono::nanoseconds listingPeriod = std::chrono::seconds(10);
