#include "plugin/SettingsReply.h"
#include "render/normalAction.h"
#include "sensors/VqSystemMonitorLib.h"
#include "sensors/systemInfor.h"
#include "tests/support/InMemoryLibrary.h"
#include "tests/support/InMemoryMachine.h"
#include "tests/support/KeyUuids.h"
#include "tests/support/MessageCapture.h"
#include "tests/support/SampleSnapshot.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QtTest>

class tst_SettingsReply : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sendsTheSettingsInForce();
    void keepsOtherMembers();
    void choosesMembersByOccasion_data();
    void choosesMembersByOccasion();
    void listsTheFonts();
    void listsWhatOneKindOffers_data();
    void listsWhatOneKindOffers();
    void listsTheDrivesOfADiskKey();
    void listsTheDrivesOfNoOtherKey();
    void logsWhatOneKindOffers_data();
    void logsWhatOneKindOffers();

private:
    VqSystemMonitorLib m_instance{false, nullptr};
    VqSystemMonitorLib *const m_library = &m_instance;

    static QJsonObject parametersOf(const QJsonObject &reply)
    {
        return reply.value(QStringLiteral("titleParameters")).toObject();
    }
};

void tst_SettingsReply::sendsTheSettingsInForce()
{
    systemInfor::fontlist_one.clear();
    normalAction key(nullptr, keyuuid::cpu, QStringLiteral("c"));
    key.titleText = QStringLiteral("CPU");
    key.showTitle = false;
    key.fontSpec = QStringLiteral("Roboto|Bold");
    key.font.setPixelSize(23);
    key.color = QStringLiteral("#ff0000");
    key.opacity = 0.25;
    key.imageWidth = 61;
    key.imageHeight = 17;
    const QJsonObject reply = settingsReply({}, key, SettingsOccasion::WillAppear, m_library);
    QCOMPARE(
        reply,
        (QJsonObject{{QStringLiteral("ActionGeometry"),
                      QJsonObject{{QStringLiteral("width"), 61}, {QStringLiteral("height"), 17}}},
                     {QStringLiteral("titleParameters"),
                      QJsonObject{{QStringLiteral("text"), QStringLiteral("CPU")},
                                  {QStringLiteral("showTitle"), false},
                                  {QStringLiteral("fontFamily"), QStringLiteral("Roboto|Bold")},
                                  {QStringLiteral("fontSize"), 23},
                                  {QStringLiteral("color"), QStringLiteral("#ff0000")},
                                  {QStringLiteral("opacity"), 0.25},
                                  {QStringLiteral("temperatureType"), QStringLiteral("摄氏度")},
                                  {QStringLiteral("titleLines"), QStringLiteral("单行显示")},
                                  {QStringLiteral("FontList"), QJsonArray()}}}}));
}

void tst_SettingsReply::keepsOtherMembers()
{
    const normalAction key(nullptr, QStringLiteral("x"), QStringLiteral("c"));
    const QJsonObject settings{
        {QStringLiteral("select"), QStringLiteral("2")},
        {QStringLiteral("ActionGeometry"), QJsonObject{{QStringLiteral("width"), 144}}},
        {QStringLiteral("titleParameters"), QJsonObject{{QStringLiteral("other"), 1}}}};
    const QJsonObject reply =
        settingsReply(settings, key, SettingsOccasion::DidReceiveSettings, m_library);
    QCOMPARE(reply.value(QStringLiteral("select")).toString(), QStringLiteral("2"));
    QCOMPARE(reply.value(QStringLiteral("ActionGeometry")).toObject(),
             (QJsonObject{{QStringLiteral("width"), 0}, {QStringLiteral("height"), 0}}));
    QVERIFY(!parametersOf(reply).contains(QStringLiteral("other")));
}

void tst_SettingsReply::choosesMembersByOccasion_data()
{
    QTest::addColumn<QString>("uuid");
    QTest::addColumn<bool>("temperatureType");
    QTest::addColumn<bool>("titleLines");
    QTest::newRow("CPU") << keyuuid::cpu << false << false;
    QTest::newRow("CPU temperature") << keyuuid::cpuTemperature << true << false;
    QTest::newRow("GPU temperature") << keyuuid::gpuTemperature << true << false;
    QTest::newRow("disk temperature") << keyuuid::diskTemperature << true << false;
    QTest::newRow("network") << keyuuid::netWork << false << true;
    QTest::newRow("upload") << keyuuid::upload << false << false;
}

