#pragma once

#include <QElapsedTimer>
#include <QTimer>

#include <chrono>

/// Gives work for clients its turns in the event loop: short ones, so that keys come in between,
/// and none while a budget is spent. It times out when a turn begins.
class TurnTimer : public QTimer
{
    Q_OBJECT

public:
    /// What the system and Qt take to tell of one event of a socket, however little has come; more
    /// than was seen.
    static constexpr std::chrono::microseconds wakeCost{50};

    explicit TurnTimer(QObject *parent = nullptr);

    /// Since this timer was made.
    std::chrono::nanoseconds now() const;

    /// The next turn begins at once, unless one is already to come.
    void startSoon();

    /// The next turn begins after \a wait, or a little later: many short waits would cost more than
    /// what they are for.
    void startAfter(std::chrono::nanoseconds wait);

    /// Whether a turn that \a began is to end, so that others get theirs.
    bool isOver(std::chrono::nanoseconds began) const;

private:
    QElapsedTimer m_clock;
};
