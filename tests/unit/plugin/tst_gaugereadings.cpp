#include "plugin/GaugeReadings.h"

#include "SDK/LanguageUtilities.h"
#include "plugin/KeyKinds.h"
#include "render/normalAction.h"
#include "sensors/systemInfor.h"
#include "tests/support/KeyUuids.h"
#include "tests/support/SampleSnapshot.h"

#include <QtTest>

/// What gauges know of each kind of key.
class tst_GaugeReadings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void knowsEachKind_data();
    void knowsEachKind();
    void leavesOutKindsWithoutANumber_data();
    void leavesOutKindsWithoutANumber();
    void tellsWhatIsMissing_data();
    void tellsWhatIsMissing();
    void findsSensorsByTheirLabel();
    void findsDrives();
    void countsRatesInKilobytes();
    void scalesFollowTheTotal();
    void hasShortTitles_data();
    void hasShortTitles();
    void titlesDrivesAndSensorsByTheirNames();
};

namespace {

using Info = systemInfor;

QString fromUtf8(const char *text)
{
    return QString::fromUtf8(text);
}

const GaugeKind &gaugeOfKind(const QString &uuid)
{
    const KeyKind *const kind = findKeyKind(uuid);
    if (!kind || !kind->gauge())
        qFatal("%s has no gauge", qPrintable(uuid));
    return *kind->gauge();
}

/// A key of the sample snapshot as it appears.
struct SampleKey : normalAction
{
    explicit SampleKey(const QString &uuid)
        : normalAction(nullptr, uuid, QStringLiteral("ctx"))
    {
        SelectPhysicalDisk = QStringLiteral("sdb");
        SelectValue = QStringLiteral("CPU Package");
        SelectCPUFan = QStringLiteral("CPU Fan");
    }
};

Reading<double> readingOf(const QString &uuid)
{
    const GaugeKind &gauge = gaugeOfKind(uuid);
    const SampleKey key(uuid);
    return gauge.value(gauge.selection ? gauge.selection(key) : QString());
}

QString scaleOf(const GaugeKind &gauge)
{
    const std::optional<ScaleRange> range = gauge.scale ? gauge.scale() : std::nullopt;
    return range ? QStringLiteral("%1…%2").arg(range->lowest).arg(range->highest)
                 : QStringLiteral("steady");
}

QString limitsOf(const GaugeKind &gauge)
{
    if (!gauge.limits)
        return QStringLiteral("none");
    const Thresholds limits = gauge.limits();
    return QStringLiteral("%1 %2 %3")
        .arg(limits.warning.value_or(-1))
        .arg(limits.critical.value_or(-1))
        .arg(limits.isWorseAbove ? QStringLiteral("above") : QStringLiteral("below"));
}

} // namespace

void tst_GaugeReadings::initTestCase()
{
    LanguageUtilities::instance()->LoadLanguages();
}

void tst_GaugeReadings::init()
{
    fillSnapshot();
    Info::CpuFanList = {{QStringLiteral("CPU Fan"), QStringLiteral("1.235e+03RPM")}};
    Info::CpuFanNumbers = {{1234.5, QStringLiteral("RPM")}};
    LanguageUtilities::instance()->SetLanguage(QStringLiteral("en"));
}

