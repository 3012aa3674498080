#include "system_monitor_lib/live/system/SystemState.h"
#include "tests/unit/system_monitor_lib/labels.h"

#include <QtTest>

class SystemStateTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void givesLabels();
    void leavesOutWhatIsUnknown();
    void comesBeforeTheMemory();
};

void SystemStateTest::givesLabels()
{
    QStringList lines;
    describe(QStringLiteral("t"), systemStateLabels({90'359.9, 312, 0.5, 0.25, 0.125, 2}), lines);
    QCOMPARE(lines, (texts({"t | Load Average 1 min = 0.5 ", "t | Load Average 15 min = 0.125 ",
                            "t | Load Average 5 min = 0.25 ", "t | Processes = 312 ",
                            "t | Uptime = 25 h", "t | User Sessions = 2 "})));
    SystemState later;
    later.uptimeSeconds = 90'360;
    QCOMPARE(value(systemStateLabels(later), QStringLiteral("Uptime")), 25.1);
}

void SystemStateTest::leavesOutWhatIsUnknown()
{
    QVERIFY(systemStateLabels({}).isEmpty());
}

void SystemStateTest::comesBeforeTheMemory()
{
    QVERIFY(systemStateGroup() < QStringLiteral("System: memory"));
}

QTEST_APPLESS_MAIN(SystemStateTest)
#include "tst_systemstate.moc"
