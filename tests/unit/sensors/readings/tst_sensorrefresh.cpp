#include "sensors/readings/SensorRefresh.h"

#include "sensors/VqSystemMonitorLib.h"
#include "sensors/systemInfor.h"
#include "tests/support/InMemoryLibrary.h"
#include "tests/support/InMemoryMachine.h"
#include "tests/support/Json.h"
#include "tests/support/SampleSnapshot.h"

#include <QtTest>

/// What one refresh stores, reading by reading. What the readings are made of has tests of its own.
class tst_SensorRefresh : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void asksInOrder_data();
    void asksInOrder();
    void storesMemory();
    void storesCpu();
    void takesTheTemperatureOfTheEnhancedTree();
    void storesGpu();
    void takesGraphicsOfTheEnhancedTree();
    void storesNetwork();
    void storesDriveTemperatures();
    void takesDriveTemperaturesOfTheSecondAnswer();
    void storesSensorLists();
    void storesDrivesAndAudio();
    void replacesTheListsOfDrives();
    void refreshOfNothingHoldsZeros();
    void refreshWithoutALibraryHoldsZeros();
    void storesModelNames();
    void knowsWhatIsMissing();
    void knowsWhatIsThere_data();
    void knowsWhatIsThere();
    void storesTheNumbersOfSensors();

private:
    void refresh(int audioDevice = 0);

    VqSystemMonitorLib m_library{false, nullptr};
};

using Info = systemInfor;

void tst_SensorRefresh::init()
{
    InMemoryLibrary::reset();
    InMemoryMachine::reset();
}

void tst_SensorRefresh::refresh(int audioDevice)
{
    refreshSystemInfor(&m_library, audioDevice);
}

void tst_SensorRefresh::asksInOrder_data()
{
    QTest::addColumn<QByteArray>("dts");
    QTest::addColumn<QString>("heat");
    QTest::newRow("with a temperature tree") << QByteArray(R"({"CPU Package":[]})")
                                             << QStringLiteral("getCPUDTSInfo, getCPUEnhancedInfo");
    QTest::newRow("without") << QByteArray("{}")
                             << QStringLiteral(
                                    "getCPUDTSInfo, getCPUEnhancedInfo, getCPUEnhancedInfo");
}

void tst_SensorRefresh::asksInOrder()
{
    QFETCH(QByteArray, dts);
    QFETCH(QString, heat);
    InMemoryLibrary::cpuDtsInfo = json(dts);
    InMemoryMachine::drives = {{QStringLiteral("/"), QString(), InMemoryMachine::gigabytes(1, 2)}};
    InMemoryMachine::devices = {{QStringLiteral("Speakers"), 1.0F}};
    refresh();
    QCOMPARE(InMemoryLibrary::queries.join(QStringLiteral(", ")),
             QStringLiteral("drives, volume name /, space /, devices, volume 0, volume 0, "
                            "getSystemInfo, getMemoryTimingsInfo, getCPUInfo, %1, getGPUInfo, "
                            "getNetworkInfo, getSMARTInfo, getSMARTInfo, getPresentMon, "
                            "getAllSensorsData")
                 .arg(heat));
}

void tst_SensorRefresh::storesMemory()
{
    InMemoryLibrary::systemInfo = json(R"({"Physical Memory Load":[{"value":48.9,"units":"%"}],
        "Physical Memory Used":[{"value":8000}],"Physical Memory Available":[{"value":8400}]})");
    refresh();
    QCOMPARE(Info::MemoryLoad, 48U);
    QCOMPARE(Info::MemoryLoadUnits, QStringLiteral("%"));
    QCOMPARE(Info::MemoryUsedMB, 8000);
    QCOMPARE(Info::MemoryAvailableMB, 8400);
    QCOMPARE(Info::MemoryTotalMB, 16400);
    QCOMPARE(Info::MemoryUsedGB, 7.8125);
    QCOMPARE(Info::MemoryAvailableGB, 8.203125);
    QCOMPARE(Info::MemoryTotalGB, 16.015625);
    QCOMPARE(Info::MemoryTotalGBRounded, 16);
}