void tst_SettingsReply::choosesMembersByOccasion()
{
    QFETCH(QString, uuid);
    const normalAction key(nullptr, uuid, QStringLiteral("c"));
    const QString temperatureType = QStringLiteral("temperatureType");
    const QString titleLines = QStringLiteral("titleLines");

    const QJsonObject appearing =
        parametersOf(settingsReply({}, key, SettingsOccasion::WillAppear, m_library));
    QVERIFY(appearing.contains(temperatureType));
    QVERIFY(appearing.contains(titleLines));

    const QJsonObject later =
        parametersOf(settingsReply({}, key, SettingsOccasion::DidReceiveSettings, m_library));
    QTEST(later.contains(temperatureType), "temperatureType");
    QTEST(later.contains(titleLines), "titleLines");
}

void tst_SettingsReply::listsTheFonts()
{
    FontRecord bold;
    bold.displayName = QStringLiteral("Foo-Bold Bold");
    bold.spec = QStringLiteral("Foo|Bold");
    FontRecord regular;
    regular.displayName = QStringLiteral("Foo Regular");
    regular.spec = QStringLiteral("Foo");
    systemInfor::fontlist_one = {bold, regular};
    const normalAction key(nullptr, QStringLiteral("x"), QStringLiteral("c"));
    const QJsonObject reply = settingsReply({}, key, SettingsOccasion::WillAppear, m_library);
    systemInfor::fontlist_one.clear();
    const auto entry = [](const char *name, const char *value) {
        return QJsonObject{{QStringLiteral("name"), QString::fromLatin1(name)},
                           {QStringLiteral("value"), QString::fromLatin1(value)}};
    };
    QCOMPARE(parametersOf(reply).value(QStringLiteral("FontList")).toArray(),
             (QJsonArray{entry("Foo-Bold Bold", "Foo|Bold"), entry("Foo Regular", "Foo")}));
}

void tst_SettingsReply::listsWhatOneKindOffers_data()
{
    QTest::addColumn<QJsonObject>("members");
    const auto row = [](const QString &uuid, const char *members) {
        QTest::newRow(qPrintable(uuid)) << QJsonDocument::fromJson(members).object();
    };
    row(keyuuid::allData, R"({"AllData":{"g":{}},"SelectValue":"s"})");
    row(keyuuid::cpuFan,
        R"({"CPUFanList":{"CPU Fan":[{"value":"1200","units":"RPM"}]},"SelectCPUFan":"f"})");
    row(keyuuid::pumpSpeed, R"({"PumpSpeed":"1850RPM"})");
    row(keyuuid::diskTemperature,
        R"({"PhysicalDiskTemperatureList":{"sda":{}},"SelectPhysicalDisk":"d"})");
    row(keyuuid::physicalDisk,
        R"({"diskMode":"Disk_Loop","volumeNameItem":"1","switchFrequency":-5,"showVolumeName":false})");
    row(keyuuid::volume, R"({"devices":["Speakers","Headset"]})");
    row(keyuuid::cpu, "{}");
}

void tst_SettingsReply::listsWhatOneKindOffers()
{
    QFETCH(QJsonObject, members);
    InMemoryLibrary::reset();
    InMemoryLibrary::smartInfo = {{QStringLiteral("sda"), QJsonObject()}};
    systemInfor::AllSensorsData = {{QStringLiteral("g"), QJsonObject()}};
    systemInfor::CpuFanList = {{QStringLiteral("CPU Fan"), QStringLiteral("1200RPM")}};
    systemInfor::AIOPump = QStringLiteral("1850RPM");
    normalAction key(nullptr, QString::fromLatin1(QTest::currentDataTag()), QStringLiteral("c"));
    key.SelectValue = QStringLiteral("s");
    key.SelectCPUFan = QStringLiteral("f");
    key.SelectPhysicalDisk = QStringLiteral("d");
    key.diskMode = QStringLiteral("Disk_Loop");
    key.volumeNameItem = QStringLiteral("1");
    key.switchFrequency = -5;
    key.showVolumeName = false;
    InMemoryMachine::devices = {{QStringLiteral("Speakers"), 1.0F},
                                {QStringLiteral("Headset"), -1.0F}};
    QJsonObject parameters =
        parametersOf(settingsReply({}, key, SettingsOccasion::WillAppear, m_library));
    for (const char *const common : {"text", "showTitle", "fontFamily", "fontSize", "color",
                                     "opacity", "temperatureType", "titleLines", "FontList"})
        parameters.remove(QLatin1String(common));
    QCOMPARE(parameters, members);
}

