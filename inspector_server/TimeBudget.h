#pragma once

#include "inspector_server/TokenBucket.h"
#include "inspector_server/TurnBudget.h"

/// A budget of nothing but time.
class TimeBudget : public TurnBudget
{
public:
    /// Starts full. Both are positive.
    TimeBudget(std::chrono::nanoseconds perSecond, std::chrono::nanoseconds burst);

    void takeTime(std::chrono::nanoseconds time) override;
    bool isSpent(std::chrono::nanoseconds now) override;
    std::chrono::nanoseconds wait() const override;

private:
    TokenBucket m_bucket; ///< In nanoseconds.
};
