#include "deck_simulator/deck/EntrySettings.h"

#include <QtTest>

using namespace deck;

class tst_EntrySettings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sendsTheWholeSet();
    void sendsChoices();
    void comesBackAsItWent();
    void hasADisplayOnlyWhereItIsUsed();
    void keepsWhatAMessageLacks();
    void refusesWhatIsOutOfRange_data();
    void refusesWhatIsOutOfRange();
};

namespace {

QJsonObject parametersOf(const QJsonObject &message)
{
    return message.value(QLatin1String("titleParameters")).toObject();
}

EntrySettings unusualSettings()
{
    EntrySettings settings;
    settings.text = QStringLiteral("网速/下载");
    settings.showTitle = false;
    settings.fontFamily = QStringLiteral("Roboto|Light");
    settings.fontSize = 31;
    settings.color = QStringLiteral("#123456");
    settings.opacity = 0.25;
    settings.temperatureType = QStringLiteral("华氏度");
    settings.titleLines = QStringLiteral("双行显示");
    settings.diskMode = QStringLiteral("Disk_Loop");
    settings.volumeNameItem = QStringLiteral("2");
    settings.switchFrequency = 7;
    settings.showVolumeName = false;
    settings.selectValue = QStringLiteral("CPU Package");
    settings.selectCpuFan = QStringLiteral("CPU Fan");
    settings.selectPhysicalDisk = QStringLiteral("Disk 1");
    settings.audioDevice = QStringLiteral("Speakers");
    settings.display.style = QStringLiteral("ring");
    settings.display.warning = 70.5;
    return settings;
}

} // namespace

void tst_EntrySettings::sendsTheWholeSet()
{
    const QJsonObject message = settingsMessage({}, {120, 40});
    const QStringList members = parametersOf(message).keys();
    const QStringList expected{
        QStringLiteral("color"),           QStringLiteral("diskMode"),
        QStringLiteral("fontFamily"),      QStringLiteral("fontSize"),
        QStringLiteral("opacity"),         QStringLiteral("showTitle"),
        QStringLiteral("showVolumeName"),  QStringLiteral("switchFrequency"),
        QStringLiteral("temperatureType"), QStringLiteral("text"),
        QStringLiteral("titleLines"),      QStringLiteral("volumeNameItem"),
    };
    QCOMPARE(members, expected);
    const QJsonObject geometry = message.value(QLatin1String("ActionGeometry")).toObject();
    QCOMPARE(geometry.value(QLatin1String("width")).toInt(), 120);
    QCOMPARE(geometry.value(QLatin1String("height")).toInt(), 40);
}

void tst_EntrySettings::sendsChoices()
{
    const QJsonObject message = settingsMessage(unusualSettings(), {144, 144});
    const QJsonObject parameters = parametersOf(message);
    QCOMPARE(parameters.value(QLatin1String("SystemDataSelect")),
             QJsonValue(QStringLiteral("CPU Package")));
    QCOMPARE(parameters.value(QLatin1String("SelectValue")),
             QJsonValue(QStringLiteral("CPU Package")));
    QCOMPARE(parameters.value(QLatin1String("SelectCPUFan")),
             QJsonValue(QStringLiteral("CPU Fan")));
    QCOMPARE(parameters.value(QLatin1String("SelectPhysicalDisk")),
             QJsonValue(QStringLiteral("Disk 1")));
    QCOMPARE(message.value(QLatin1String("select")), QJsonValue(QStringLiteral("Speakers")));
}

void tst_EntrySettings::comesBackAsItWent()
{
    const EntrySettings settings = unusualSettings();
    QVERIFY(settings != EntrySettings());
    QVERIFY(settingsFrom(settingsMessage(settings, {1, 1}), {}) == settings);
}

void tst_EntrySettings::hasADisplayOnlyWhereItIsUsed()
{
    QVERIFY(!settingsMessage({}, {1, 1}).contains(QLatin1String("display")));
    const QJsonObject display{{QStringLiteral("style"), QStringLiteral("ring")},
                              {QStringLiteral("warning"), 70.5}};
    QCOMPARE(settingsMessage(unusualSettings(), {1, 1}).value(QLatin1String("display")).toObject(),
             display);
    EntrySettings other;
    other.display.span = 61;
    QVERIFY(other != EntrySettings());
    // A new one replaces the old one as a whole.
    const QJsonObject bar{{QStringLiteral("style"), QStringLiteral("bar")}};
    const DisplaySettings taken =
        settingsFrom({{QStringLiteral("display"), bar}}, unusualSettings()).display;
    QCOMPARE(taken.style, QStringLiteral("bar"));
    QVERIFY(!taken.warning);
}

void tst_EntrySettings::keepsWhatAMessageLacks()
{
    const EntrySettings settings = unusualSettings();
    QVERIFY(settingsFrom({}, settings) == settings);
    QVERIFY(settingsFrom({{QStringLiteral("titleParameters"), 5}}, settings) == settings);
    QVERIFY(settingsFrom({{QStringLiteral("display"), 5}}, settings) == settings);
    // A plugin that has no sensor yet clears the choice.
    const QJsonObject parameters{{QStringLiteral("SelectValue"), QString()}};
    QVERIFY(settingsFrom({{QStringLiteral("titleParameters"), parameters}}, settings)
                .selectValue.isEmpty());
}

void tst_EntrySettings::refusesWhatIsOutOfRange_data()
{
    QTest::addColumn<QString>("member");
    QTest::addColumn<QJsonValue>("value");
    QTest::newRow("text of another type") << QStringLiteral("text") << QJsonValue(5);
    QTest::newRow("huge text") << QStringLiteral("text")
                               << QJsonValue(QString(1 << 20, QLatin1Char('x')));
    QTest::newRow("flag of another type") << QStringLiteral("showTitle") << QJsonValue(1);
    QTest::newRow("no font size") << QStringLiteral("fontSize") << QJsonValue(0);
    QTest::newRow("large font size") << QStringLiteral("fontSize") << QJsonValue(601);
    QTest::newRow("broken font size") << QStringLiteral("fontSize") << QJsonValue(20.5);
    QTest::newRow("negative opacity") << QStringLiteral("opacity") << QJsonValue(-0.5);
    QTest::newRow("large opacity") << QStringLiteral("opacity") << QJsonValue(1.5);
    QTest::newRow("no switch time") << QStringLiteral("switchFrequency") << QJsonValue(0);
    QTest::newRow("long switch time") << QStringLiteral("switchFrequency") << QJsonValue(86401);
}

void tst_EntrySettings::refusesWhatIsOutOfRange()
{
    QFETCH(const QString, member);
    QFETCH(const QJsonValue, value);
    const QJsonObject message{{QStringLiteral("titleParameters"), QJsonObject{{member, value}}}};
    QVERIFY(settingsFrom(message, unusualSettings()) == unusualSettings());
}

QTEST_GUILESS_MAIN(tst_EntrySettings)
#include "tst_EntrySettings.moc"
