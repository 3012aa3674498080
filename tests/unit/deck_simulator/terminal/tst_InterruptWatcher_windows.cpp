#include "deck_simulator/terminal/InterruptWatcher.h"
#include "tests/support/Waits.h"

#include <QSignalSpy>
#include <QtTest>

#include <windows.h>

using namespace deck;

class tst_InterruptWatcher_windows : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void reportsKeys_data();
    void reportsKeys();
};

void tst_InterruptWatcher_windows::initTestCase()
{
    if (!GetConsoleWindow() && !AllocConsole())
        QSKIP("There is no console to be had here");
}

void tst_InterruptWatcher_windows::reportsKeys_data()
{
    QTest::addColumn<uint>("event");
    QTest::newRow("Ctrl+C") << uint(CTRL_C_EVENT);
    QTest::newRow("Ctrl+Break") << uint(CTRL_BREAK_EVENT);
}

/// Without the watcher each of them would end this program.
void tst_InterruptWatcher_windows::reportsKeys()
{
    QFETCH(uint, event);
    for (int life = 0; life < 2; ++life) {
        InterruptWatcher watcher;
        QSignalSpy interrupted(&watcher, &InterruptWatcher::interrupted);
        for (int times = 1; times <= 2; ++times) {
            QVERIFY(GenerateConsoleCtrlEvent(event, 0));
            // Only the event loop reports.
            QCOMPARE(interrupted.count(), times - 1);
            QTRY_COMPARE(interrupted.count(), times);
        }
    }
}

QTEST_GUILESS_MAIN(tst_InterruptWatcher_windows)
#include "tst_InterruptWatcher_windows.moc"
