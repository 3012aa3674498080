#include "system_monitor_lib/live/memory/MemoryCollector.h"
#include "tests/unit/system_monitor_lib/labels.h"

#include <QtTest>

class MemoryCollectorTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void givesWholeMegabytes_data();
    void givesWholeMegabytes();
};

void MemoryCollectorTest::givesWholeMegabytes_data()
{
    QTest::addColumn<quint64>("total");
    QTest::addColumn<quint64>("available");
    QTest::addColumn<double>("load");
    QTest::addColumn<double>("usedMegabytes");
    QTest::addColumn<double>("availableMegabytes");

    constexpr quint64 megabyte = 1024;
    QTest::newRow("even") << 16384 * megabyte << 4096 * megabyte << 75.0 << 12288.0 << 4096.0;
    QTest::newRow("rounded, and the sum stays")
        << quint64{1000600} << quint64{500300} << 50.0 << 488.0 << 489.0;
    QTest::newRow("nothing used") << quint64{1024} << quint64{1024} << 0.0 << 0.0 << 1.0;
    QTest::newRow("nothing left") << quint64{1024} << quint64{0} << 100.0 << 1.0 << 0.0;
    QTest::newRow("a megabyte torn in two halves")
        << quint64{1024} << quint64{512} << 50.0 << 0.0 << 1.0;
}

void MemoryCollectorTest::givesWholeMegabytes()
{
    QFETCH(const quint64, total);
    QFETCH(const quint64, available);
    const QJsonObject tree = memoryLabels({total, available});

    QTEST(value(tree, QStringLiteral("Physical Memory Load")), "load");
    QTEST(value(tree, QStringLiteral("Physical Memory Used")), "usedMegabytes");
    QTEST(value(tree, QStringLiteral("Physical Memory Available")), "availableMegabytes");
    QCOMPARE(units(tree, QStringLiteral("Physical Memory Load")), QStringLiteral("%"));
    QCOMPARE(units(tree, QStringLiteral("Physical Memory Used")), QStringLiteral("MB"));
    QCOMPARE(units(tree, QStringLiteral("Physical Memory Available")), QStringLiteral("MB"));
}

QTEST_APPLESS_MAIN(MemoryCollectorTest)
#include "tst_memorycollector.moc"
