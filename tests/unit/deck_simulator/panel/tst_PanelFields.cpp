#include "deck_simulator/panel/PanelFields.h"

#include <QtTest>

using namespace deck;

class tst_PanelFields : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void showsOnlyWhatApplies_data();
    void showsOnlyWhatApplies();
};

namespace {

QString uuid(const char *name)
{
    return QStringLiteral("com.quellor.stream.") + QLatin1String(name);
}

} // namespace

void tst_PanelFields::showsOnlyWhatApplies_data()
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
