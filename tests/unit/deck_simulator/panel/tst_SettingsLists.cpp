#include "deck_simulator/deck/ActionList.h"
#include "deck_simulator/panel/InspectorRequests.h"
#include "deck_simulator/panel/PanelFields.h"
#include "deck_simulator/panel/SettingsLists.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QtTest>

// What a settings panel makes of the plugin's replies.
class tst_SettingsLists : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsFonts();
    void readsSensors();
    void readsFans();
    void readsDisks();
    void readsDrives();
    void readsDevices();
    void readsThePump();
    void isEmptyForStrangeReplies_data();
    void isEmptyForStrangeReplies();
    void isBounded();
    void showsOnlyWhatApplies_data();
    void showsOnlyWhatApplies();
    void asksForEveryActionThatTheServerKnows();
    void makesPreviews_data();
    void makesPreviews();
    void previewsLists();
    void previewsTheChosenSensor();
    void refusesStrangeReplies();
};

namespace {

QJsonObject parse(const char *json)
{
    return QJsonDocument::fromJson(json).object();
}

QString uuid(const char *name)
{
    return QStringLiteral("com.quellor.stream.") + QLatin1String(name);
}

} // namespace

void tst_SettingsLists::readsFonts()
{
    const SettingsLists lists = listsFrom(parse(
        R"({"titleParameters": {"FontList": [{"name": "Roboto-Black Bold", "value": "Roboto|Bold"},
                  {"value": "Nameless"}, {"name": "Valueless"}, 7]}})"));
    QCOMPARE(lists.fonts.size(), 2);
    QCOMPARE(lists.fonts.at(0).value, QStringLiteral("Roboto|Bold"));
    QCOMPARE(lists.fonts.at(0).label, QStringLiteral("Roboto Bold"));
    QCOMPARE(lists.fonts.at(1).label, QStringLiteral("Nameless"));
}

void tst_SettingsLists::readsSensors()
{
    const SettingsLists lists = listsFrom(parse(
        R"({"titleParameters": {"AllData": {
            "CPU [#0]: A CPU": {"Core 0": [{"value": 45.5, "units": "°C"}],
                                "Core 1": [{"value": 40, "units": "°C"}, {"units": "lost"}]},
            "GPU": {"Card": {"Load": [{"value": 3, "units": "%"}]}},
            "FPS": {}, "strange": 7, "text": "x"}}})"));
    QCOMPARE(lists.sensors.size(), 3);
    QCOMPARE(lists.sensors.at(0).value, QStringLiteral("Core 0"));
    QCOMPARE(lists.sensors.at(0).group, QStringLiteral("CPU [#0]: A CPU"));
    QCOMPARE(lists.sensors.at(0).reading, QStringLiteral("45.5°C"));
    QCOMPARE(lists.sensors.at(2).value, QStringLiteral("Load"));
    QCOMPARE(lists.sensors.at(2).group, QStringLiteral("Card"));
}

void tst_SettingsLists::readsFans()
{
    const SettingsLists lists = listsFrom(parse(
        R"({"titleParameters": {"CPUFanList": {"CPU Fan": [{"value": "1850", "units": "RPM"}]}}})"));
    QCOMPARE(lists.fans.size(), 1);
    QCOMPARE(lists.fans.at(0).value, QStringLiteral("CPU Fan"));
    QCOMPARE(lists.fans.at(0).reading, QStringLiteral("1850RPM"));
}

void tst_SettingsLists::readsDisks()
{
    const SettingsLists lists = listsFrom(parse(
        R"({"titleParameters": {"PhysicalDiskTemperatureList": {
            "Disk A": {"Drive Remaining Life": [{"value": 90, "units": "%"}],
                       "Drive Temperature": [{"value": 38, "units": "°C"}]},
            "Disk B": {}}}})"));
    QCOMPARE(lists.disks.size(), 2);
    QCOMPARE(lists.disks.at(0).value, QStringLiteral("Disk A"));
    QCOMPARE(lists.disks.at(0).reading, QStringLiteral("38°C"));
    QCOMPARE(lists.disks.at(1).value, QStringLiteral("Disk B"));
    QCOMPARE(lists.disks.at(1).reading, QString());
}

