#include "sensors/readings/CpuReadings.h"
#include "sensors/readings/MemoryReadings.h"
#include "sensors/readings/NetworkReadings.h"
#include "tests/support/InMemoryLibrary.h"

#include <QJsonDocument>
#include <QtTest>

class tst_Readings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsCpuUsage_data();
    void readsCpuUsage();
    void meansCpuClock_data();
    void meansCpuClock();
    void meansCpuVoltage();
    void readsMemory();
    void roundsTotalMemoryHalfUp_data();
    void roundsTotalMemoryHalfUp();
    void readsMemoryLoad_data();
    void readsMemoryLoad();
    void readsNoMemoryFromNothing();
    void sumsNetworkRates_data();
    void sumsNetworkRates();
    void scalesRates_data();
    void scalesRates();

private:
    static QJsonObject object(const QByteArray &json)
    {
        return QJsonDocument::fromJson(json).object();
    }
    static QJsonObject memoryTree(double used, double available)
    {
        QJsonObject tree = InMemoryLibrary::reading(QStringLiteral("Physical Memory Used"), used);
        const QString label = QStringLiteral("Physical Memory Available");
        tree.insert(label, InMemoryLibrary::reading(label, available).value(label));
        return tree;
    }
};

void tst_Readings::readsCpuUsage_data()
{
    QTest::addColumn<QByteArray>("tree");
    QTest::addColumn<uint>("usage");
    QTest::addColumn<QString>("units");
    const QString percent = QStringLiteral("%");
    QTest::newRow("usage") << QByteArray(R"({"Total CPU Usage":[{"value":37.9,"units":"%"}]})")
                           << 37U << percent;
    QTest::newRow("utility") << QByteArray(R"({"Total CPU Utility":[{"value":12,"units":"pct"}]})")
                             << 12U << QStringLiteral("pct");
    QTest::newRow("a later key overwrites")
        << QByteArray(
               R"({"Total CPU Usage":[{"value":1,"units":"%"}],"Total CPU Utility":[{"value":2}]})")
        << 2U << percent;
    QTest::newRow("above 100") << QByteArray(R"({"Total CPU Usage":[{"value":250}]})") << 100U
                               << percent;
    QTest::newRow("negative") << QByteArray(R"({"Total CPU Usage":[{"value":-1}]})") << 100U
                              << percent;
    QTest::newRow("huge") << QByteArray(R"({"Total CPU Usage":[{"value":1e308}]})") << 100U
                          << percent;
    QTest::newRow("text") << QByteArray(R"({"Total CPU Usage":[{"value":"37"}]})") << 0U << percent;
    QTest::newRow("missing") << QByteArray("{}") << 0U << percent;
}

void tst_Readings::readsCpuUsage()
{
    QFETCH(QByteArray, tree);
    const CpuReadings cpu = cpuReadings(object(tree));
    QTEST(cpu.usage, "usage");
    QTEST(cpu.usageUnits, "units");
}

void tst_Readings::meansCpuClock_data()
{
    QTest::addColumn<QByteArray>("tree");
    QTest::addColumn<int>("clock");
    QTest::addColumn<QString>("units");
    const QString megahertz = QStringLiteral("MHz");
    QTest::newRow("mean")
        << QByteArray(
               R"({"Core 0 Clock":[{"value":3000,"units":"MHz"}],"Core 1 Clock":[{"value":4001,"units":"MHz"}]})")
        << 3500 << megahertz;
    QTest::newRow("effective clocks only")
        << QByteArray(R"json({"Core 0 Clock (Effective)":[{"value":3000,"units":"GHz"}]})json") << 0
        << megahertz;
    QTest::newRow("effective clocks are left out")
        << QByteArray(
               R"json({"Core 0 Clock":[{"value":3000}],"Core 0 Clock (Effective)":[{"value":100}]})json")
        << 3000 << megahertz;
    QTest::newRow("above the cap")
        << QByteArray(R"({"Core 0 Clock":[{"value":200000}]})") << 100000 << megahertz;
    QTest::newRow("negative") << QByteArray(R"({"Core 0 Clock":[{"value":-5}]})") << 0 << megahertz;
    QTest::newRow("no core") << QByteArray(R"({"Bus Clock":[{"value":100}]})") << 0 << megahertz;
}

void tst_Readings::meansCpuClock()
{
    QFETCH(QByteArray, tree);
    const CpuReadings cpu = cpuReadings(object(tree));
    QTEST(cpu.clock, "clock");
    QTEST(cpu.clockUnits, "units");
}

void tst_Readings::meansCpuVoltage()
{
    const CpuReadings cpu = cpuReadings(object(
        R"({"Core 0 VID":[{"value":1.0,"units":"V"}],"core 1 vid":[{"value":1.5,"units":"V"}]})"));
    QCOMPARE(cpu.voltage, 1.25);
    QCOMPARE(cpu.voltageUnits, QStringLiteral("V"));
    QCOMPARE(cpuReadings({}).voltage, 0.0);
    QCOMPARE(cpuReadings({}).voltageUnits, QStringLiteral("V"));
}

void tst_Readings::readsMemory()
{
    const MemoryReadings memory = memoryReadings(memoryTree(8000, 8400));
    QCOMPARE(memory.usedMB, 8000);
    QCOMPARE(memory.availableMB, 8400);
    QCOMPARE(memory.totalMB, 16400);
    QCOMPARE(memory.usedGB, 7.8125);
    QCOMPARE(memory.availableGB, 8.203125);
    QCOMPARE(memory.totalGB, 16.015625);
    QCOMPARE(memory.totalGBRounded, 16);
}

