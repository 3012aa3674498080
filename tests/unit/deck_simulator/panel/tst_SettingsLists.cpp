#include "deck_simulator/panel/SettingsLists.h"

#include <QJsonDocument>
#include <QtTest>

using namespace deck;

// The lists that a settings panel makes of the plugin's replies.
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
};

namespace {

QJsonObject parse(const char *json)
{
    return QJsonDocument::fromJson(json).object();
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

QTEST_GUILESS_MAIN(tst_SettingsLists)
#include "tst_SettingsLists.moc"
