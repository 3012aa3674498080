#include "deck_simulator/panel/InspectorRequests.h"

#include "deck_simulator/deck/ActionList.h"
#include "tests/support/KeyUuids.h"

#include <QtTest>

using namespace deck;

class tst_InspectorRequests : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void asksForEveryActionThatTheServerKnows();
    void makesPreviews_data();
    void makesPreviews();
    void previewsLists();
    void previewsTheChosenSensor();
    void refusesStrangeReplies();
};

void tst_InspectorRequests::asksForEveryActionThatTheServerKnows()
{
    QStringList unknown;
    for (const DeckAction &action : deckActions()) {
        if (inspectorRequests(action.uuid).isEmpty())
            unknown.append(action.caption);
    }
    QCOMPARE(unknown, (QStringList{QStringLiteral("CPU fan speed"), QStringLiteral("Pump speed")}));
    QCOMPARE(inspectorRequests(keyuuid::netWork),
             (QStringList{QStringLiteral("Network Upload Speed"),
                          QStringLiteral("Network Download Speed")}));
    QVERIFY(inspectorRequests(QStringLiteral("no.such")).isEmpty());
}

void tst_InspectorRequests::makesPreviews_data()
{
    QTest::addColumn<QString>("action");
    QTest::addColumn<QByteArrayList>("replies");
    QTest::addColumn<QString>("text");
    QTest::newRow("a reading") << keyuuid::cpu
                               << QByteArrayList{"{\"event\":\"Cpu Usage\",\"info\":\"37%\"}"}
                               << QStringLiteral("37%");
    QTest::newRow("before the reply") << keyuuid::cpu << QByteArrayList() << QString();
    QTest::newRow("without a unit")
        << keyuuid::memoryUsedGB
        << QByteArrayList{"{\"event\":\"Memory Used MB\",\"info\":\"1536\"}"}
        << QStringLiteral("1536 MB");
    QTest::newRow("installed memory")
        << keyuuid::memoryModel << QByteArrayList{"{\"event\":\"Memory Model\",\"info\":\"31\"}"}
        << QStringLiteral("31 GB that the system may use, rounded");
    QTest::newRow("two readings")
        << keyuuid::netWork
        << QByteArrayList{"{\"event\":\"Network Upload Speed\",\"info\":\"1KB/s\"}",
                          "{\"event\":\"Network Download Speed\",\"info\":\"2KB/s\"}"}
        << QStringLiteral("Network Upload Speed: 1KB/s\nNetwork Download Speed: 2KB/s");
    QTest::newRow("the latest") << keyuuid::cpu
                                << QByteArrayList{"{\"event\":\"Cpu Usage\",\"info\":\"1%\"}",
                                                  "{\"event\":\"Cpu Usage\",\"info\":\"2%\"}"}
                                << QStringLiteral("2%");
    QTest::newRow("another type") << keyuuid::cpu
                                  << QByteArrayList{"{\"event\":\"Cpu Usage\",\"info\":{}}"}
                                  << QString();
}

void tst_InspectorRequests::makesPreviews()
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

void tst_InspectorRequests::previewsLists()
{
    InspectorReadings readings;
    QVERIFY(readings.take(R"({"event":"drives","info":[{"driveName":"/","volumeName":"root",
                             "freeSpaceGB":74,"freeSpacePercent":29}, 7]})"));
    QVERIFY(readings.take(R"({"event":"totalDisksFreeSpace","info":"74"})"));
    QVERIFY(readings.take(R"({"event":"totalDisksTotalSpace","info":"251"})"));
    const QString drives = readings.previewText(keyuuid::physicalDisk, {});
    QVERIFY2(drives.startsWith(QLatin1String("/: 74 GB free, 29 %\n")), qPrintable(drives));
    QVERIFY(drives.endsWith(QLatin1String("All: 74 GB free of 251 GB")));

    QVERIFY(readings.take(R"({"event":"defaultAudioEndpointVolume","info":"40"})"));
    QVERIFY(readings.take(R"({"event":"AllAudioEndpointVolume",
                             "info":[{"AudioNames":"Speakers","AudioNameszf":0.25}]})"));
    QCOMPARE(readings.previewText(keyuuid::volume, {}),
             QStringLiteral("Default device: 40 %\nSpeakers: 0.25"));

    QVERIFY(readings.take(R"({"event":"Disk Temperature","info":{
        "Disk A": {"Drive Temperature": [{"value": 38, "units": "°C"}]},
        "Disk B": {"Drive Temperature": [{"value": 41, "units": "°C"}]}}})"));
    EntrySettings settings;
    QCOMPARE(readings.previewText(keyuuid::diskTemperature, settings),
             QStringLiteral("Disk A: 38°C"));
    settings.selectPhysicalDisk = QStringLiteral("Disk B");
    QCOMPARE(readings.previewText(keyuuid::diskTemperature, settings),
             QStringLiteral("Disk B: 41°C"));
}

void tst_InspectorRequests::previewsTheChosenSensor()
{
    InspectorReadings readings;
    QVERIFY(readings.take(R"({"CPU":{"Core 0":[{"value":45,"units":"°C"}],
                                     "Core 1":[{"value":46,"units":"°C"}]}})"));
    QVERIFY(!readings.sensors().isEmpty());
    EntrySettings settings;
    settings.selectValue = QStringLiteral("Core 1");
    QCOMPARE(readings.previewText(keyuuid::allData, settings), QStringLiteral("Core 1: 46°C"));
    settings.selectValue = QStringLiteral("gone");
    QCOMPARE(readings.previewText(keyuuid::allData, settings),
             QStringLiteral("not available on this machine (there is no \"gone\")"));
}

void tst_InspectorRequests::refusesStrangeReplies()
{
    InspectorReadings readings;
    for (const char *reply : {"", "no JSON", "[]", "7", "{}"})
        QVERIFY2(!readings.take(reply), reply);
    QVERIFY(readings.sensors().isEmpty());
}

QTEST_GUILESS_MAIN(tst_InspectorRequests)
#include "tst_InspectorRequests.moc"
