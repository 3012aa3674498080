#pragma once

#include <chrono>

/// An allowance that is refilled at a constant rate up to a maximum (the burst). It may be
/// overdrawn; it then counts as empty until the debt is paid back. Times are from any clock that
/// never goes back.
class TokenBucket
{
public:
    /// The longest time for which the bucket stays empty, however much was taken.
    static constexpr std::chrono::seconds longestWait{10};

    /// Starts full. \a perSecond and \a burst are positive and in the same units as what is taken.
    TokenBucket(double perSecond, double burst);

    /// Takes \a amount, even if less is left.
    void take(double amount);

    /// Refills for the time since the last call, and returns whether nothing is left.
    bool isEmpty(std::chrono::nanoseconds now);

    /// How long the bucket stays empty after the last fill; 0 when it is not.
    std::chrono::nanoseconds wait() const;

private:
    double m_perSecond;
    double m_burst;
    double m_level;
    std::chrono::nanoseconds m_filled{0};
};