void tst_SensorRefresh::storesCpu()
{
    InMemoryLibrary::cpuInfo = json(R"({"Total CPU Usage":[{"value":37,"units":"%"}],
        "Core 0 Clock":[{"value":4000,"units":"MHz"}],"Core 0 VID":[{"value":1.25,"units":"V"}]})");
    InMemoryLibrary::cpuDtsInfo = json(R"({"CPU Package":[{"value":45.9,"units":"C"}]})");
    InMemoryLibrary::cpuEnhancedInfo =
        json(R"({"CPU Package Power":[{"value":65.26,"units":"W"}]})");
    refresh();
    QCOMPARE(Info::CpuUsage, 37U);
    QCOMPARE(Info::CpuUsageUnits, QStringLiteral("%"));
    QCOMPARE(Info::CpuClock, 4000);
    QCOMPARE(Info::CpuClockUnits, QStringLiteral("MHz"));
    QCOMPARE(Info::CpuVoltage, 1.25);
    QCOMPARE(Info::CpuVoltageUnits, QStringLiteral("V"));
    QCOMPARE(Info::CpuTemperature, 45);
    QCOMPARE(Info::CpuTemperatureUnits, QStringLiteral("°C"));
    QCOMPARE(Info::CpuPower, 65.26);
    QCOMPARE(Info::CpuPowerUnits, QStringLiteral("W"));
}

void tst_SensorRefresh::takesTheTemperatureOfTheEnhancedTree()
{
    InMemoryLibrary::cpuEnhancedInfo = json(R"json({"CPU (Tctl/Tdie)":[{"value":61.5,"units":"C"}],
        "CPU Package Power":[{"value":88,"units":"W"}]})json");
    refresh();
    QCOMPARE(Info::CpuTemperature, 61);
    QCOMPARE(Info::CpuTemperatureUnits, QStringLiteral("°C"));
    QCOMPARE(Info::CpuPower, 88.0);
}

void tst_SensorRefresh::storesGpu()
{
    InMemoryLibrary::gpuInfo = json(R"({"small":{"GPU Memory Total":[{"value":1}]},
        "large":{"GPU Memory Total":[{"value":8192}],"GPU Temperature":[{"value":51,"units":"°C"}],
        "GPU Clock":[{"value":1905,"units":"MHz"}],"GPU Core Load":[{"value":99,"units":"%"}],
        "GPU Memory Clock":[{"value":9501,"units":"MHz"}],
        "GPU Memory Usage":[{"value":49.9,"units":"%"}],
        "GPU Memory Allocated":[{"value":2048,"units":"MB"}],
        "GPU Power":[{"value":120.5,"units":"W"}],
        "GPU Core Voltage":[{"value":0.9,"units":"V"}]}})");
    refresh();
    QCOMPARE(Info::GpuTemperature, 51);
    QCOMPARE(Info::GpuTemperatureUnits, QStringLiteral("°C"));
    QCOMPARE(Info::GpuClock, 1905);
    QCOMPARE(Info::GpuClockUnits, QStringLiteral("MHz"));
    QCOMPARE(Info::GpuLoad, 99);
    QCOMPARE(Info::GpuLoadUnits, QStringLiteral("%"));
    QCOMPARE(Info::GpuMemoryClock, 9501);
    QCOMPARE(Info::GpuMemoryClockUnits, QStringLiteral("MHz"));
    QCOMPARE(Info::GpuMemoryUsage, 49.9);
    QCOMPARE(Info::GpuMemoryUsageUnits, QStringLiteral("%"));
    QCOMPARE(Info::GpuMemoryAllocated, 2048.0);
    QCOMPARE(Info::GpuMemoryAllocatedUnits, QStringLiteral("MB"));
    QCOMPARE(Info::GpuPower, 120.5);
    QCOMPARE(Info::GpuPowerUnits, QStringLiteral("W"));
    QCOMPARE(Info::GpuVoltage, 0.9);
    QCOMPARE(Info::GpuVoltageUnits, QStringLiteral("V"));
}

