#pragma once

#include "inspector_server/TurnBudget.h"

#include <QElapsedTimer>
#include <QTimer>

#include <chrono>
#include <functional>

/// Schedules work for clients in the event loop: in short turns, so that keys are served in
/// between, and never while a budget is spent. It times out when a turn begins.
class TurnTimer : public QTimer
{
    Q_OBJECT

public:
    /// An upper estimate of the time that the system and Qt need to report one event of a socket,
    /// however little data it has.
    static constexpr std::chrono::microseconds wakeCost{50};

    explicit TurnTimer(QObject *parent = nullptr);

    /// The time since this timer was created.
    std::chrono::nanoseconds now() const;

    /// Begins the next turn at once, unless one is already scheduled.
    void startSoon();

    /// Repeats \a step in the turn that began at \a began, until it returns false because nothing
    /// is left to do. It also ends when the turn is over or the budget is spent, and then schedules
    /// the next turn. The time since \a began is taken from \a budget.
    void work(std::chrono::nanoseconds began, TurnBudget &budget,
              const std::function<bool()> &step);

private:
    void startAfter(std::chrono::nanoseconds wait);
    bool isOver(std::chrono::nanoseconds began) const;

    QElapsedTimer m_clock;
};
