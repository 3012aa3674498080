#include "system_monitor_lib/live/processor/CoreLoads.h"
#include "tests/unit/system_monitor_lib/labels.h"

#include <QtTest>

using Cores = std::vector<CoreTimes>;
Q_DECLARE_METATYPE(Cores)
Q_DECLARE_METATYPE(CpuModes)

class CoreLoadsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void computesLoads_data();
    void computesLoads();
    void computesShares_data();
    void computesShares();
    void keepsTheModelOfTheProcessor();
};

void CoreLoadsTest::computesLoads_data()
{
    QTest::addColumn<Cores>("previous");
    QTest::addColumn<Cores>("current");
    QTest::addColumn<QStringList>("expected");

    const Cores two{{0, {100, 100}}, {1, {100, 100}}};
    QTest::newRow("two cores") << two << Cores{{0, {150, 150}}, {1, {175, 125}}}
                               << texts({"t | Busiest Core Load = 75 %", "t | Core #0 Load = 50 %",
                                         "t | Core #1 Load = 75 %"});
    QTest::newRow("nothing to do") << two << Cores{{0, {100, 200}}, {1, {100, 200}}}
                                   << texts({"t | Busiest Core Load = 0 %",
                                             "t | Core #0 Load = 0 %", "t | Core #1 Load = 0 %"});
    QTest::newRow("a core goes offline, another comes")
        << Cores{{0, {1, 1}}, {1, {1, 1}}, {5, {0, 0}}}
        << Cores{{0, {2, 2}}, {3, {9, 9}}, {5, {1, 3}}}
        << texts({"t | Busiest Core Load = 50 %", "t | Core #0 Load = 50 %",
                  "t | Core #5 Load = 25 %"});
    QTest::newRow("a core started anew")
        << two << Cores{{0, {3, 3}}, {1, {101, 103}}}
        << texts({"t | Busiest Core Load = 25 %", "t | Core #1 Load = 25 %"});
    QTest::newRow("no sample before") << Cores{} << two << texts({"t"});
    QTest::newRow("no sample now") << two << Cores{} << texts({"t"});
}

void CoreLoadsTest::computesLoads()
{
    QFETCH(const Cores, previous);
    QFETCH(const Cores, current);
    QStringList lines;
    describe(QStringLiteral("t"), coreLoadLabels(previous, current), lines);
    QTEST(lines, "expected");
}

void CoreLoadsTest::computesShares_data()
{
    QTest::addColumn<CpuModes>("current");
    QTest::addColumn<QStringList>("expected");

    QTest::newRow("all three") << CpuModes{130, 60, 15, 1100}
                               << texts({"t | System Load = 10 %", "t | User Load = 30 %",
                                         "t | Waiting for Disks = 5 %"});
    QTest::newRow("waiting went back a little")
        << CpuModes{130, 60, 9, 1100}
        << texts({"t | System Load = 10 %", "t | User Load = 30 %", "t | Waiting for Disks = 0 %"});
    QTest::newRow("waiting is not counted")
        << CpuModes{130, 60, {}, 1100} << texts({"t | System Load = 10 %", "t | User Load = 30 %"});
    QTest::newRow("more than there was")
        << CpuModes{300, 60, {}, 1100}
        << texts({"t | System Load = 10 %", "t | User Load = 100 %"});
    QTest::newRow("no time passed") << CpuModes{100, 50, 10, 1000} << texts({"t"});
    QTest::newRow("started anew") << CpuModes{1, 1, 1, 10} << texts({"t"});
    QTest::newRow("user time went back") << CpuModes{99, 60, 10, 1100} << texts({"t"});
    QTest::newRow("system time went back") << CpuModes{130, 49, 10, 1100} << texts({"t"});
}

void CoreLoadsTest::computesShares()
{
    QFETCH(const CpuModes, current);
    QStringList lines;
    describe(QStringLiteral("t"), cpuModeLabels({100, 50, 10, 1000}, current), lines);
    QTEST(lines, "expected");
}

void CoreLoadsTest::keepsTheModelOfTheProcessor()
{
    QVERIFY(!processorGroup().contains(QLatin1String("CPU")));
}

QTEST_APPLESS_MAIN(CoreLoadsTest)
#include "tst_coreloads.moc"
