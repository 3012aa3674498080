#include "deck_simulator/panel/MissingReading.h"

#include "deck_simulator/panel/InspectorRequests.h"
#include "tests/support/KeyUuids.h"

#include <QtTest>

using namespace deck;

class tst_MissingReading : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tellsMissingReadings_data();
    void tellsMissingReadings();
    void asksForTheGraphicsToo();
    void previewsMissingReadings();
    void tellsMissingFans();
};

void tst_MissingReading::tellsMissingReadings_data()
{
    QTest::addColumn<QString>("request");
    QTest::addColumn<QString>("info");
    QTest::addColumn<QString>("graphics");
    QTest::addColumn<bool>("missing");
    const auto row = [](const char *request, const char *info, const char *graphics, bool missing) {
        QTest::newRow(qPrintable(
            QStringLiteral("%1 is %2 with %3")
                .arg(QLatin1String(request), QString::fromUtf8(info), QLatin1String(graphics))))
            << QString::fromLatin1(request) << QString::fromUtf8(info)
            << QString::fromLatin1(graphics) << missing;
    };
    row("defaultAudioEndpointVolume", "4294967295", "", true);
    row("defaultAudioEndpointVolume", "0", "", false);
    row("defaultAudioEndpointVolume", "40", "", false);
    row("Memory Model", "4294967295", "", true);
    row("Cpu Temperature", "0", "", true);
    row("Cpu Temperature", "0°", "", true);
    row("Cpu Temperature", "0°C", "", true);
    row("Cpu Temperature", "45°C", "", false);
    row("Cpu Temperature", "-5°C", "", false);
    row("Cpu Power", "0", "", true);
    row("Cpu Voltage", "0V", "", true);
    row("Cpu Voltage", "0.9V", "", false);
    row("Cpu Model", "", "", true);
    row("Cpu Usage", "0%", "", false); // an idle processor
    row("Network Upload Speed", "0KB/s", "", false);
    row("Gpu Core Utility", "0%", "", false);
    row("Gpu Core Utility", "0%", "Radeon", false);
    row("Gpu Core Utility", "0%", "integrated GPU", true);
    row("Gpu Core Utility", "7%", "integrated GPU", false);
    row("Gpu Model", "integrated GPU", "integrated GPU", true);
    row("Gpu Model", "Radeon", "Radeon", false);
    row("Gpu Temperature", "0°C", "Radeon", true);
    row("no such request", "0", "", false);
}

void tst_MissingReading::tellsMissingReadings()
{
    QFETCH(const QString, request);
    QFETCH(const QString, info);
    QFETCH(const QString, graphics);
    QFETCH(const bool, missing);
    const QString text = missingText(request, info, graphics);
    QCOMPARE(text.startsWith(QLatin1String("not available on this machine")), missing);
    QCOMPARE(text.isEmpty(), !missing);
}

void tst_MissingReading::asksForTheGraphicsToo()
{
    QCOMPARE(inspectorQuestions(keyuuid::gpuTemperature),
             (QStringList{QStringLiteral("Gpu Temperature"), QStringLiteral("Gpu Model")}));
    QCOMPARE(inspectorQuestions(keyuuid::gpuModel), QStringList(QStringLiteral("Gpu Model")));
    QCOMPARE(inspectorQuestions(keyuuid::cpu), QStringList(QStringLiteral("Cpu Usage")));
}

void tst_MissingReading::previewsMissingReadings()
{
    InspectorReadings readings;
    QVERIFY(readings.take(R"({"event":"Gpu Core Clock","info":"0MHz"})"));
    QCOMPARE(readings.previewText(keyuuid::gpuClock, {}), QStringLiteral("0MHz"));
    QVERIFY(readings.take(R"({"event":"Gpu Model","info":"integrated GPU"})"));
    QCOMPARE(readings.previewText(keyuuid::gpuClock, {}),
             QStringLiteral("not available on this machine (no graphics card was found)"));

    QVERIFY(readings.take(R"({"event":"defaultAudioEndpointVolume","info":"4294967295"})"));
    QVERIFY(readings.take(R"({"event":"AllAudioEndpointVolume",
                             "info":[{"AudioNames":"Speakers","AudioNameszf":-1}]})"));
    QCOMPARE(readings.previewText(keyuuid::volume, {}),
             QStringLiteral("Default device: not available on this machine (there is no playback "
                            "device, or the sound server cannot be reached)\n"
                            "Speakers: its volume cannot be read"));

    QVERIFY(readings.take(R"({"event":"totalDisksFreeSpace","info":"0"})"));
    QVERIFY(readings.take(R"({"event":"totalDisksTotalSpace","info":"0"})"));
    QCOMPARE(readings.previewText(keyuuid::physicalDisk, {}),
             QStringLiteral("not available on this machine (no drive can be read)"));

    QCOMPARE(readings.previewText(keyuuid::diskTemperature, {}), QString());
    QVERIFY(readings.take(R"({"event":"Disk Temperature","info":{}})"));
    QCOMPARE(readings.previewText(keyuuid::diskTemperature, {}),
             QStringLiteral("not available on this machine"));
    QVERIFY(readings.take(R"({"event":"Disk Temperature","info":{"Disk A":{}}})"));
    QCOMPARE(readings.previewText(keyuuid::diskTemperature, {}),
             QStringLiteral("Disk A: not available on this machine"));
}

void tst_MissingReading::tellsMissingFans()
{
    QVERIFY(missingFanText(keyuuid::cpuFan, QStringLiteral("Fan: nodata"))
                .startsWith(QLatin1String("not available on this machine")));
    QVERIFY(missingFanText(keyuuid::pumpSpeed, QStringLiteral("nodata"))
                .startsWith(QLatin1String("not available on this machine")));
    QCOMPARE(missingFanText(keyuuid::pumpSpeed, QStringLiteral("Pump: 900RPM")), QString());
    QCOMPARE(missingFanText(keyuuid::cpu, QStringLiteral("nodata")), QString());
}

QTEST_GUILESS_MAIN(tst_MissingReading)
#include "tst_MissingReading.moc"