void tst_SettingsReply::listsTheDrivesOfADiskKey()
{
    fillSnapshot();
    normalAction key(nullptr, keyuuid::physicalDisk, QStringLiteral("c"));
    key.diskMode = QStringLiteral("Disk_Loop");
    const MessageCapture capture;
    const QJsonObject reply =
        settingsReply({}, key, SettingsOccasion::DidReceiveSettings, m_library);
    // Only the first drive answers, so that the lists differ in length.
    QCOMPARE(reply.value(QStringLiteral("DriveNames")).toArray(),
             (QJsonArray{QStringLiteral("C:\\"), QStringLiteral("D:\\")}));
    QCOMPARE(reply.value(QStringLiteral("VolumeNames")).toArray(),
             QJsonArray{QStringLiteral("System")});
    QCOMPARE(MessageCapture::messages(),
             (QStringList{MessageCapture::quoted(QStringLiteral("处理硬盘操作")),
                          QStringLiteral(R"("driveName: C:\\ VolumeName: System")"),
                          QStringLiteral(R"("driveName: D:\\ VolumeName: ")"),
                          QStringLiteral(R"("currentOperator->diskMode;: Disk_Loop")"),
                          QStringLiteral(R"("systemInfor::fontlist_one.size(): 0")")}));
}

void tst_SettingsReply::listsTheDrivesOfNoOtherKey()
{
    const normalAction key(nullptr, keyuuid::volume, QStringLiteral("c"));
    const QJsonObject reply = settingsReply({}, key, SettingsOccasion::WillAppear, m_library);
    QVERIFY(!reply.contains(QStringLiteral("DriveNames")));
    QVERIFY(!reply.contains(QStringLiteral("VolumeNames")));
}

void tst_SettingsReply::logsWhatOneKindOffers_data()
{
    QTest::addColumn<QString>("uuid");
    QTest::addColumn<QString>("onAppearing");
    QTest::addColumn<QString>("onSettings");
    const QString fans =
        QStringLiteral(R"(FanJsonResult: {"CPU Fan":[{"units":"RPM","value":"1200"}]})");
    const QString pump = QStringLiteral("systemInfor::AIOPump: 1850RPM");
    QTest::newRow("sensor") << keyuuid::allData
                            << QStringLiteral("currentOperator->alldataSelect 当前选中的是: CPU 包")
                            << QStringLiteral("didrev currentOperator->alldataSelect: CPU 包");
    QTest::newRow("fan") << keyuuid::cpuFan << fans << fans;
    QTest::newRow("pump") << keyuuid::pumpSpeed << pump << pump;
    QTest::newRow("disk temperature") << keyuuid::diskTemperature << QString() << QString();
    QTest::newRow("volume") << keyuuid::volume << QString() << QString();
    QTest::newRow("CPU") << keyuuid::cpu << QString() << QString();
}

void tst_SettingsReply::logsWhatOneKindOffers()
{
    QFETCH(QString, uuid);
    QFETCH(QString, onAppearing);
    QFETCH(QString, onSettings);
    systemInfor::fontlist_one.clear();
    systemInfor::CpuFanList = {{QStringLiteral("CPU Fan"), QStringLiteral("1200RPM")}};
    systemInfor::AIOPump = QStringLiteral("1850RPM");
    normalAction key(nullptr, uuid, QStringLiteral("c"));
    key.SelectValue = QStringLiteral("CPU 包");
    const auto logged = [&](SettingsOccasion occasion) {
        const MessageCapture capture;
        settingsReply({}, key, occasion, m_library);
        return MessageCapture::messages();
    };
    const auto expected = [](const QString &own) {
        QStringList lines{
            MessageCapture::quoted(QStringLiteral("systemInfor::fontlist_one.size(): 0"))};
        if (!own.isEmpty())
            lines.prepend(MessageCapture::quoted(own));
        return lines;
    };
    QCOMPARE(logged(SettingsOccasion::WillAppear), expected(onAppearing));
    QCOMPARE(logged(SettingsOccasion::DidReceiveSettings), expected(onSettings));
}

QTEST_MAIN(tst_SettingsReply)
#include "tst_settingsreply.moc"