void tst_Readings::roundsTotalMemoryHalfUp_data()
{
    QTest::addColumn<int>("megabytes");
    QTest::addColumn<int>("gigabytes");
    QTest::newRow("15.75") << 16128 << 16;
    QTest::newRow("15.499") << 15871 << 15;
    QTest::newRow("15.5") << 15872 << 16;
    QTest::newRow("15.6") << 15974 << 16;
    QTest::newRow("0") << 0 << 0;
}

void tst_Readings::roundsTotalMemoryHalfUp()
{
    QFETCH(int, megabytes);
    QTEST(memoryReadings(memoryTree(megabytes, 0)).totalGBRounded, "gigabytes");
}

void tst_Readings::readsMemoryLoad_data()
{
    QTest::addColumn<QByteArray>("reading");
    QTest::addColumn<uint>("load");
    QTest::newRow("truncated") << QByteArray(R"({"value":61.99,"units":"%"})") << 61U;
    QTest::newRow("above") << QByteArray(R"({"value":101})") << 100U;
    QTest::newRow("negative") << QByteArray(R"({"value":-0.5})") << 0U;
    QTest::newRow("below -1") << QByteArray(R"({"value":-1})") << 100U;
}

void tst_Readings::readsMemoryLoad()
{
    QFETCH(QByteArray, reading);
    const MemoryReadings memory =
        memoryReadings({{QStringLiteral("Physical Memory Load"), QJsonArray{object(reading)}}});
    QTEST(memory.load, "load");
    QCOMPARE(memory.loadUnits, QStringLiteral("%"));
}

void tst_Readings::readsNoMemoryFromNothing()
{
    const MemoryReadings memory = memoryReadings({});
    QCOMPARE(memory.load, 0U);
    QCOMPARE(memory.loadUnits, QStringLiteral("%"));
    QCOMPARE(memory.totalMB, 0);
    QCOMPARE(memory.totalGBRounded, 0);
    // Megabytes are whole numbers; a sum beyond an integer is held at its end.
    QCOMPARE(memoryReadings(memoryTree(8123.4, 1)).totalMB, 1);
    QCOMPARE(memoryReadings(memoryTree(2147483647.0, 2147483647.0)).totalMB, 2147483647);
}

void tst_Readings::sumsNetworkRates_data()
{
    QTest::addColumn<QByteArray>("adapters");
    QTest::addColumn<double>("up");
    QTest::addColumn<QString>("units");
    const QString kilobytes = QStringLiteral("Kb/s");
    QTest::newRow("two adapters, two units")
        << QByteArray(
               R"({"a":{"Current UP rate":[{"value":600,"units":"KB/s"}]},"b":{"Current UP rate":[{"value":1,"units":"MB/s"}]}})")
        << 1624.0 / 1024 << QStringLiteral("MB/s");
    QTest::newRow("Kb/s adds nothing")
        << QByteArray(R"({"a":{"Current UP rate":[{"value":600,"units":"Kb/s"}]}})") << 0.0
        << kilobytes;
    QTest::newRow("no units add nothing")
        << QByteArray(R"({"a":{"Current UP rate":[{"value":600}]}})") << 0.0 << kilobytes;
    QTest::newRow("GB/s") << QByteArray(R"({"a":{"Current UP rate":[{"value":2,"units":"GB/s"}]}})")
                          << 2.0 << QStringLiteral("GB/s");
    QTest::newRow("exactly 1024")
        << QByteArray(R"({"a":{"Current UP rate":[{"value":1,"units":"MB/s"}]}})") << 1024.0
        << kilobytes;
    QTest::newRow("negative") << QByteArray(
                                     R"({"a":{"Current UP rate":[{"value":-5,"units":"KB/s"}]}})")
                              << 0.0 << kilobytes;
    QTest::newRow("adapter of another type")
        << QByteArray(R"({"a":[1],"b":null})") << 0.0 << kilobytes;
    QTest::newRow("no adapter") << QByteArray("{}") << 0.0 << kilobytes;
}

void tst_Readings::sumsNetworkRates()
{
    QFETCH(QByteArray, adapters);
    const NetworkReadings network = networkReadings(object(adapters));
    QTEST(network.up.value, "up");
    QTEST(network.up.units, "units");
    QCOMPARE(network.down.value, 0.0);

    QByteArray downloading = adapters;
    downloading.replace("Current UP rate", "Current DL rate");
    QTEST(networkReadings(object(downloading)).down.value, "up");
}

void tst_Readings::scalesRates_data()
{
    QTest::addColumn<double>("rate");
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("units");
    const double million = 1024.0 * 1024.0;
    QTest::newRow("0") << 0.0 << 0.0 << QStringLiteral("Kb/s");
    QTest::newRow("1024") << 1024.0 << 1024.0 << QStringLiteral("Kb/s");
    QTest::newRow("1025") << 1025.0 << 1025.0 / 1024 << QStringLiteral("MB/s");
    QTest::newRow("1024 MB/s") << million << 1024.0 << QStringLiteral("MB/s");
    QTest::newRow("above 1024 MB/s") << 2 * million << 2.0 << QStringLiteral("GB/s");
    QTest::newRow("terabytes stay GB/s") << 4096 * million << 4096.0 << QStringLiteral("GB/s");
}

void tst_Readings::scalesRates()
{
    QFETCH(double, rate);
    const ScaledRate scaled = scaledRate(rate);
    QTEST(scaled.value, "value");
    QTEST(scaled.units, "units");
}

QTEST_APPLESS_MAIN(tst_Readings)
#include "tst_readings.moc"
