#include "inspector_server/ClientBudget.h"
#include "inspector_server/TokenBucket.h"

#include <QVector>
#include <QtTest>

using namespace std::chrono_literals;
using std::chrono::nanoseconds;

namespace {

/// At \a at, \a taken is taken; then the bucket must have the wait \a wait.
struct Step
{
    nanoseconds at;
    double taken;
    nanoseconds wait; ///< 0 when it is not empty.
};

} // namespace

Q_DECLARE_METATYPE(QVector<Step>)
Q_DECLARE_METATYPE(std::chrono::nanoseconds)

class tst_TokenBucket : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fills_data();
    void fills();
    void isFullAgainOnceItHasWaited();
    void budgetIsSpentByAnyOfItsKinds_data();
    void budgetIsSpentByAnyOfItsKinds();
};

void tst_TokenBucket::fills_data()
{
    QTest::addColumn<QVector<Step>>("steps");
    // 100 per second, a burst of 50. A wait is one nanosecond longer than the debt takes.
    QTest::newRow("full at first") << QVector<Step>{{0s, 49, 0ns}, {0s, 1, 1ns}};
    QTest::newRow("late at first") << QVector<Step>{{1h, 49, 0ns}, {1h, 1, 1ns}};
    QTest::newRow("with time") << QVector<Step>{{0s, 50, 1ns}, {100ms, 9, 0ns}, {100ms, 1, 1ns}};
    QTest::newRow("no more than a burst")
        << QVector<Step>{{0s, 50, 1ns}, {1h, 49, 0ns}, {1h, 1, 1ns}};
    QTest::newRow("overdrawn") << QVector<Step>{
        {0s, 80, 300ms + 1ns}, {200ms, 0, 100ms + 1ns}, {300ms, 0, 1ns}, {301ms, 0, 0ns}};
    QTest::newRow("overdrawn again") << QVector<Step>{{0s, 80, 300ms + 1ns}, {0s, 20, 500ms + 1ns}};
    QTest::newRow("by far") << QVector<Step>{{0s, 1e15, TokenBucket::longestWait + 1ns}};
    QTest::newRow("a clock that stands")
        << QVector<Step>{{1s, 50, 1ns}, {1s, 0, 1ns}, {1s, 0, 1ns}};
    QTest::newRow("a clock set back")
        << QVector<Step>{{1s, 50, 1ns}, {0s, 0, 1ns}, {1s, 0, 1ns}, {1s + 1ms, 0, 0ns}};
    QTest::newRow("years later") << QVector<Step>{{0s, 60, 100ms + 1ns}, {100000h, 49, 0ns}};
}

void tst_TokenBucket::fills()
{
    QFETCH(QVector<Step>, steps);
    TokenBucket bucket(100, 50);
    for (const Step &step : steps) {
        bucket.isEmpty(step.at);
        bucket.take(step.taken);
        QCOMPARE(bucket.isEmpty(step.at), step.wait > 0ns);
        QCOMPARE(bucket.wait().count(), step.wait.count());
    }
}

void tst_TokenBucket::isFullAgainOnceItHasWaited()
{
    for (const double rate : {1.0, 3.0, 65e6, 4.0 * 1024 * 1024}) {
        TokenBucket bucket(rate, rate / 10);
        bucket.take(rate * 1.234567);
        QVERIFY(bucket.isEmpty(0ns));
        const nanoseconds wait = bucket.wait();
        QVERIFY(bucket.isEmpty(wait - 2us));
        QVERIFY(!bucket.isEmpty(wait));
    }
}

void tst_TokenBucket::budgetIsSpentByAnyOfItsKinds_data()
{
    QTest::addColumn<nanoseconds>("time");
    QTest::addColumn<qint64>("in");
    QTest::addColumn<qint64>("out");
    QTest::addColumn<nanoseconds>("wait");
    constexpr nanoseconds second = ClientBudget::timePerSecond;
    QTest::newRow("nothing") << 0ns << 0LL << 0LL << 0ns;
    QTest::newRow("bursts but for one")
        << nanoseconds(ClientBudget::timeBurst) - 1ns << ClientBudget::inBurst - 1
        << ClientBudget::outBurst - 1 << 0ns;
    QTest::newRow("time") << ClientBudget::timeBurst + second << 0LL << 0LL << 1s + 1ns;
    QTest::newRow("in") << 0ns << ClientBudget::inBurst + 2 * ClientBudget::inPerSecond << 0LL
                        << 2s + 1ns;
    QTest::newRow("out") << 0ns << 0LL << ClientBudget::outBurst + 3 * ClientBudget::outPerSecond
                         << 3s + 1ns;
    QTest::newRow("all") << ClientBudget::timeBurst + second
                         << ClientBudget::inBurst + 3 * ClientBudget::inPerSecond
                         << ClientBudget::outBurst + 2 * ClientBudget::outPerSecond << 3s + 1ns;
}

void tst_TokenBucket::budgetIsSpentByAnyOfItsKinds()
{
    QFETCH(nanoseconds, time);
    QFETCH(qint64, in);
    QFETCH(qint64, out);
    QFETCH(nanoseconds, wait);
    ClientBudget budget;
    budget.takeTime(time);
    budget.takeIn(in);
    budget.takeOut(out);
    QCOMPARE(budget.isSpent(0ns), wait > 0ns);
    QCOMPARE(budget.wait().count(), wait.count());
    QCOMPARE(budget.isSpent(wait), false);
}

QTEST_APPLESS_MAIN(tst_TokenBucket)
#include "tst_tokenbucket.moc"