void tst_SettingsLists::readsDrives()
{
    const SettingsLists lists =
        listsFrom(parse(R"({"DriveNames": ["/", "/home", "/srv"], "VolumeNames": ["root", "/home"],
                            "titleParameters": {}})"));
    QCOMPARE(lists.drives.size(), 3);
    QCOMPARE(lists.drives.at(0).value, QStringLiteral("0"));
    QCOMPARE(lists.drives.at(0).label, QStringLiteral("/ (root)"));
    QCOMPARE(lists.drives.at(1).label, QStringLiteral("/home"));
    QCOMPARE(lists.drives.at(2).value, QStringLiteral("2"));
    QCOMPARE(lists.drives.at(2).label, QStringLiteral("/srv"));
}

void tst_SettingsLists::readsDevices()
{
    const SettingsLists lists =
        listsFrom(parse(R"({"titleParameters": {"devices": ["Speakers", 3, "耳机"]}})"));
    QCOMPARE(lists.audioDevices.size(), 2);
    QCOMPARE(lists.audioDevices.at(1).value, QStringLiteral("耳机"));
}

void tst_SettingsLists::readsThePump()
{
    QCOMPARE(listsFrom(parse(R"({"titleParameters": {"PumpSpeed": "1850RPM"}})")).pump,
             QStringLiteral("1850RPM"));
}

void tst_SettingsLists::isEmptyForStrangeReplies_data()
{
    QTest::addColumn<QByteArray>("reply");
    QTest::newRow("nothing") << QByteArray("{}");
    QTest::newRow("parameters of another type") << QByteArray("{\"titleParameters\": [1]}");
    QTest::newRow("lists of another type")
        << QByteArray("{\"titleParameters\": {\"FontList\": {}, \"AllData\": [], \"CPUFanList\": 3,"
                      " \"PhysicalDiskTemperatureList\": \"x\", \"devices\": {}, \"PumpSpeed\": 1},"
                      " \"DriveNames\": true, \"VolumeNames\": 1}");
}

void tst_SettingsLists::isEmptyForStrangeReplies()
{
    QFETCH(const QByteArray, reply);
    const SettingsLists lists = listsFrom(QJsonDocument::fromJson(reply).object());
    QVERIFY(lists.fonts.isEmpty());
    QVERIFY(lists.sensors.isEmpty());
    QVERIFY(lists.fans.isEmpty());
    QVERIFY(lists.disks.isEmpty());
    QVERIFY(lists.drives.isEmpty());
    QVERIFY(lists.audioDevices.isEmpty());
    QVERIFY(lists.pump.isEmpty());
}

void tst_SettingsLists::isBounded()
{
    QJsonObject group;
    for (int index = 0; index < longestList + 10; ++index)
        group.insert(QString::number(index), QJsonObject{{QStringLiteral("value"), index},
                                                         {QStringLiteral("units"), QString()}});
    QCOMPARE(sensorsFrom({{QStringLiteral("group"), group}}).size(), longestList);
    QJsonValue deep =
        QJsonObject{{QStringLiteral("value"), 1}, {QStringLiteral("units"), QString()}};
    for (int depth = 0; depth < 200; ++depth)
        deep = QJsonObject{{QStringLiteral("x"), deep}};
    QVERIFY(sensorsFrom(deep.toObject()).isEmpty());
}

