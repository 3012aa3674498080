#include "sensors/readings/CpuReadings.h"

#include <QJsonDocument>
#include <QtTest>

class tst_CpuReadings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsCpuUsage_data();
    void readsCpuUsage();
    void meansCpuClock_data();
    void meansCpuClock();
    void meansCpuVoltage();

private:
    static QJsonObject object(const QByteArray &json)
    {
        return QJsonDocument::fromJson(json).object();
    }
};

void tst_CpuReadings::readsCpuUsage_data()
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

void tst_CpuReadings::readsCpuUsage()
{
    QFETCH(QByteArray, tree);
    const CpuReadings cpu = cpuReadings(object(tree));
    QTEST(cpu.usage.value, "usage");
    QTEST(cpu.usage.units, "units");
}

void tst_CpuReadings::meansCpuClock_data()
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

void tst_CpuReadings::meansCpuClock()
{
    QFETCH(QByteArray, tree);
    const CpuReadings cpu = cpuReadings(object(tree));
    QTEST(cpu.clock.value, "clock");
    QTEST(cpu.clock.units, "units");
}

void tst_CpuReadings::meansCpuVoltage()
{
    const CpuReadings cpu = cpuReadings(object(
        R"({"Core 0 VID":[{"value":1.0,"units":"V"}],"core 1 vid":[{"value":1.5,"units":"V"}]})"));
    QCOMPARE(cpu.voltage.value, 1.25);
    QCOMPARE(cpu.voltage.units, QStringLiteral("V"));
    QCOMPARE(cpuReadings({}).voltage.value, 0.0);
    QCOMPARE(cpuReadings({}).voltage.units, QStringLiteral("V"));
}

QTEST_APPLESS_MAIN(tst_CpuReadings)
#include "tst_cpureadings.moc"
