#include "sensors/readings/CpuHeat.h"
#include "sensors/readings/DriveTemperatures.h"
#include "sensors/readings/ModelNames.h"

#include <QJsonDocument>
#include <QtTest>

/// CPU temperature and power, drive temperatures, model names.
class tst_CpuAndDrives : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsCpuTemperature_data();
    void readsCpuTemperature();
    void readsCpuPower_data();
    void readsCpuPower();
    void readsDriveTemperatures();
    void takesModelNames_data();
    void takesModelNames();
    void keepsKnownModelNames();

private:
    static QJsonObject object(const QByteArray &json)
    {
        return QJsonDocument::fromJson(json).object();
    }
};

void tst_CpuAndDrives::readsCpuTemperature_data()
{
    QTest::addColumn<QByteArray>("dts");
    QTest::addColumn<QByteArray>("enhanced");
    QTest::addColumn<int>("temperature");
    QTest::addColumn<QString>("units");
    const QByteArray tctl = R"json({"CPU (Tctl/Tdie)":[{"value":61.9,"units":"°C"}]})json";
    const QString celsius = QStringLiteral("°C");
    const auto package = [](const char *value, const char *units) {
        return R"({"CPU Package":[{"value":)" + QByteArray(value) + R"(,"units":")" + units +
               R"("}]})";
    };
    QTest::newRow("package") << package("45.9", "°C") << tctl << 45 << celsius;
    QTest::newRow("letter alone") << package("45", "C") << tctl << 45 << celsius;
    QTest::newRow("no units") << package("45", "") << tctl << 45 << celsius;
    QTest::newRow("other units") << package("113", "F") << tctl << 113 << QStringLiteral("F");
    QTest::newRow("180") << package("180", "°C") << tctl << 150 << celsius;
    QTest::newRow("-3") << package("-3", "°C") << tctl << 150 << celsius;
    QTest::newRow("-5.5") << package("-5.5", "°C") << tctl << 150 << celsius;
    QTest::newRow("enhanced when the first tree is empty")
        << QByteArray("{}") << tctl << 61 << celsius;
    QTest::newRow("not when it only lacks the label")
        << QByteArray(R"({"Core 0":[{"value":1}]})") << tctl << 0 << celsius;
    QTest::newRow("nothing") << QByteArray("{}") << QByteArray("{}") << 0 << celsius;
}

void tst_CpuAndDrives::readsCpuTemperature()
{
    QFETCH(QByteArray, dts);
    QFETCH(QByteArray, enhanced);
    const CpuHeat heat = cpuHeat(object(dts), object(enhanced), {});
    QTEST(heat.temperature, "temperature");
    QTEST(heat.temperatureUnits, "units");
}

void tst_CpuAndDrives::readsCpuPower_data()
{
    QTest::addColumn<QByteArray>("enhanced");
    QTest::addColumn<double>("power");
    QTest::addColumn<QString>("units");
    QTest::newRow("watts") << QByteArray(R"({"CPU Package Power":[{"value":65.25,"units":"W"}]})")
                           << 65.25 << QStringLiteral("W");
    QTest::newRow("no units stay none")
        << QByteArray(R"({"CPU Package Power":[{"value":65}]})") << 65.0 << QString();
    QTest::newRow("negative") << QByteArray(R"({"CPU Package Power":[{"value":-1,"units":"W"}]})")
                              << 0.0 << QStringLiteral("W");
    QTest::newRow("huge") << QByteArray(R"({"CPU Package Power":[{"value":1e9,"units":"W"}]})")
                          << 100000.0 << QStringLiteral("W");
    QTest::newRow("missing") << QByteArray("{}") << 0.0 << QString();
}

void tst_CpuAndDrives::readsCpuPower()
{
    QFETCH(QByteArray, enhanced);
    const CpuHeat heat = cpuHeat({}, {}, object(enhanced));
    QTEST(heat.power, "power");
    QTEST(heat.powerUnits, "units");
}

void tst_CpuAndDrives::readsDriveTemperatures()
{
    const auto temperatures = driveTemperatures(object(R"({
        "c both": {"Drive Temperature":[{"value":40}],"Drive Temperature 2":[{"value":50}]},
        "a second": {"Drive Temperature 2":[{"value":51}]},
        "b airflow": {"Drive Airflow Temperature":[{"value":33}]},
        "d empty first": {"Drive Temperature":[],"Drive Airflow Temperature":[{"value":34}]},
        "e not whole": {"Drive Temperature":[{"value":40.5}]},
        "f none": {"Power On Hours":[{"value":1}]},
        "g no tree": 7
    })"));
    const auto entry = [](const char *drive, int temperature) {
        return QPair<QString, int>(QString::fromLatin1(drive), temperature);
    };
    QCOMPARE(temperatures, (QList<QPair<QString, int>>{
                               entry("a second", 51), entry("b airflow", 33), entry("c both", 40),
                               entry("d empty first", 34), entry("e not whole", 0),
                               entry("f none", 0), entry("g no tree", 0)}));
    QVERIFY(driveTemperatures({}).isEmpty());
}

void tst_CpuAndDrives::takesModelNames_data()
{
    QTest::addColumn<QByteArray>("groups");
    QTest::addColumn<QString>("cpu");
    QTest::addColumn<QString>("gpu");
    const auto row = [](const char *name, const char *groups, const char *cpu, const char *gpu) {
        QTest::newRow(name) << QByteArray(groups) << QString::fromLatin1(cpu)
                            << QString::fromLatin1(gpu);
    };
    row("both", R"({"CPU [#0]: Ryzen":{},"GPU [#0]: Radeon":{}})", "Ryzen", "Radeon");
    row("no GPU", R"({"CPU [#0]: Ryzen":{}})", "Ryzen", "integrated GPU");
    row("nothing", "{}", "", "integrated GPU");
    row("no separator", R"({"CPU [#0]":{},"GPU:x":{}})", "", "integrated GPU");
    row("letter case counts", R"({"cpu [#0]: x":{},"gpu [#0]: y":{}})", "", "integrated GPU");
    row("second part only", R"({"CPU [#0]: a: b":{}})", "a", "integrated GPU");
    row("a later group replaces while the other is missing",
        R"({"CPU [#0]: first":{},"CPU [#1]: second":{},"GPU [#0]: y":{}})", "second", "y");
    row("no longer once both are known", R"({"CPU [#0]: x":{},"GPU [#0]: y":{},"GPU [#1]: z":{}})",
        "x", "y");
    row("one group for both", R"({"CPU and GPU: x":{}})", "x", "x");
}

void tst_CpuAndDrives::takesModelNames()
{
    QFETCH(QByteArray, groups);
    const ModelNames names = modelNames(object(groups), {});
    QTEST(names.cpu, "cpu");
    QTEST(names.gpu, "gpu");
}

void tst_CpuAndDrives::keepsKnownModelNames()
{
    const ModelNames names = modelNames(object(R"({"CPU [#0]: x":{},"GPU [#0]: y":{}})"),
                                        {QStringLiteral("known CPU"), QStringLiteral("known GPU")});
    QCOMPARE(names.cpu, QStringLiteral("known CPU"));
    QCOMPARE(names.gpu, QStringLiteral("known GPU"));
}

QTEST_APPLESS_MAIN(tst_CpuAndDrives)
#include "tst_cpuanddrives.moc"