void tst_SensorRefresh::takesGraphicsOfTheEnhancedTree()
{
    InMemoryLibrary::cpuEnhancedInfo = json(R"json({"CPU Package":[{"value":57,"units":"C"}],
        "GPU Clock":[{"value":1150,"units":"MHz"}],"GPU D3D Usage":[{"value":12,"units":"%"}],
        "Imaging Unit (IMGU) Clock":[{"value":400,"units":"MHz"}],
        "GPU D3D Memory Dynamic":[{"value":512,"units":"MB"}],
        "GT Cores Power":[{"value":3.5,"units":"W"}],"iGPU VID":[{"value":0.75,"units":"V"}]})json");
    refresh();
    QCOMPARE(Info::GpuTemperature, 57);
    QCOMPARE(Info::GpuTemperatureUnits, QStringLiteral("°C"));
    QCOMPARE(Info::GpuClock, 1150);
    QCOMPARE(Info::GpuLoad, 12);
    QCOMPARE(Info::GpuMemoryClock, 400);
    QCOMPARE(Info::GpuMemoryUsage, 0.0);
    QCOMPARE(Info::GpuMemoryAllocated, 512.0);
    QCOMPARE(Info::GpuPower, 3.5);
    QCOMPARE(Info::GpuVoltage, 0.75);
}

void tst_SensorRefresh::storesNetwork()
{
    InMemoryLibrary::networkInfo =
        json(R"({"eth0":{"Current UP rate":[{"value":1.5,"units":"KB/s"}],
        "Current DL rate":[{"value":3,"units":"MB/s"}]}})");
    refresh();
    QCOMPARE(Info::NetUpRate, 1.5);
    QCOMPARE(Info::NetUpRateUnits, QStringLiteral("Kb/s"));
    QCOMPARE(Info::NetDownRate, 3.0);
    QCOMPARE(Info::NetDownRateUnits, QStringLiteral("MB/s"));
}

void tst_SensorRefresh::storesDriveTemperatures()
{
    InMemoryLibrary::smartInfo = json(R"({"sda":{"Drive Temperature":[{"value":40}]},"sdb":{}})");
    refresh();
    QCOMPARE(Info::SmartInfo, InMemoryLibrary::smartInfo);
    QCOMPARE(Info::DriveTemperatureList,
             (QList<QPair<QString, int>>{{QStringLiteral("sda"), 40}, {QStringLiteral("sdb"), 0}}));
}

void tst_SensorRefresh::takesDriveTemperaturesOfTheSecondAnswer()
{
    const QJsonObject first = json(R"({"sda":{"Drive Temperature":[{"value":40}]}})");
    InMemoryLibrary::smartInfo = first;
    InMemoryLibrary::laterSmartInfos = {json(R"({"sda":{"Drive Temperature":[{"value":41}]}})")};
    refresh();
    QCOMPARE(Info::SmartInfo, first);
    QCOMPARE(Info::DriveTemperatureList, (QList<QPair<QString, int>>{{QStringLiteral("sda"), 41}}));
}

void tst_SensorRefresh::storesSensorLists()
{
    InMemoryLibrary::allSensors = json(R"({"Board":{"CPU Fan":[{"value":1200,"units":"RPM"}],
        "AIO Pump":[{"value":1850,"units":"RPM"}]}})");
    InMemoryLibrary::presentMon = json(R"({"Framerate":[{"value":60,"units":"FPS"}]})");
    refresh();
    QCOMPARE(Info::AllSensorsData.keys(),
             (QStringList{QStringLiteral("Board"), QStringLiteral("FPS")}));
    QCOMPARE(Info::AllSensorsData.value(QStringLiteral("FPS")).toObject(),
             InMemoryLibrary::presentMon);
    QCOMPARE(Info::AIOPump, QStringLiteral("1850RPM"));
    QCOMPARE(Info::CpuFanList,
             (Info::SensorTexts{{QStringLiteral("CPU Fan"), QStringLiteral("1200RPM")}}));
    // The frame rates stand in the whole tree, and come once more behind it.
    QCOMPARE(Info::SensorList,
             (Info::SensorTexts{{QStringLiteral("Framerate"), QStringLiteral("60FPS")},
                                {QStringLiteral("AIO Pump"), QStringLiteral("1850RPM")},
                                {QStringLiteral("CPU Fan"), QStringLiteral("1200RPM")},
                                {QStringLiteral("Framerate"), QStringLiteral("60FPS")}}));
}

