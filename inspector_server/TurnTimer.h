#pragma once

#include <QElapsedTimer>
#include <QTimer>

#include <chrono>

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

    /// Begins the next turn after \a wait, or a little later, because many short waits would cost
    /// more than the work itself.
    void startAfter(std::chrono::nanoseconds wait);

    /// Whether a turn that began at \a began has to end, so that others get their turn.
    bool isOver(std::chrono::nanoseconds began) const;

private:
    QElapsedTimer m_clock;
};