void tst_SettingsLists::showsOnlyWhatApplies_data()
{
    QTest::addColumn<QString>("action");
    QTest::addColumn<QString>("diskMode");
    QTest::addColumn<QString>("shown");
    const auto row = [](const char *action, const char *shown, const char *mode = "Single_Disk") {
        QTest::addRow("%s %s", action, mode)
            << uuid(action) << QString::fromLatin1(mode) << QString::fromLatin1(shown);
    };
    row("system.cpu", "");
    row("system.memory", "");
    row("system.cpu.temperature", "temperature");
    row("system.Gpu_Temperature", "temperature");
    row("system.PhysicalDisk.Temperature", "temperature disk");
    row("system.NetWork", "lines");
    row("system.NetWork.Upload", "");
    row("system.volume", "audio");
    row("AllDATA", "sensor");
    row("CPUFan", "fan");
    row("PumpSpeed", "pump");
    row("system.PhysicalDisk", "mode name drive");
    row("system.PhysicalDisk", "mode name time", "Disk_Loop");
    row("system.PhysicalDisk", "mode name", "Total_Disks");
    QTest::newRow("another maker's")
        << QStringLiteral("system.NetWork") << QStringLiteral("Single_Disk") << QString();
}

void tst_SettingsLists::showsOnlyWhatApplies()
{
    QFETCH(const QString, action);
    QFETCH(const QString, diskMode);
    QFETCH(const QString, shown);
    KeySettings settings;
    settings.diskMode = diskMode;
    const PanelFields fields = panelFields(action, settings);
    QStringList names;
    const QVector<QPair<bool, const char *>> all{{fields.temperatureUnit, "temperature"},
                                                 {fields.titleLines, "lines"},
                                                 {fields.sensor, "sensor"},
                                                 {fields.fan, "fan"},
                                                 {fields.physicalDisk, "disk"},
                                                 {fields.audioDevice, "audio"},
                                                 {fields.pump, "pump"},
                                                 {fields.diskMode, "mode"},
                                                 {fields.volumeName, "name"},
                                                 {fields.drive, "drive"},
                                                 {fields.switchTime, "time"}};
    for (const auto &field : all) {
        if (field.first)
            names.append(QString::fromLatin1(field.second));
    }
    QCOMPARE(names.join(QLatin1Char(' ')), shown);
}

void tst_SettingsLists::asksForEveryActionThatTheServerKnows()
{
    QStringList unknown;
    for (const DeckAction &action : deckActions()) {
        if (inspectorRequests(action.uuid).isEmpty())
            unknown.append(action.caption);
    }
    QCOMPARE(unknown, (QStringList{QStringLiteral("CPU fan speed"), QStringLiteral("Pump speed")}));
    QCOMPARE(inspectorRequests(uuid("system.NetWork")),
             (QStringList{QStringLiteral("Network Upload Speed"),
                          QStringLiteral("Network Download Speed")}));
    QVERIFY(inspectorRequests(QStringLiteral("no.such")).isEmpty());
}

void tst_SettingsLists::makesPreviews_data()
{
    QTest::addColumn<QString>("action");
    QTest::addColumn<QByteArrayList>("replies");
    QTest::addColumn<QString>("text");
    QTest::newRow("a reading") << uuid("system.cpu")
                               << QByteArrayList{"{\"event\":\"Cpu Usage\",\"info\":\"37%\"}"}
                               << QStringLiteral("37%");
    QTest::newRow("before the reply") << uuid("system.cpu") << QByteArrayList() << QString();
    QTest::newRow("without a unit")
        << uuid("system.Memory_Used_GB")
        << QByteArrayList{"{\"event\":\"Memory Used MB\",\"info\":\"1536\"}"}
        << QStringLiteral("1536 MB");
    QTest::newRow("two readings")
        << uuid("system.NetWork")
        << QByteArrayList{"{\"event\":\"Network Upload Speed\",\"info\":\"1KB/s\"}",
                          "{\"event\":\"Network Download Speed\",\"info\":\"2KB/s\"}"}
        << QStringLiteral("Network Upload Speed: 1KB/s\nNetwork Download Speed: 2KB/s");
    QTest::newRow("the latest") << uuid("system.cpu")
                                << QByteArrayList{"{\"event\":\"Cpu Usage\",\"info\":\"1%\"}",
                                                  "{\"event\":\"Cpu Usage\",\"info\":\"2%\"}"}
                                << QStringLiteral("2%");
    QTest::newRow("another type") << uuid("system.cpu")
                                  << QByteArrayList{"{\"event\":\"Cpu Usage\",\"info\":{}}"}
                                  << QString();
}

