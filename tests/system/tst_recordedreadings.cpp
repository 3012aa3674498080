#include "tests/support/DataServerClient.h"
#include "tests/support/Json.h"
#include "tests/support/KeyUuids.h"
#include "tests/support/RunningPlugin.h"
#include "tests/support/SoundServer.h"
#include "tests/support/Waits.h"

#include <QFile>
#include <QtTest>

#include <memory>

/// Every kind of key and every request, on the readings of a recorded machine.
class tst_RecordedReadings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();

    void showsEveryKindOfKey_data();
    void showsEveryKindOfKey();
    void logsEachKeyOfAPass();
    void answersEveryRequest_data();
    void answersEveryRequest();
    void answersEverySensor();
    void offersLists_data();
    void offersLists();
    void choosesTheSensorAnew();
    void namesAudioDevices();
    void carriesADiskTemperatureOver();
    void goesOnWithTheRecordingBroken();

private:
    QString titleOf(const QString &context) const;

    std::unique_ptr<SoundServer> m_sound;
    bool m_hasSound = false;
    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<RunningPlugin> m_plugin;
    std::unique_ptr<DataServerClient> m_panel;
    FakeHost *m_host = nullptr;
};

namespace {

struct KeyRow
{
    const char *name;
    QString uuid;
    const char *settings; ///< Besides an empty title.
    const char *title;
};

const KeyRow keyRows[] = {
    {"memory load", keyuuid::memory, "{}", "90%"},
    {"CPU usage", keyuuid::cpu, "{}", "37%"},
    {"CPU temperature", keyuuid::cpuTemperature, "{}", "45°"},
    {"CPU temperature in Fahrenheit", keyuuid::cpuTemperature, R"({"temperatureType": "华氏度"})",
     "113°"},
    {"CPU clock", keyuuid::cpuClock, "{}", "4150MHz"},
    {"CPU power", keyuuid::cpuPower, "{}", "65.3W"},
    {"network", keyuuid::netWork, "{}", "1.2Kb/s  3.0MB/s"},
    {"network on two lines", keyuuid::netWork, R"({"titleLines": "双行显示"})", "1.2Kb/s\n3.0MB/s"},
    {"GPU temperature", keyuuid::gpuTemperature, "{}", "51°"},
    {"GPU temperature in Fahrenheit", keyuuid::gpuTemperature, R"({"temperatureType": "华氏度"})",
     "123°"},
    {"GPU clock", keyuuid::gpuClock, "{}", "1905MHz"},
    {"GPU load", keyuuid::gpuLoad, "{}", "99%"},
    {"GPU memory clock", keyuuid::gpuMemoryClock, "{}", "9501MHz"},
    {"GPU memory usage", keyuuid::gpuMemoryUsage, "{}", "49%"},
    {"free MB", keyuuid::memoryFreeMB, "{}", "1536MB"},
    {"used MB", keyuuid::memoryUsedMB, "{}", "14592MB"},
    {"total MB", keyuuid::memoryTotalMB, "{}", "16128MB"},
    {"free GB", keyuuid::memoryFreeGB, "{}", "1.5GB"},
    {"used GB", keyuuid::memoryUsedGB, "{}", "14.3GB"},
    {"total GB", keyuuid::memoryTotalGB, "{}", "15.8GB"},
    {"GPU memory", keyuuid::gpuMemoryUsed, "{}", "2048MB"},
    {"GPU power", keyuuid::gpuPower, "{}", "120.0W"},
    {"volume", keyuuid::volume, "{}", "35%"},
    {"CPU model", keyuuid::cpuModel, "{}", "AMD Ryzen 9 5900X"},
    {"GPU model", keyuuid::gpuModel, "{}", "NVIDIA GeForce RTX 3080"},
    {"GPU voltage", keyuuid::gpuVoltage, "{}", "0.913V"},
    {"disk temperature", keyuuid::diskTemperature, "{}", "40°"},
    {"second disk's temperature", keyuuid::diskTemperature, R"({"SelectPhysicalDisk": "Disk B"})",
     "38°"},
    {"installed memory", keyuuid::memoryModel, "{}", "16G"},
    {"upload", keyuuid::upload, "{}", "1.2Kb/s"},
    {"download", keyuuid::download, "{}", "3.0MB/s"},
    {"any sensor", keyuuid::allData, "{}", "51°C"},
    {"chosen sensor", keyuuid::allData, R"({"SelectValue": "Framerate"})", "143.75FPS"},
    {"sensor that there is not", keyuuid::allData, R"({"SelectValue": "x"})", "null"},
    {"CPU voltage", keyuuid::cpuVoltage, "{}", "1.225V"},
    {"pump", keyuuid::pumpSpeed, "{}", "1850RPM"},
    {"CPU fan", keyuuid::cpuFan, "{}", "1200RPM"},
    {"CPU fan that there is not", keyuuid::cpuFan, R"({"SelectCPUFan": "x"})", "nodata"},
};

QString context(const char *name)
{
    return QString::fromUtf8(name);
}

QJsonObject untitled(const char *settings)
{
    QJsonObject changes = json(settings);
    changes.insert(QStringLiteral("showTitle"), false);
    return FakeHost::keySettings(changes);
}

} // namespace

