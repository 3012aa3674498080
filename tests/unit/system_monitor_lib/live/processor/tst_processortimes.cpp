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

QTEST_APPLESS_MAIN(ProcessorTimesTest)
#include "tst_processortimes.moc"