void tst_SensorRefresh::storesDrivesAndAudio()
{
    InMemoryMachine::drives = {
        {QStringLiteral("/"), QStringLiteral("root"), InMemoryMachine::gigabytes(10, 40)},
        {QStringLiteral("/home"), std::nullopt, std::nullopt},
        {QStringLiteral("/data"), QString(), InMemoryMachine::gigabytes(20, 40)}};
    InMemoryMachine::devices = {{QStringLiteral("Speakers"), 35.5F},
                                {QStringLiteral("Headset"), 70.0F}};
    refresh(1);
    QCOMPARE(Info::DriveRoots,
             (QStringList{QStringLiteral("/"), QStringLiteral("/home"), QStringLiteral("/data")}));
    QCOMPARE(Info::DriveVolumeNames, (QStringList{QStringLiteral("root"), QString()}));
    QCOMPARE(Info::DriveFreeGB, (QList<int>{10, 20}));
    QCOMPARE(Info::DriveFreePercent, (QList<int>{25, 50}));
    QCOMPARE(Info::DisksFreeGB, 30U);
    QCOMPARE(Info::DisksTotalGB, 80U);
    QCOMPARE(Info::AudioDeviceNames,
             (QStringList{QStringLiteral("Speakers"), QStringLiteral("Headset")}));
    QCOMPARE(Info::AudioDeviceVolumes, (QList<float>{35.5F, 70.0F}));
    QCOMPARE(Info::AudioVolume, 70);
    refresh(0);
    QCOMPARE(Info::AudioVolume, 35);
}

void tst_SensorRefresh::replacesTheListsOfDrives()
{
    fillSnapshot();
    refresh();
    QVERIFY(Info::DriveRoots.isEmpty());
    QVERIFY(Info::DriveVolumeNames.isEmpty());
    QVERIFY(Info::DriveFreeGB.isEmpty());
    QVERIFY(Info::DriveFreePercent.isEmpty());
    QVERIFY(Info::AudioDeviceNames.isEmpty());
    QVERIFY(Info::AudioDeviceVolumes.isEmpty());
    QCOMPARE(Info::AudioVolume, -1);
}

void tst_SensorRefresh::refreshOfNothingHoldsZeros()
{
    fillSnapshot();
    refresh();
    const auto numbers = [](auto... each) { return QList<double>{static_cast<double>(each)...}; };
    QCOMPARE(numbers(Info::CpuUsage, Info::CpuTemperature, Info::CpuClock, Info::CpuPower,
                     Info::CpuVoltage),
             numbers(0, 0, 0, 0, 0));
    QCOMPARE(numbers(Info::MemoryLoad, Info::MemoryUsedMB, Info::MemoryAvailableMB,
                     Info::MemoryTotalMB, Info::MemoryUsedGB, Info::MemoryAvailableGB,
                     Info::MemoryTotalGB, Info::MemoryTotalGBRounded),
             numbers(0, 0, 0, 0, 0, 0, 0, 0));
    QCOMPARE(numbers(Info::NetUpRate, Info::NetDownRate), numbers(0, 0));
    QCOMPARE(numbers(Info::GpuTemperature, Info::GpuClock, Info::GpuLoad, Info::GpuMemoryClock,
                     Info::GpuMemoryUsage, Info::GpuMemoryAllocated, Info::GpuPower,
                     Info::GpuVoltage),
             numbers(0, 0, 0, 0, 0, 0, 0, 0));
    QCOMPARE((QStringList{Info::CpuUsageUnits, Info::CpuTemperatureUnits, Info::CpuClockUnits,
                          Info::CpuPowerUnits, Info::CpuVoltageUnits, Info::MemoryLoadUnits})
                 .join(QLatin1Char(' ')),
             QStringLiteral("% °C MHz  V %"));
    QCOMPARE((QStringList{Info::NetUpRateUnits, Info::NetDownRateUnits}).join(QLatin1Char(' ')),
             QStringLiteral("Kb/s Kb/s"));
    QCOMPARE(
        (QStringList{Info::GpuTemperatureUnits, Info::GpuClockUnits, Info::GpuLoadUnits,
                     Info::GpuMemoryClockUnits, Info::GpuMemoryUsageUnits,
                     Info::GpuMemoryAllocatedUnits, Info::GpuPowerUnits, Info::GpuVoltageUnits})
            .join(QLatin1Char(' ')),
        QStringLiteral("°C MHz % MHz % MB W V"));
    QCOMPARE(Info::AIOPump, QStringLiteral("nodata"));
    QVERIFY(Info::CpuFanList.isEmpty());
    QVERIFY(Info::SensorList.isEmpty());
    QVERIFY(Info::SmartInfo.isEmpty());
    QVERIFY(Info::DriveTemperatureList.isEmpty());
    QCOMPARE(Info::AllSensorsData.keys(), QStringList(QStringLiteral("FPS")));
}