void tst_RecordedReadings::initTestCase()
{
    m_sound = std::make_unique<SoundServer>();
    m_hasSound = m_sound->start() &&
                 m_sound->control({QStringLiteral("set-default-sink"), QStringLiteral("phones")}) &&
                 m_sound->control({QStringLiteral("set-sink-volume"), QStringLiteral("phones"),
                                   QStringLiteral("23265")});
    m_folder = std::make_unique<QTemporaryDir>();
    const QString recording = m_folder->filePath(QStringLiteral("recording.json"));
    QVERIFY(QFile::copy(QStringLiteral(RECORDINGS_FOLDER "/desktop.json"), recording));

    m_plugin = std::make_unique<RunningPlugin>();
    m_host = &m_plugin->host;
    m_plugin->process.setVariable(QStringLiteral("SYSTEM_MONITOR_RECORDING"), recording);
    QVERIFY(m_plugin->start());
    for (const KeyRow &row : keyRows)
        m_host->appear(row.uuid, context(row.name), untitled(row.settings));
    m_panel = std::make_unique<DataServerClient>();
    QVERIFY(m_panel->open());
}

void tst_RecordedReadings::cleanupTestCase()
{
    QVERIFY(m_plugin->process.isRunning());
    m_panel.reset();
    m_plugin.reset();
    m_sound.reset();
}

QString tst_RecordedReadings::titleOf(const QString &context) const
{
    return m_host->waitForUpdate(context) ? m_host->titles(context).constLast() : QString();
}

void tst_RecordedReadings::showsEveryKindOfKey_data()
{
    QTest::addColumn<QString>("title");
    for (const KeyRow &row : keyRows)
        QTest::newRow(row.name) << QString::fromUtf8(row.title);
}

void tst_RecordedReadings::showsEveryKindOfKey()
{
    const QString key = QString::fromUtf8(QTest::currentDataTag());
    if (key == QLatin1String("volume") && !m_hasSound)
        QSKIP(qPrintable(QStringLiteral("no sound server: ") + m_sound->reason()));
    QVERIFY(m_host->waitForMessages(QStringLiteral("setTitle"), key, 1));
    QTEST(m_host->titles(key).constLast(), "title");
    QVERIFY(FakeHost::hasInk(m_host->images(key).constLast()));
}

void tst_RecordedReadings::logsEachKeyOfAPass()
{
    QVERIFY(!titleOf(context("CPU fan")).isEmpty());
    const QString key = QStringLiteral("get_operator->GetAction(): ");
    QTRY_VERIFY(m_plugin->process.hasLoggedInOrder(
        {QStringLiteral("updateImages"), key + keyuuid::cpu, key + keyuuid::pumpSpeed,
         QStringLiteral("updateImages PumpSpeed"), key + keyuuid::cpuFan,
         QStringLiteral("updateImages CPUFan"),
         QStringLiteral("-------------------updateImages over---------------------")}));
}

void tst_RecordedReadings::answersEveryRequest_data()
{
    QTest::addColumn<QString>("info");
    const auto row = [](const char *request, const char *info) {
        QTest::newRow(request) << QString::fromUtf8(info);
    };
    row("Cpu Usage", "37%");
    row("Cpu Temperature", "45°C");
    row("Cpu Clock", "4150MHz");
    row("Cpu Power", "65.26W");
    row("Physical Memory Usage", "90%");
    row("Network Upload Speed", "1.24Kb/s");
    row("Network Download Speed", "3MB/s");
    row("Gpu Temperature", "51°C");
    row("Gpu Core Clock", "1905MHz");
    row("Gpu Core Utility", "99%");
    row("Gpu Memory Clock", "9501MHz");
    row("Gpu Memory Utility", "49.9%");
    row("Memory Used MB", "14592");
    row("Memory Free MB", "1536");
    row("Memory Total MB", "16128");
    row("Gpu Memory Used", "2048MB");
    row("Gpu Power", "120W");
    row("defaultAudioEndpointVolume", "35");
    row("Cpu Model", "AMD Ryzen 9 5900X");
    row("Gpu Model", "NVIDIA GeForce RTX 3080");
    row("Gpu Voltage", "0.9127V");
    row("Memory Model", "16");
    row("Cpu Voltage", "1.225V");
}

void tst_RecordedReadings::answersEveryRequest()
{
    QFETCH(QString, info);
    const QString request = QString::fromUtf8(QTest::currentDataTag());
    if (request == QLatin1String("defaultAudioEndpointVolume") && !m_hasSound)
        QSKIP(qPrintable(QStringLiteral("no sound server: ") + m_sound->reason()));
    QCOMPARE(m_panel->ask(request),
             QStringLiteral(R"({"event":"%1","info":"%2"})").arg(request, info));
}

