#include "shell/ConsoleTrigger.h"

#include <QSignalSpy>
#include <QtTest>

#include <csignal>

/// The trigger is the signal SIGUSR1.
class tst_ConsoleTrigger : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void firesThroughTheEventLoop();
    void survivesAStormOfSignals();
};

void tst_ConsoleTrigger::firesThroughTheEventLoop()
{
    const ConsoleTrigger trigger;
    const QSignalSpy pressed(&trigger, &ConsoleTrigger::pressed);
    std::raise(SIGUSR1);
    QCOMPARE(pressed.size(), 0);
    QTRY_COMPARE(pressed.size(), 1);
    std::raise(SIGUSR1);
    QTRY_COMPARE(pressed.size(), 2);
}

void tst_ConsoleTrigger::survivesAStormOfSignals()
{
    const ConsoleTrigger trigger;
    const QSignalSpy pressed(&trigger, &ConsoleTrigger::pressed);
    for (int i = 0; i < 100000; ++i)
        std::raise(SIGUSR1);
    QTRY_VERIFY(!pressed.isEmpty());
    const int afterTheStorm = pressed.size();
    std::raise(SIGUSR1);
    QTRY_COMPARE(pressed.size(), afterTheStorm + 1);
}

QTEST_GUILESS_MAIN(tst_ConsoleTrigger)
#include "tst_consoletrigger.moc"