void tst_SettingsLists::makesPreviews()
{
    QFETCH(const QString, action);
    QFETCH(const QByteArrayList, replies);
    QFETCH(const QString, text);
    InspectorReadings readings;
    for (const QByteArray &reply : replies)
        QVERIFY(readings.take(reply));
    QCOMPARE(readings.previewText(action, {}), text);
    readings.clear();
    QCOMPARE(readings.previewText(action, {}), QString());
}

void tst_SettingsLists::previewsLists()
{
    InspectorReadings readings;
    QVERIFY(readings.take(R"({"event":"drives","info":[{"driveName":"/","volumeName":"root",
                             "freeSpaceGB":74,"freeSpacePercent":29}, 7]})"));
    QVERIFY(readings.take(R"({"event":"totalDisksFreeSpace","info":"74"})"));
    QVERIFY(readings.take(R"({"event":"totalDisksTotalSpace","info":"251"})"));
    const QString drives = readings.previewText(uuid("system.PhysicalDisk"), {});
    QVERIFY2(drives.startsWith(QLatin1String("/: 74 GB free, 29 %\n")), qPrintable(drives));
    QVERIFY(drives.endsWith(QLatin1String("All: 74 GB free of 251 GB")));

    QVERIFY(readings.take(R"({"event":"defaultAudioEndpointVolume","info":"40"})"));
    QVERIFY(readings.take(R"({"event":"AllAudioEndpointVolume",
                             "info":[{"AudioNames":"Speakers","AudioNameszf":0.25}]})"));
    QCOMPARE(readings.previewText(uuid("system.volume"), {}),
             QStringLiteral("Default device: 40 %\nSpeakers: 0.25"));

    QVERIFY(readings.take(R"({"event":"Disk Temperature","info":{
        "Disk A": {"Drive Temperature": [{"value": 38, "units": "°C"}]},
        "Disk B": {"Drive Temperature": [{"value": 41, "units": "°C"}]}}})"));
    KeySettings settings;
    QCOMPARE(readings.previewText(uuid("system.PhysicalDisk.Temperature"), settings),
             QStringLiteral("Disk A: 38°C"));
    settings.selectPhysicalDisk = QStringLiteral("Disk B");
    QCOMPARE(readings.previewText(uuid("system.PhysicalDisk.Temperature"), settings),
             QStringLiteral("Disk B: 41°C"));
}

void tst_SettingsLists::previewsTheChosenSensor()
{
    InspectorReadings readings;
    QVERIFY(readings.take(R"({"CPU":{"Core 0":[{"value":45,"units":"°C"}],
                                     "Core 1":[{"value":46,"units":"°C"}]}})"));
    QVERIFY(!readings.sensors().isEmpty());
    KeySettings settings;
    settings.selectValue = QStringLiteral("Core 1");
    QCOMPARE(readings.previewText(uuid("AllDATA"), settings), QStringLiteral("Core 1: 46°C"));
    settings.selectValue = QStringLiteral("gone");
    QCOMPARE(readings.previewText(uuid("AllDATA"), settings), QString());
}

void tst_SettingsLists::refusesStrangeReplies()
{
    InspectorReadings readings;
    for (const char *reply : {"", "no JSON", "[]", "7", "{}"})
        QVERIFY2(!readings.take(reply), reply);
    QVERIFY(readings.sensors().isEmpty());
}

QTEST_GUILESS_MAIN(tst_SettingsLists)
#include "tst_SettingsLists.moc"
