#include "system_monitor_lib/live/processor/ProcessorTimes.h"
#include "tests/unit/system_monitor_lib/bytes.h"

#include <QtTest>

Q_DECLARE_METATYPE(std::vector<QByteArray>)

namespace {

/// A SYSTEM_PROCESSOR_PERFORMANCE_INFORMATION. The kernel's time includes the idle time.
QByteArray processor(qint64 idle, qint64 kernel, qint64 user)
{
    return bytes(idle) + bytes(kernel) + bytes(user) + gap(24);
}

} // namespace

/// The processors' times as Windows' groups answer them.
class ProcessorTimesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sumsUpTheGroups_data();
    void sumsUpTheGroups();
    void numbersProcessorsThroughTheGroups();
    void processorIdlerThanPossibleIsNotBusy();
    void silentGroupLeavesNone();
};

void ProcessorTimesTest::sumsUpTheGroups_data()
{
    using Groups = std::vector<QByteArray>;
    QTest::addColumn<Groups>("groups");
    QTest::addColumn<qint64>("busy"); // -1: nothing.
    QTest::addColumn<qint64>("idle");
    const QByteArray one = processor(100, 130, 20);
    const QByteArray other = processor(1000, 1001, 2);
    QTest::newRow("one processor") << Groups{one} << qint64{50} << qint64{100};
    QTest::newRow("two in a group") << Groups{one + other} << qint64{53} << qint64{1100};
    QTest::newRow("two groups") << Groups{one + one, other} << qint64{103} << qint64{1200};
    QTest::newRow("a group is silent") << Groups{one, {}} << qint64{-1} << qint64{0};
    QTest::newRow("a group is cut") << Groups{one, other.left(47)} << qint64{-1} << qint64{0};
    QTest::newRow("a processor is cut")
        << Groups{one + other.left(47)} << qint64{50} << qint64{100};
    QTest::newRow("more idle than all")
        << Groups{processor(100, 30, 20)} << qint64{-1} << qint64{0};
    QTest::newRow("no group") << Groups{} << qint64{-1} << qint64{0};
}

void ProcessorTimesTest::sumsUpTheGroups()
{
    QFETCH(const std::vector<QByteArray>, groups);
    QFETCH(const qint64, busy);
    QFETCH(const qint64, idle);
    const std::optional<CpuTimes> times = sumOfProcessorTimes(groups);
    QCOMPARE(times.has_value(), busy >= 0);
    if (times) {
        QCOMPARE(times->busy, static_cast<quint64>(busy));
        QCOMPARE(times->idle, static_cast<quint64>(idle));
    }
}

void ProcessorTimesTest::numbersProcessorsThroughTheGroups()
{
    const QByteArray one = processor(100, 130, 20);
    const CpuDetails details =
        detailsOfProcessorTimes({one + one, processor(1000, 1001, 2) + one.left(47)});
    QCOMPARE(details.cores.size(), std::size_t{3});
    for (std::size_t core = 0; core < details.cores.size(); ++core)
        QCOMPARE(details.cores[core].number, static_cast<int>(core));
    QCOMPARE(details.cores[1].times.busy, quint64{50});
    QCOMPARE(details.cores[2].times.busy, quint64{3});
    QCOMPARE(details.cores[2].times.idle, quint64{1000});
    QVERIFY(details.modes.has_value());
    QCOMPARE(details.modes->user, quint64{42});
    QCOMPARE(details.modes->system, quint64{61});
    QCOMPARE(details.modes->total, quint64{1303});
    QVERIFY(!details.modes->waiting.has_value());
}

void ProcessorTimesTest::processorIdlerThanPossibleIsNotBusy()
{
    const CpuDetails details = detailsOfProcessorTimes({processor(100, 30, 20)});
    QCOMPARE(details.cores.size(), std::size_t{1});
    QCOMPARE(details.cores[0].times.busy, quint64{20});
    QCOMPARE(details.modes->system, quint64{0});
}

void ProcessorTimesTest::silentGroupLeavesNone()
{
    const QByteArray one = processor(1, 2, 3);
    for (const std::vector<QByteArray> &groups :
         {std::vector<QByteArray>{one, {}}, {one.left(47)}, {}}) {
        QVERIFY(detailsOfProcessorTimes(groups).cores.empty());
        QVERIFY(!detailsOfProcessorTimes(groups).modes.has_value());
    }
}

QTEST_APPLESS_MAIN(ProcessorTimesTest)
#include "tst_processortimes.moc"
