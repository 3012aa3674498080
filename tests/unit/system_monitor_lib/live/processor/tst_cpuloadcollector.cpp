#include "system_monitor_lib/live/processor/CpuLoadCollector.h"
#include "tests/support/Waits.h"
#include "tests/unit/system_monitor_lib/labels.h"

#include <QtTest>

Q_DECLARE_METATYPE(CpuLoadFigure)

namespace {

const QString label = QStringLiteral("Total CPU Usage");

} // namespace

/// Which of the system's figure and the processors' times counts.
class CpuLoadCollectorTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void figureCounts_data();
    void figureCounts();
    void timesCountWithoutFigure_data();
    void timesCountWithoutFigure();
    void figureComesBeforeTimes();
    void figureOfALongPauseDoesNotCount();
    void figureAloneIsEnough();
};

void CpuLoadCollectorTest::figureCounts_data()
{
    QTest::addColumn<double>("figure");
    QTest::addColumn<double>("load");
    QTest::newRow("idle") << 0.0 << 0.0;
    QTest::newRow("busy") << 42.5 << 42.5;
    QTest::newRow("more than the nominal clock does") << 131.7 << 100.0;
    QTest::newRow("endless") << qInf() << 100.0;
}

void CpuLoadCollectorTest::figureCounts()
{
    QFETCH(const double, figure);
    CpuLoadCollector collector({}, QStringLiteral("CPU"),
                               [figure](qint64 /*nowNs*/) { return figure; });
    SensorTrees trees;
    QVERIFY(collector.collect(0, trees));
    const QJsonObject tree = trees.tree(Query::CpuInfo);
    QTEST(value(tree, label), "load");
    QCOMPARE(units(tree, label), QStringLiteral("%"));
    QCOMPARE(trees.tree(Query::AllSensorsData).value(QStringLiteral("CPU")).toObject(), tree);
}

void CpuLoadCollectorTest::timesCountWithoutFigure_data()
{
    QTest::addColumn<CpuLoadFigure>("figure");
    QTest::newRow("no such figure") << CpuLoadFigure();
    QTest::newRow("not at the moment")
        << CpuLoadFigure([](qint64 /*nowNs*/) { return std::nullopt; });
    QTest::newRow("no number") << CpuLoadFigure([](qint64 /*nowNs*/) { return qQNaN(); });
    QTest::newRow("negative") << CpuLoadFigure([](qint64 /*nowNs*/) { return -1.0; });
}

void CpuLoadCollectorTest::timesCountWithoutFigure()
{
    QFETCH(const CpuLoadFigure, figure);
    CpuLoadCollector collector({}, QStringLiteral("CPU"), figure);
    qint64 now = 0;
    const auto load = [&] {
        SensorTrees trees;
        collector.collect(now += 1'000'000, trees);
        return value(trees.tree(Query::CpuInfo), label);
    };
    QCOMPARE(load(), -1.0);
    // The machine's clocks of the processors advance in steps.
    double last = -1;
    QTRY_VERIFY(last >= 0 || (last = load()) >= 0);
    QVERIFY(last <= 100);
}

void CpuLoadCollectorTest::figureComesBeforeTimes()
{
    std::optional<double> figure;
    CpuLoadCollector collector({}, QStringLiteral("CPU"),
                               [&figure](qint64 /*nowNs*/) { return figure; });
    qint64 now = 0;
    const auto load = [&] {
        SensorTrees trees;
        collector.collect(now += 1'000'000, trees);
        return value(trees.tree(Query::CpuInfo), label);
    };
    // No processor is that busy.
    constexpr double absurd = 1e-9;
    double last = -1;
    QTRY_VERIFY(last >= 0 || (last = load()) >= 0);
    figure = absurd;
    // The times advance meanwhile.
    CpuTimesReader reader({});
    const auto total = [&reader] {
        const CpuTimes times = reader.read().value_or(CpuTimes());
        return times.busy + times.idle;
    };
    const quint64 before = total();
    QTRY_VERIFY(total() != before);
    QCOMPARE(load(), absurd);
}

void CpuLoadCollectorTest::figureOfALongPauseDoesNotCount()
{
    constexpr qint64 second = 1'000'000'000;
    CpuLoadCollector collector({}, QStringLiteral("CPU"), [](qint64 /*nowNs*/) { return 7.0; });
    const auto loadAt = [&collector](qint64 seconds) {
        SensorTrees trees;
        collector.collect(seconds * second, trees);
        return value(trees.tree(Query::CpuInfo), label);
    };
    QCOMPARE(loadAt(1), 7.0);
    QCOMPARE(loadAt(11), 7.0);
    QCOMPARE(loadAt(22), -1.0);
    QCOMPARE(loadAt(23), 7.0);
}

void CpuLoadCollectorTest::figureAloneIsEnough()
{
    MachineRoots nowhere;
    nowhere.proc = QStringLiteral("/nowhere");
    CpuLoadCollector collector(nowhere, QStringLiteral("CPU"),
                               [](qint64 /*nowNs*/) { return 7.0; });
    for (qint64 now = 0; now < 3; ++now) {
        SensorTrees trees;
        QVERIFY(collector.collect(now, trees));
        QCOMPARE(value(trees.tree(Query::CpuInfo), label), 7.0);
    }
}

QTEST_GUILESS_MAIN(CpuLoadCollectorTest)
#include "tst_cpuloadcollector.moc"
