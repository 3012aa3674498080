#include "plugin/KeySelections.h"

#include "plugin/SettingsReply.h"
#include "render/normalAction.h"
#include "sensors/systemInfor.h"
#include "tests/support/KeyUuids.h"

#include <QtTest>

Q_DECLARE_METATYPE(SettingsOccasion)
Q_DECLARE_METATYPE(QString normalAction::*)

class tst_KeySelections : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void choosesTheFirstEntryByDefault_data();
    void choosesTheFirstEntryByDefault();
    void choosesTheSensorByOccasion_data();
    void choosesTheSensorByOccasion();
    void choosesNothingForOtherKinds();

private:
    /// The payload of an event with \a parameters.
    static QJsonObject payload(const QJsonObject &parameters)
    {
        return {{QStringLiteral("settings"),
                 QJsonObject{{QStringLiteral("titleParameters"), parameters}}}};
    }
};

void tst_KeySelections::choosesTheFirstEntryByDefault_data()
{
    QTest::addColumn<QString>("uuid");
    QTest::addColumn<QString>("member");
    QTest::addColumn<QString normalAction::*>("selection");
    QTest::newRow("fan") << keyuuid::cpuFan << QStringLiteral("SelectCPUFan")
                         << &normalAction::SelectCPUFan;
    QTest::newRow("sensor") << keyuuid::allData << QStringLiteral("SelectValue")
                            << &normalAction::SelectValue;
    QTest::newRow("disk") << keyuuid::diskTemperature << QStringLiteral("SelectPhysicalDisk")
                          << &normalAction::SelectPhysicalDisk;
}

void tst_KeySelections::choosesTheFirstEntryByDefault()
{
    QFETCH(QString, uuid);
    QFETCH(QString, member);
    QFETCH(QString normalAction::*, selection);
    normalAction key(nullptr, uuid, QStringLiteral("c"));
    const auto choose = [&](const QJsonValue &chosen) {
        key.applySettings(payload({{member, chosen}}));
        applySelections(key, SettingsOccasion::WillAppear);
        return key.*selection;
    };
    systemInfor::CpuFanList.clear();
    systemInfor::SensorList.clear();
    systemInfor::DriveTemperatureList.clear();
    QCOMPARE(choose(QString()), QString());
    systemInfor::CpuFanList = {{QStringLiteral("first"), QString()},
                               {QStringLiteral("b"), QString()}};
    systemInfor::SensorList = systemInfor::CpuFanList;
    systemInfor::DriveTemperatureList = {{QStringLiteral("first"), 1}, {QStringLiteral("b"), 2}};
    QCOMPARE(choose(QString()), QStringLiteral("first"));
    QCOMPARE(choose(7), QStringLiteral("first"));
    QCOMPARE(choose(QStringLiteral("b")), QStringLiteral("b"));
    QCOMPARE(choose(QStringLiteral("not in the list")), QStringLiteral("not in the list"));
}

void tst_KeySelections::choosesTheSensorByOccasion_data()
{
    QTest::addColumn<SettingsOccasion>("occasion");
    QTest::addColumn<QString>("anew");
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("chosen");
    const QString package = QStringLiteral("CPU Package");
    const QString other = QStringLiteral("other");
    QTest::newRow("appearing ignores the new choice")
        << SettingsOccasion::WillAppear << other << package << package;
    QTest::newRow("settings: new choice")
        << SettingsOccasion::DidReceiveSettings << other << package << other;
    QTest::newRow("settings: none new")
        << SettingsOccasion::DidReceiveSettings << QString() << package << package;
    QTest::newRow("settings: none at all") << SettingsOccasion::DidReceiveSettings << QString()
                                           << QString() << QStringLiteral("first");
}

void tst_KeySelections::choosesTheSensorByOccasion()
{
    QFETCH(SettingsOccasion, occasion);
    QFETCH(QString, anew);
    QFETCH(QString, before);
    systemInfor::SensorList = {{QStringLiteral("first"), QString()}};
    normalAction key(nullptr, keyuuid::allData, QStringLiteral("c"));
    key.applySettings(payload(
        {{QStringLiteral("SystemDataSelect"), anew}, {QStringLiteral("SelectValue"), before}}));
    applySelections(key, occasion);
    QTEST(key.SelectValue, "chosen");
}

void tst_KeySelections::choosesNothingForOtherKinds()
{
    systemInfor::SensorList = {{QStringLiteral("first"), QString()}};
    systemInfor::CpuFanList = systemInfor::SensorList;
    systemInfor::DriveTemperatureList = {{QStringLiteral("first"), 1}};
    for (const QString &uuid : {keyuuid::cpu, QString()}) {
        normalAction key(nullptr, uuid, QStringLiteral("c"));
        applySelections(key, SettingsOccasion::DidReceiveSettings);
        QCOMPARE(key.SelectValue + key.SelectCPUFan + key.SelectPhysicalDisk, QString());
    }
}

QTEST_MAIN(tst_KeySelections)
#include "tst_keyselections.moc"
