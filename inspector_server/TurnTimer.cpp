#include "inspector_server/TurnTimer.h"

#include <algorithm>

using namespace std::chrono_literals;

namespace {

constexpr std::chrono::milliseconds longestTurn = 4ms;
constexpr std::chrono::milliseconds shortestWait = 20ms;

} // namespace

TurnTimer::TurnTimer(QObject *parent)
    : QTimer(parent)
{
    setSingleShot(true);
    m_clock.start();
}

std::chrono::nanoseconds TurnTimer::now() const
{
    return std::chrono::nanoseconds(m_clock.nsecsElapsed());
}

void TurnTimer::startSoon()
{
    if (!isActive())
        start(0ms);
}

void TurnTimer::work(std::chrono::nanoseconds began, TurnBudget &budget,
                     const std::function<bool()> &step)
{
    std::chrono::nanoseconds before = began;
    while (!budget.isSpent(before)) {
        if (isOver(began)) {
            startSoon();
            return;
        }
        if (!step())
            return;
        const std::chrono::nanoseconds after = now();
        budget.takeTime(after - before);
        before = after;
    }
    startAfter(budget.wait());
}

/// Many short waits would cost more than the work itself.
void TurnTimer::startAfter(std::chrono::nanoseconds wait)
{
    start(std::max(std::chrono::ceil<std::chrono::milliseconds>(wait), shortestWait));
}

bool TurnTimer::isOver(std::chrono::nanoseconds began) const
{
    return now() - began >= longestTurn;
}