void tst_RecordedReadings::answersEverySensor()
{
    QFile recording(QStringLiteral(RECORDINGS_FOLDER "/desktop.json"));
    QVERIFY(recording.open(QIODevice::ReadOnly));
    const QJsonObject trees = json(recording.readAll());
    QCOMPARE(json(m_panel->ask(QStringLiteral("GetAllSensorsData")).toUtf8()),
             trees.value(QStringLiteral("getAllSensorsData")).toObject());
    QCOMPARE(json(m_panel->ask(QStringLiteral("Disk Temperature")).toUtf8())
                 .value(QStringLiteral("info"))
                 .toObject(),
             trees.value(QStringLiteral("getSMARTInfo")).toObject());
}

void tst_RecordedReadings::offersLists_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QJsonObject>("members");
    QTest::newRow("sensors") << context("any sensor")
                             << json(R"({"SelectValue": "GPU Temperature"})");
    QTest::newRow("fans")
        << context("CPU fan")
        << json(
               R"({"SelectCPUFan": "CPU Fan", "CPUFanList": {"CPU Fan": [{"value": "1200", "units": "RPM"}]}})");
    QTest::newRow("pump") << context("pump") << json(R"({"PumpSpeed": "1850RPM"})");
    QTest::newRow("disks") << context("disk temperature")
                           << json(R"({"SelectPhysicalDisk": "Disk A",
            "PhysicalDiskTemperatureList": {"Disk A": {"Drive Temperature": [{"value": 40, "units": "°C"}]},
                                            "Disk B": {"Drive Temperature 2": [{"value": 38, "units": "°C"}]}}})");
}

void tst_RecordedReadings::offersLists()
{
    QFETCH(QString, key);
    QFETCH(QJsonObject, members);
    const QJsonObject parameters =
        m_host->settings(key).constFirst().value(QStringLiteral("titleParameters")).toObject();
    for (auto member = members.begin(); member != members.end(); ++member)
        QCOMPARE(parameters.value(member.key()), member.value());
}

void tst_RecordedReadings::choosesTheSensorAnew()
{
    const QString key = QStringLiteral("changing sensor");
    const QString uuid = keyuuid::allData;
    m_host->appear(uuid, key, untitled("{}"));
    QCOMPARE(titleOf(key), QStringLiteral("51°C"));
    const auto choose = [&](const char *settings) {
        m_host->sendEvent(QStringLiteral("didReceiveSettings"), uuid, key,
                          {{QStringLiteral("settings"), untitled(settings)}});
        return titleOf(key);
    };
    QCOMPARE(choose(R"({"SystemDataSelect": "Vcore", "SelectValue": "CPU Fan"})"),
             QStringLiteral("1.225V"));
    QCOMPARE(choose(R"({"SystemDataSelect": "", "SelectValue": "CPU Package"})"),
             QStringLiteral("45.9C"));
    QCOMPARE(choose("{}"), QStringLiteral("51°C"));
    m_host->disappear(uuid, key);
}

void tst_RecordedReadings::namesAudioDevices()
{
    if (!m_hasSound)
        QSKIP(qPrintable(QStringLiteral("no sound server: ") + m_sound->reason()));
    const QJsonObject parameters = m_host->settings(context("volume"))
                                       .constFirst()
                                       .value(QStringLiteral("titleParameters"))
                                       .toObject();
    QCOMPARE(parameters.value(QStringLiteral("devices")).toArray(),
             (QJsonArray{QStringLiteral("Head Phones"), QStringLiteral("Desk Speakers")}));
    const QJsonArray devices = json(m_panel->ask(QStringLiteral("AllAudioEndpointVolume")).toUtf8())
                                   .value(QStringLiteral("info"))
                                   .toArray();
    QCOMPARE(devices.size(), 2);
    QCOMPARE(devices.at(1).toObject(),
             json(R"({"AudioNames": "Desk Speakers", "AudioNameszf": 100})"));
}

void tst_RecordedReadings::carriesADiskTemperatureOver()
{
    // In the order of their appearance: a known disk, then one that does not exist.
    const QString uuid = keyuuid::diskTemperature;
    m_host->appear(uuid, QStringLiteral("known"),
                   untitled(R"({"SelectPhysicalDisk": "Disk A", "temperatureType": "华氏度"})"));
    m_host->appear(uuid, QStringLiteral("unknown"), untitled(R"({"SelectPhysicalDisk": "x"})"));
    QCOMPARE(titleOf(QStringLiteral("unknown")), QStringLiteral("104°"));
    m_host->disappear(uuid, QStringLiteral("known"));
    m_host->disappear(uuid, QStringLiteral("unknown"));
}

void tst_RecordedReadings::goesOnWithTheRecordingBroken()
{
    QFile recording(m_folder->filePath(QStringLiteral("recording.json")));
    QVERIFY(recording.open(QIODevice::WriteOnly | QIODevice::Truncate));
    recording.write("{");
    recording.close();
    QVERIFY(!titleOf(context("CPU usage")).isEmpty());
    QCOMPARE(titleOf(context("CPU usage")), QStringLiteral("37%"));
    QVERIFY(recording.remove());
    QVERIFY(!titleOf(context("CPU usage")).isEmpty());
    QCOMPARE(titleOf(context("CPU usage")), QStringLiteral("37%"));
}

QTEST_GUILESS_MAIN(tst_RecordedReadings)
#include "tst_recordedreadings.moc"
