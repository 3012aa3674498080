#include "inspector_server/TurnTimer.h"
#include "tests/support/Waits.h"

#include <QElapsedTimer>
#include <QtTest>

using namespace std::chrono_literals;
using std::chrono::nanoseconds;

namespace {

/// A budget that is spent after a number of steps.
class CountedBudget : public TurnBudget
{
public:
    explicit CountedBudget(int steps, nanoseconds waits = 0ns)
        : m_left(steps)
        , m_wait(waits)
    {
    }

    void takeTime(nanoseconds time) override
    {
        --m_left;
        taken += time;
    }
    bool isSpent(nanoseconds) override { return m_left == 0; }
    nanoseconds wait() const override { return m_wait; }

    nanoseconds taken{0};

private:
    int m_left;
    nanoseconds m_wait;
};

void spend(std::chrono::milliseconds time)
{
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < time.count())
        ;
}

constexpr int unlimited = -1;

/// A turn that begins in the future is never over, however slow the machine is.
nanoseconds never(const TurnTimer &timer)
{
    return timer.now() + 1h;
}

} // namespace

class tst_TurnTimer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void stopsWhenNothingIsLeft();
    void goesOnSoonWhenTheTurnIsOver();
    void waitsForTheBudget_data();
    void waitsForTheBudget();
    void takesTheTimeSinceTheTurnBegan();
    void schedulesOneTurn();
};

void tst_TurnTimer::stopsWhenNothingIsLeft()
{
    TurnTimer timer;
    CountedBudget budget(unlimited);
    int left = 3;
    timer.work(never(timer), budget, [&left] { return left-- > 0; });
    QCOMPARE(left, -1);
    QVERIFY(!timer.isActive());
}

void tst_TurnTimer::goesOnSoonWhenTheTurnIsOver()
{
    TurnTimer timer;
    CountedBudget budget(unlimited);
    int steps = 0;
    timer.work(timer.now(), budget, [&steps] {
        spend(1ms);
        return ++steps < 1000;
    });
    QVERIFY2(steps <= 5, qPrintable(QString::number(steps)));
    QVERIFY(timer.isActive());
    QCOMPARE(timer.interval(), 0);
}

void tst_TurnTimer::waitsForTheBudget_data()
{
    QTest::addColumn<int>("steps");
    QTest::addColumn<int>("waitMicroseconds");
    QTest::addColumn<int>("interval");
    QTest::newRow("short wait") << 2 << 300 << 20;
    QTest::newRow("long wait") << 2 << 70'001 << 71;
    QTest::newRow("spent before") << 0 << 50'000 << 50;
}

void tst_TurnTimer::waitsForTheBudget()
{
    QFETCH(int, steps);
    QFETCH(int, waitMicroseconds);
    TurnTimer timer;
    CountedBudget budget(steps, std::chrono::microseconds(waitMicroseconds));
    int done = 0;
    timer.work(never(timer), budget, [&done] { return ++done < 1000; });
    QCOMPARE(done, steps);
    QVERIFY(timer.isActive());
    QTEST(timer.interval(), "interval");
}

/// What is done before the first step, such as reading from the network, counts as well.
void tst_TurnTimer::takesTheTimeSinceTheTurnBegan()
{
    TurnTimer timer;
    CountedBudget budget(unlimited);
    const nanoseconds began = never(timer);
    int left = 3;
    timer.work(began, budget, [&left] { return left-- > 0; });
    QVERIFY(budget.taken < 0ns);
    QVERIFY(began + budget.taken <= timer.now());
    QVERIFY(began + budget.taken > timer.now() - 1min);
}

void tst_TurnTimer::schedulesOneTurn()
{
    TurnTimer timer;
    timer.startSoon();
    const int id = timer.timerId();
    timer.startSoon();
    QCOMPARE(timer.timerId(), id);
    QSignalSpy turns(&timer, &QTimer::timeout);
    QTRY_COMPARE(turns.size(), 1);
    QVERIFY(!timer.isActive());
}

QTEST_GUILESS_MAIN(tst_TurnTimer)
#include "tst_turntimer.moc"
