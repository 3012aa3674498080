#include "shell/ConsoleTrigger.h"
#include "tests/support/Waits.h"

#include <QSignalSpy>
#include <QSocketNotifier>
#include <QtTest>

#include <csignal>
#include <fcntl.h>
#include <unistd.h>

/// The trigger is the signal SIGUSR1.
class tst_ConsoleTrigger : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void firesThroughTheEventLoop();
    void survivesAStormOfSignals();
    void keepsAPressUntilStarted();
    void staysSilentWithSomethingElseInItsPipesPlace();
};

void tst_ConsoleTrigger::firesThroughTheEventLoop()
{
    ConsoleTrigger trigger;
    trigger.start();
    const QSignalSpy pressed(&trigger, &ConsoleTrigger::sigPressed);
    std::raise(SIGUSR1);
    QCOMPARE(pressed.size(), 0);
    QTRY_COMPARE(pressed.size(), 1);
    std::raise(SIGUSR1);
    QTRY_COMPARE(pressed.size(), 2);
}

void tst_ConsoleTrigger::survivesAStormOfSignals()
{
    ConsoleTrigger trigger;
    trigger.start();
    const QSignalSpy pressed(&trigger, &ConsoleTrigger::sigPressed);
    for (int i = 0; i < 100000; ++i)
        std::raise(SIGUSR1);
    QTRY_VERIFY(!pressed.isEmpty());
    const auto afterTheStorm = pressed.size();
    std::raise(SIGUSR1);
    QTRY_COMPARE(pressed.size(), afterTheStorm + 1);
}

void tst_ConsoleTrigger::keepsAPressUntilStarted()
{
    ConsoleTrigger trigger;
    std::raise(SIGUSR1);
    QCoreApplication::processEvents();
    const QSignalSpy pressed(&trigger, &ConsoleTrigger::sigPressed);
    QCoreApplication::processEvents();
    QCOMPARE(pressed.size(), 0);
    trigger.start();
    QTRY_COMPARE(pressed.size(), 1);
}

void tst_ConsoleTrigger::staysSilentWithSomethingElseInItsPipesPlace()
{
    ConsoleTrigger trigger;
    trigger.start();
    const QSignalSpy pressed(&trigger, &ConsoleTrigger::sigPressed);
    const auto *const notifier = trigger.findChild<QSocketNotifier *>();
    QVERIFY(notifier && notifier->isEnabled());

    // It always has an end to be read.
    const int nowhere = open("/dev/null", O_RDONLY | O_CLOEXEC);
    QVERIFY(dup2(nowhere, static_cast<int>(notifier->socket())) >= 0);
    close(nowhere);
    QTRY_VERIFY(!notifier->isEnabled());
    QCOMPARE(pressed.size(), 0);
}

QTEST_GUILESS_MAIN(tst_ConsoleTrigger)
#include "tst_consoletrigger.moc"
