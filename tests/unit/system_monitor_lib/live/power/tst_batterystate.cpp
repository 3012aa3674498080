#include "system_monitor_lib/live/power/BatteryState.h"
#include "tests/unit/system_monitor_lib/labels.h"

#include <QtTest>

namespace {

/// Stands for "nothing".
constexpr double none = -1;

} // namespace

class BatteryStateTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void givesLabels();
    void leavesOutWhatIsUnknown();
    void givesMains();
    void computesTheTimeLeft_data();
    void computesTheTimeLeft();
};

void BatteryStateTest::givesLabels()
{
    const QJsonObject labels = batteryLabels({83.0, -12.5, 199.9, 312, 91.5});
    QStringList lines;
    describe(QStringLiteral("t"), labels, lines);
    QCOMPARE(lines, (texts({"t | Battery Charge = 83 %", "t | Battery Cycles = 312 ",
                            "t | Battery Health = 91.5 %", "t | Battery Power = -12.5 W",
                            "t | Battery Time Left = 199 min"})));
    for (const QString &label : labels.keys())
        QVERIFY2(batteryLabelNames().contains(label), qPrintable(label));
}

void BatteryStateTest::leavesOutWhatIsUnknown()
{
    QVERIFY(batteryLabels({}).isEmpty());
}

void BatteryStateTest::givesMains()
{
    QCOMPARE(value(mainsLabels(true), QStringLiteral("Mains Power")), 1.0);
    QCOMPARE(value(mainsLabels(false), QStringLiteral("Mains Power")), 0.0);
}

void BatteryStateTest::computesTheTimeLeft_data()
{
    QTest::addColumn<double>("wattHours");
    QTest::addColumn<double>("watts");
    QTest::addColumn<double>("minutes");
    QTest::newRow("an hour") << 20.0 << 20.0 << 60.0;
    QTest::newRow("half an hour") << 10.0 << 20.0 << 30.0;
    QTest::newRow("empty") << 0.0 << 20.0 << 0.0;
    QTest::newRow("at rest") << 50.0 << 0.0 << none;
    QTest::newRow("charging") << 50.0 << -20.0 << none;
    QTest::newRow("a week and more") << 50.0 << 0.1 << none;
    QTest::newRow("less than nothing") << -1.0 << 20.0 << none;
}

void BatteryStateTest::computesTheTimeLeft()
{
    QFETCH(const double, wattHours);
    QFETCH(const double, watts);
    QTEST(batteryMinutes(wattHours, watts).value_or(none), "minutes");
}

QTEST_APPLESS_MAIN(BatteryStateTest)
#include "tst_batterystate.moc"