void tst_GaugeReadings::knowsEachKind_data()
{
    QTest::addColumn<double>("number");
    QTest::addColumn<QString>("scale");
    QTest::addColumn<QString>("limits");
    const auto row = [](const QString &uuid, double number, const char *scale,
                        const char *limits = "none") {
        QTest::newRow(qPrintable(uuid)) << number << fromUtf8(scale) << fromUtf8(limits);
    };
    row(keyuuid::memory, 61, "0…100");
    row(keyuuid::cpu, 37, "0…100");
    row(keyuuid::cpuTemperature, 45, "20…100", "80 95 above");
    row(keyuuid::cpuClock, 4200, "steady");
    row(keyuuid::cpuPower, 65.26, "steady");
    row(keyuuid::netWork, 1.24, "steady");
    row(keyuuid::gpuTemperature, 51, "20…100", "80 95 above");
    row(keyuuid::gpuClock, 1905, "steady");
    row(keyuuid::gpuLoad, 99, "0…100");
    row(keyuuid::gpuMemoryClock, 9501, "steady");
    row(keyuuid::gpuMemoryUsage, 49.9, "0…100");
    row(keyuuid::memoryFreeMB, 1536, "0…16128", "1612.8 806.4 below");
    row(keyuuid::memoryUsedMB, 14592, "0…16128");
    row(keyuuid::memoryFreeGB, 1.5, "0…15.75", "1.575 0.7875 below");
    row(keyuuid::memoryUsedGB, 14.25, "0…15.75");
    row(keyuuid::gpuMemoryUsed, 2048, "0…8192");
    row(keyuuid::gpuPower, 3, "steady");
    row(keyuuid::volume, 35, "0…100");
    row(keyuuid::gpuVoltage, 0.9127, "steady");
    row(keyuuid::diskTemperature, 50, "20…80", "50 65 above");
    row(keyuuid::upload, 1.24, "steady");
    row(keyuuid::download, 3072, "steady");
    row(keyuuid::allData, 45, "steady");
    row(keyuuid::cpuVoltage, 1.25, "steady");
    row(keyuuid::physicalDisk, 75, "0…100", "85 95 above");
    row(keyuuid::pumpSpeed, 1850, "steady");
    row(keyuuid::cpuFan, 1234.5, "steady");
}

void tst_GaugeReadings::knowsEachKind()
{
    const QString uuid = QString::fromLatin1(QTest::currentDataTag());
    const Reading<double> reading = readingOf(uuid);
    QVERIFY(!reading.isMissing);
    QTEST(reading.value, "number");
    QTEST(scaleOf(gaugeOfKind(uuid)), "scale");
    QTEST(limitsOf(gaugeOfKind(uuid)), "limits");
    QCOMPARE(gaugeOfKind(uuid).isPair(), uuid == keyuuid::netWork);
}

void tst_GaugeReadings::leavesOutKindsWithoutANumber_data()
{
    QTest::addColumn<QString>("uuid");
    for (const QString &uuid : {keyuuid::cpuModel, keyuuid::gpuModel, keyuuid::memoryModel,
                                keyuuid::memoryTotalMB, keyuuid::memoryTotalGB})
        QTest::newRow(qPrintable(uuid)) << uuid;
}

void tst_GaugeReadings::leavesOutKindsWithoutANumber()
{
    QFETCH(QString, uuid);
    QVERIFY(findKeyKind(uuid) && !findKeyKind(uuid)->gauge());
}

void tst_GaugeReadings::tellsWhatIsMissing_data()
{
    QTest::addColumn<quintptr>("number");
    const auto row = [](const QString &uuid, const void *number) {
        QTest::newRow(qPrintable(uuid)) << reinterpret_cast<quintptr>(number);
    };
    row(keyuuid::memory, &Info::MemoryLoad);
    row(keyuuid::cpu, &Info::CpuUsage);
    row(keyuuid::cpuTemperature, &Info::CpuTemperature);
    row(keyuuid::cpuClock, &Info::CpuClock);
    row(keyuuid::cpuPower, &Info::CpuPower);
    row(keyuuid::netWork, &Info::NetUpRate);
    row(keyuuid::gpuTemperature, &Info::GpuTemperature);
    row(keyuuid::gpuClock, &Info::GpuClock);
    row(keyuuid::gpuLoad, &Info::GpuLoad);
    row(keyuuid::gpuMemoryClock, &Info::GpuMemoryClock);
    row(keyuuid::gpuMemoryUsage, &Info::GpuMemoryUsage);
    row(keyuuid::memoryFreeMB, &Info::MemoryAvailableMB);
    row(keyuuid::memoryUsedMB, &Info::MemoryUsedMB);
    row(keyuuid::memoryFreeGB, &Info::MemoryAvailableGB);
    row(keyuuid::memoryUsedGB, &Info::MemoryUsedGB);
    row(keyuuid::gpuMemoryUsed, &Info::GpuMemoryAllocated);
    row(keyuuid::gpuPower, &Info::GpuPower);
    row(keyuuid::volume, &Info::AudioVolume);
    row(keyuuid::gpuVoltage, &Info::GpuVoltage);
    row(keyuuid::upload, &Info::NetUpRate);
    row(keyuuid::download, &Info::NetDownRate);
    row(keyuuid::cpuVoltage, &Info::CpuVoltage);
}