void tst_SensorRefresh::refreshWithoutALibraryHoldsZeros()
{
    fillSnapshot();
    InMemoryMachine::drives = {{QStringLiteral("/"), QString(), InMemoryMachine::gigabytes(1, 2)}};
    refreshSystemInfor(nullptr, 0);
    QCOMPARE(Info::CpuUsage, 0U);
    QCOMPARE(Info::GpuTemperatureUnits, QStringLiteral("°C"));
    QCOMPARE(Info::AIOPump, QStringLiteral("nodata"));
    QVERIFY(Info::SensorList.isEmpty());
    QCOMPARE(Info::DriveRoots, QStringList(QStringLiteral("/")));
    Info::CpuModel.clear();
    Info::GpuModel.clear();
    refreshModelNames(nullptr);
    QCOMPARE(Info::CpuModel, QString());
    QCOMPARE(Info::GpuModel, QStringLiteral("integrated GPU"));
}

void tst_SensorRefresh::storesModelNames()
{
    InMemoryLibrary::allSensors =
        json(R"({"CPU [#0]: AMD Ryzen 9 5900X":{},"GPU [#0]: NVIDIA GeForce RTX 3080: Asus":{}})");
    Info::CpuModel.clear();
    Info::GpuModel.clear();
    refreshModelNames(&m_library);
    QCOMPARE(Info::CpuModel, QStringLiteral("AMD Ryzen 9 5900X"));
    QCOMPARE(Info::GpuModel, QStringLiteral("NVIDIA GeForce RTX 3080"));
}

namespace {

template <typename... Numbers>
QSet<const void *> addresses(const Numbers &...numbers)
{
    return {&numbers...};
}

QSet<const void *> everyNumberThatMayBeMissing()
{
    return addresses(Info::CpuUsage, Info::CpuTemperature, Info::CpuClock, Info::CpuPower,
                     Info::CpuVoltage, Info::MemoryLoad, Info::MemoryUsedMB, Info::MemoryUsedGB,
                     Info::MemoryAvailableMB, Info::MemoryAvailableGB, Info::MemoryTotalMB,
                     Info::NetUpRate, Info::NetDownRate, Info::GpuTemperature, Info::GpuClock,
                     Info::GpuLoad, Info::GpuMemoryClock, Info::GpuMemoryUsage,
                     Info::GpuMemoryAllocated, Info::GpuPower, Info::GpuVoltage, Info::AudioVolume);
}

} // namespace

void tst_SensorRefresh::knowsWhatIsMissing()
{
    Info::MissingNumbers = addresses(Info::CpuModel);
    refresh();
    QCOMPARE(Info::MissingNumbers, everyNumberThatMayBeMissing());
    QVERIFY(Info::PumpNumber.isMissing);
    QCOMPARE(Info::GpuMemorySize, 0.0);
    InMemoryLibrary::smartInfo = json(R"({"sda":{"Drive Temperature":[{"value":40}]},"sdb":{},
        "sdc":{"Drive Temperature":[{"value":40.5}]}})");
    refresh();
    QCOMPARE(Info::DrivesWithoutTemperature,
             (QStringList{QStringLiteral("sdb"), QStringLiteral("sdc")}));
}

void tst_SensorRefresh::knowsWhatIsThere_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<bool>("isNumber");
    QTest::newRow("number") << QByteArray("7") << true;
    QTest::newRow("zero") << QByteArray("0") << true;
    QTest::newRow("text") << QByteArray("\"7\"") << false;
    QTest::newRow("null") << QByteArray("null") << false;
}

