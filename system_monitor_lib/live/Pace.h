#pragma once

#include <QtGlobal>

#include <chrono>

/// Tells when something that is done rarely is due again.
class Pace
{
public:
    explicit Pace(std::chrono::nanoseconds period);

    /// True at first, and whenever the period has passed since it was last true.
    bool isDue(qint64 nowNs);
    /// Makes the next call return true.
    void expire() { m_started = false; }
    /// Takes effect the next time.
    void setPeriod(std::chrono::nanoseconds period) { m_period = period; }

private:
    std::chrono::nanoseconds m_period;
    qint64 m_lastNs = 0;
    bool m_started = false;
};

/// How often the list of devices is refreshed.
inline constexpr std::chrono::nanoseconds listingPeriod = std::chrono::seconds(10);
