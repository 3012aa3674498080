#pragma once

#include <chrono>

/// An allowance that fills at a fixed rate up to a burst. It may be overdrawn: then it is empty
/// until the debt is filled up too. Times are those of any clock that does not go back.
class TokenBucket
{
public:
    /// However much was taken, the bucket is no longer empty after this time.
    static constexpr std::chrono::seconds longestWait{10};

    /// Begins full. \a perSecond and \a burst are in units of what is taken, and positive.
    TokenBucket(double perSecond, double burst);

    /// Takes \a amount, whether there is as much or not.
    void take(double amount);

    /// Fills up what \a now is later than at the last call, and tells whether nothing is left.
    bool isEmpty(std::chrono::nanoseconds now);

    /// How long the bucket stays empty after the last fill; 0 when it is not.
    std::chrono::nanoseconds wait() const;

private:
    double m_perSecond;
    double m_burst;
    double m_level;
    std::chrono::nanoseconds m_filled{0};
};