/// Every reading but the volume, all with the same value.
void tst_SensorRefresh::knowsWhatIsThere()
{
    QFETCH(QByteArray, value);
    QFETCH(bool, isNumber);
    const auto tree = [&value](QByteArray text) { return json(text.replace('#', value)); };
    InMemoryLibrary::systemInfo = tree(R"({"Physical Memory Load":[{"value":#}],
        "Physical Memory Used":[{"value":#}],"Physical Memory Available":[{"value":#}]})");
    InMemoryLibrary::cpuInfo = tree(R"({"Total CPU Usage":[{"value":#}],
        "Core 0 Clock":[{"value":#}],"Core 0 VID":[{"value":#}]})");
    InMemoryLibrary::cpuDtsInfo = tree(R"({"CPU Package":[{"value":#}]})");
    InMemoryLibrary::cpuEnhancedInfo = tree(R"({"CPU Package Power":[{"value":#}]})");
    InMemoryLibrary::gpuInfo = tree(R"({"card":{"GPU Memory Total":[{"value":4096}],
        "GPU Temperature":[{"value":#}],"GPU Clock":[{"value":#}],"GPU Core Load":[{"value":#}],
        "GPU Memory Clock":[{"value":#}],"GPU Memory Usage":[{"value":#}],
        "GPU Memory Allocated":[{"value":#}],"GPU Power":[{"value":#}],
        "GPU Core Voltage":[{"value":#}]}})");
    InMemoryLibrary::networkInfo = tree(R"({"eth0":{"Current UP rate":[{"value":#,"units":"KB/s"}],
        "Current DL rate":[{"value":#,"units":"KB/s"}]},"eth1":{}})");
    InMemoryMachine::devices = {{QStringLiteral("Speakers"), 0.0F}};
    refresh();
    QSet<const void *> missing = everyNumberThatMayBeMissing();
    missing.remove(&Info::AudioVolume);
    QCOMPARE(Info::MissingNumbers, isNumber ? QSet<const void *>() : missing);
    QCOMPARE(Info::GpuMemorySize, 4096.0);
}

void tst_SensorRefresh::storesTheNumbersOfSensors()
{
    InMemoryLibrary::allSensors = json(R"({"Board":{"CPU Fan":[{"value":1234567.5,"units":"RPM"}],
        "AIO Pump":[{"value":1850.25,"units":"RPM"}],"Bad":[{"value":"x","units":"V"}],
        "Single":{"value":3,"units":"W"}}})");
    refresh();
    QCOMPARE(Info::PumpNumber.value, 1850.25);
    QCOMPARE(Info::PumpNumber.units, QStringLiteral("RPM"));
    QVERIFY(!Info::PumpNumber.isMissing);
    QCOMPARE(Info::CpuFanNumbers.size(), 1);
    QCOMPARE(Info::CpuFanNumbers.at(0).value, 1234567.5);
    QCOMPARE(Info::AllSensorNumbers.size(), Info::SensorList.size());
    QStringList listed;
    for (int index = 0; index < Info::SensorList.size(); ++index) {
        const Reading<double> &number = Info::AllSensorNumbers.at(index);
        listed.append(Info::SensorList.at(index).first + QLatin1Char(' ') +
                      (number.isMissing ? QStringLiteral("missing")
                                        : QString::number(number.value, 'f', 2) + number.units));
    }
    QCOMPARE(listed.join(QStringLiteral(", ")),
             QStringLiteral("AIO Pump 1850.25RPM, Bad missing, CPU Fan 1234567.50RPM, "
                            "Single 3.00W"));
}

QTEST_APPLESS_MAIN(tst_SensorRefresh)
#include "tst_sensorrefresh.moc"