void tst_GaugeReadings::tellsWhatIsMissing()
{
    QFETCH(quintptr, number);
    const QString uuid = QString::fromLatin1(QTest::currentDataTag());
    Info::MissingNumbers = {reinterpret_cast<const void *>(number)};
    QVERIFY(readingOf(uuid).isMissing);
}

void tst_GaugeReadings::findsSensorsByTheirLabel()
{
    const Reading<double> package = gaugereading::sensor(QStringLiteral("CPU Package"));
    QCOMPARE(package.value, 45.0);
    QCOMPARE(package.units, QStringLiteral("°C"));
    QCOMPARE(gaugereading::sensor(QString()).value, 0.5);
    QVERIFY(gaugereading::sensor(QStringLiteral("cpu package")).isMissing);
    QVERIFY(gaugereading::fan(QString()).isMissing);
    QCOMPARE(gaugereading::fan(QStringLiteral("CPU Fan")).units, QStringLiteral("RPM"));
    Info::AllSensorNumbers[1].isMissing = true;
    QVERIFY(gaugereading::sensor(QStringLiteral("CPU Package")).isMissing);
    Info::AllSensorNumbers.clear();
    QVERIFY(gaugereading::sensor(QStringLiteral("Vcore")).isMissing);
    QVERIFY(gaugereading::sensor(QString()).isMissing);
    Info::PumpNumber.isMissing = true;
    QVERIFY(gaugereading::pump(QString()).isMissing);
}

void tst_GaugeReadings::findsDrives()
{
    QVERIFY(gaugereading::driveTemperature(QStringLiteral("SDB")).isMissing);
    Info::DrivesWithoutTemperature = QStringList{QStringLiteral("sdb")};
    QVERIFY(gaugereading::driveTemperature(QStringLiteral("sdb")).isMissing);
    QCOMPARE(gaugereading::driveTemperature(QStringLiteral("sda")).value, 40.0);

    // Does not answer.
    QVERIFY(gaugereading::usedSpace(QStringLiteral("D:\\")).isMissing);
    QVERIFY(gaugereading::usedSpace(QString()).isMissing);
    SampleKey key(keyuuid::physicalDisk);
    QCOMPARE(gaugereading::shownDrive(key), QStringLiteral("C:\\"));
    key.driveIndex = 7;
    QCOMPARE(gaugereading::shownDrive(key), QString());
    key.driveIndex = -1;
    QCOMPARE(gaugereading::shownDrive(key), QString());
    key.diskMode = QStringLiteral("Total_Disks");
    QCOMPARE(gaugereading::shownDrive(key), gaugereading::allDrives);
    QCOMPARE(gaugereading::usedSpace(gaugereading::allDrives).value, 75.0);
    Info::DisksTotalGB = 0;
    QVERIFY(gaugereading::usedSpace(gaugereading::allDrives).isMissing);
}

void tst_GaugeReadings::countsRatesInKilobytes()
{
    Info::NetUpRate = 2;
    Info::NetUpRateUnits = QStringLiteral("GB/s");
    QCOMPARE(gaugereading::uploadRate(QString()).value, 2.0 * 1024 * 1024);
    const GaugeKind &both = gaugeOfKind(keyuuid::netWork);
    QCOMPARE(both.second(QString()).value, 3072.0);
    Info::MissingNumbers = {&Info::NetDownRate};
    QVERIFY(!both.value(QString()).isMissing);
    QVERIFY(both.second(QString()).isMissing);
}

void tst_GaugeReadings::scalesFollowTheTotal()
{
    Info::MissingNumbers = {&Info::MemoryTotalMB};
    Info::GpuMemorySize = 0;
    for (const QString &uuid : {keyuuid::memoryFreeMB, keyuuid::memoryFreeGB}) {
        QCOMPARE(scaleOf(gaugeOfKind(uuid)), QStringLiteral("steady"));
        QCOMPARE(limitsOf(gaugeOfKind(uuid)), QStringLiteral("-1 -1 below"));
    }
    QCOMPARE(scaleOf(gaugeOfKind(keyuuid::gpuMemoryUsed)), QStringLiteral("steady"));
}

