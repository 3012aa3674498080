#include "deck_simulator/panel/PanelFields.h"
#include "tests/support/KeyUuids.h"

#include <QtTest>

using namespace deck;

class tst_PanelFields : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void showsOnlyWhatApplies_data();
    void showsOnlyWhatApplies();
};

void tst_PanelFields::showsOnlyWhatApplies_data()
{
    QTest::addColumn<QString>("action");
    QTest::addColumn<QString>("diskMode");
    QTest::addColumn<QString>("shown");
    const auto row = [](const QString &action, const char *shown,
                        const char *mode = "Single_Disk") {
        QTest::addRow("%s %s", qPrintable(action), mode)
            << action << QString::fromLatin1(mode) << QString::fromLatin1(shown);
    };
    row(keyuuid::cpu, "");
    row(keyuuid::memory, "");
    row(keyuuid::cpuTemperature, "temperature");
    row(keyuuid::gpuTemperature, "temperature");
    row(keyuuid::diskTemperature, "temperature disk");
    row(keyuuid::netWork, "lines");
    row(keyuuid::upload, "");
    row(keyuuid::volume, "audio");
    row(keyuuid::allData, "sensor");
    row(keyuuid::cpuFan, "fan");
    row(keyuuid::pumpSpeed, "pump");
    row(keyuuid::physicalDisk, "mode name drive");
    row(keyuuid::physicalDisk, "mode name time", "Disk_Loop");
    row(keyuuid::physicalDisk, "mode name", "Total_Disks");
    QTest::newRow("another maker's")
        << QStringLiteral("system.NetWork") << QStringLiteral("Single_Disk") << QString();
}

void tst_PanelFields::showsOnlyWhatApplies()
{
    QFETCH(const QString, action);
    QFETCH(const QString, diskMode);
    QFETCH(const QString, shown);
    EntrySettings settings;
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

QTEST_GUILESS_MAIN(tst_PanelFields)
#include "tst_PanelFields.moc"
