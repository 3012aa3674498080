#pragma once

#include <chrono>

/// What work in turns may cost (TurnTimer). Times are from any clock that never goes back.
class TurnBudget
{
public:
    virtual ~TurnBudget() = default;

    virtual void takeTime(std::chrono::nanoseconds time) = 0;

    /// Whether all work has to wait.
    virtual bool isSpent(std::chrono::nanoseconds now) = 0;

    /// The time until the budget is available again, as of the last call of isSpent(); 0 when it
    /// is.
    virtual std::chrono::nanoseconds wait() const = 0;
};