void tst_GaugeReadings::hasShortTitles_data()
{
    QTest::addColumn<QString>("english");
    QTest::addColumn<QString>("chinese");
    const auto row = [](const QString &uuid, const char *english, const char *chinese) {
        QTest::newRow(qPrintable(uuid)) << fromUtf8(english) << fromUtf8(chinese);
    };
    row(keyuuid::memory, "Memory", "内存");
    row(keyuuid::cpu, "CPU", "CPU");
    row(keyuuid::cpuTemperature, "CPU temp", "CPU温度");
    row(keyuuid::cpuClock, "CPU clock", "CPU频率");
    row(keyuuid::cpuPower, "CPU power", "CPU功率");
    row(keyuuid::netWork, "Network", "网速");
    row(keyuuid::gpuTemperature, "GPU temp", "GPU温度");
    row(keyuuid::gpuClock, "GPU clock", "GPU频率");
    row(keyuuid::gpuLoad, "GPU", "GPU");
    row(keyuuid::gpuMemoryClock, "Mem clock", "显存频率");
    row(keyuuid::gpuMemoryUsage, "GPU mem", "显存");
    row(keyuuid::memoryFreeMB, "Free", "可用内存");
    row(keyuuid::memoryUsedMB, "Used", "已用内存");
    row(keyuuid::memoryFreeGB, "Free", "可用内存");
    row(keyuuid::memoryUsedGB, "Used", "已用内存");
    row(keyuuid::gpuMemoryUsed, "VRAM", "已用显存");
    row(keyuuid::gpuPower, "GPU power", "GPU功耗");
    row(keyuuid::volume, "Volume", "音量");
    row(keyuuid::gpuVoltage, "GPU volts", "GPU电压");
    row(keyuuid::diskTemperature, "Disk temp", "硬盘温度");
    row(keyuuid::upload, "Up", "上传");
    row(keyuuid::download, "Down", "下载");
    row(keyuuid::allData, "CPU Package", "CPU Package");
    row(keyuuid::cpuVoltage, "CPU volts", "CPU电压");
    row(keyuuid::physicalDisk, "C:", "C:");
    row(keyuuid::pumpSpeed, "Pump", "水泵");
    row(keyuuid::cpuFan, "Fan", "风扇");
}

void tst_GaugeReadings::hasShortTitles()
{
    const QString uuid = QString::fromLatin1(QTest::currentDataTag());
    const SampleKey key(uuid);
    QTEST(gaugeOfKind(uuid).shortTitle(key), "english");
    LanguageUtilities::instance()->SetLanguage(QStringLiteral("zh_CN"));
    QTEST(gaugeOfKind(uuid).shortTitle(key), "chinese");
    LanguageUtilities::instance()->SetLanguage(QStringLiteral("de"));
    QTEST(gaugeOfKind(uuid).shortTitle(key), "chinese");
}

void tst_GaugeReadings::titlesDrivesAndSensorsByTheirNames()
{
    SampleKey disk(keyuuid::physicalDisk);
    const auto title = [](const normalAction &key) {
        return gaugeOfKind(key.GetAction()).shortTitle(key);
    };
    disk.diskMode = QStringLiteral("Total_Disks");
    QCOMPARE(title(disk), QStringLiteral("All disks"));
    disk.showVolumeName = false;
    QCOMPARE(title(disk), QStringLiteral("Disk"));
    disk.showVolumeName = true;
    disk.diskMode = QStringLiteral("Disk_Loop");
    Info::DriveRoots = QStringList{QStringLiteral("/"), QStringLiteral("/home")};
    QCOMPARE(title(disk), QStringLiteral("/"));
    disk.driveIndex = 1;
    QCOMPARE(title(disk), QStringLiteral("/home"));

    SampleKey sensor(keyuuid::allData);
    sensor.SelectValue.clear();
    QCOMPARE(title(sensor), QStringLiteral("Vcore"));
    Info::SensorList.clear();
    QCOMPARE(title(sensor), QString());
}

QTEST_MAIN(tst_GaugeReadings)
#include "tst_gaugereadings.moc"
