#include "deck_simulator/terminal/InterruptWatcher.h"
#include "tests/support/Waits.h"

#include <QSignalSpy>
#include <QtTest>

#include <csignal>

using namespace deck;

class tst_InterruptWatcher : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void reportsSignals_data();
    void reportsSignals();
    void reportsEverySignal();
    void leavesIgnoredSignalsIgnored();
    void putsTheHandlersBack();
};

namespace {

extern "C" void doNothing(int) {}

} // namespace

void tst_InterruptWatcher::reportsSignals_data()
{
    QTest::addColumn<int>("signalNumber");
    QTest::newRow("interrupt") << SIGINT;
    QTest::newRow("terminate") << SIGTERM;
    QTest::newRow("hang up") << SIGHUP;
}

void tst_InterruptWatcher::reportsSignals()
{
    QFETCH(int, signalNumber);
    struct sigaction before = {};
    struct sigaction plain = {};
    plain.sa_handler = SIG_DFL;
    sigaction(signalNumber, &plain, &before);

    InterruptWatcher watcher;
    QSignalSpy interrupted(&watcher, &InterruptWatcher::interrupted);
    QCOMPARE(raise(signalNumber), 0);
    // Only the event loop reports.
    QCOMPARE(interrupted.count(), 0);
    QTRY_COMPARE(interrupted.count(), 1);
    sigaction(signalNumber, &before, nullptr);
}

void tst_InterruptWatcher::reportsEverySignal()
{
    InterruptWatcher watcher;
    QSignalSpy interrupted(&watcher, &InterruptWatcher::interrupted);
    raise(SIGTERM);
    QTRY_COMPARE(interrupted.count(), 1);
    raise(SIGTERM);
    QTRY_COMPARE(interrupted.count(), 2);
}

void tst_InterruptWatcher::leavesIgnoredSignalsIgnored()
{
    struct sigaction before = {};
    struct sigaction ignoring = {};
    ignoring.sa_handler = SIG_IGN;
    sigaction(SIGHUP, &ignoring, &before);
    {
        InterruptWatcher watcher;
        QSignalSpy interrupted(&watcher, &InterruptWatcher::interrupted);
        raise(SIGHUP);
        raise(SIGTERM);
        QTRY_COMPARE(interrupted.count(), 1);
    }
    sigaction(SIGHUP, &before, nullptr);
}

void tst_InterruptWatcher::putsTheHandlersBack()
{
    struct sigaction before = {};
    struct sigaction own = {};
    own.sa_handler = doNothing;
    sigaction(SIGTERM, &own, &before);
    {
        const InterruptWatcher watcher;
        struct sigaction watching = {};
        sigaction(SIGTERM, nullptr, &watching);
        QVERIFY(watching.sa_handler != doNothing);
    }
    struct sigaction after = {};
    sigaction(SIGTERM, &before, &after);
    QVERIFY(after.sa_handler == doNothing);
}

QTEST_GUILESS_MAIN(tst_InterruptWatcher)
#include "tst_InterruptWatcher.moc"
