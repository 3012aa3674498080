#include "plugin/PassClock.h"

#include <QElapsedTimer>
#include <QtTest>

class tst_PassClock : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void countsMilliseconds();
};

void tst_PassClock::countsMilliseconds()
{
    // What one step of the system's clock may be.
    constexpr qint64 tolerance = 50;
    constexpr qint64 duration = 300;
    QElapsedTimer timer;
    timer.start();
    const qint64 begin = passTime();
    qint64 last = begin;
    while (!timer.hasExpired(duration)) {
        const qint64 now = passTime();
        QVERIFY(now >= last);
        last = now;
    }
    const qint64 passed = passTime() - begin;
    QVERIFY(passed >= duration - tolerance && passed <= timer.elapsed() + tolerance);
}

QTEST_APPLESS_MAIN(tst_PassClock)
#include "tst_passclock.moc"
