#include "plugin/SettingsReply.h"
#include "render/normalAction.h"
#include "sensors/systemInfor.h"

#include <QJsonArray>
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

private:
    static QJsonObject parametersOf(const QJsonObject &reply)
    {
        return reply.value(QStringLiteral("titleParameters")).toObject();
    }
};

void tst_SettingsReply::sendsTheSettingsInForce()
{
    systemInfor::fontlist_one.clear();
    normalAction key(nullptr, QStringLiteral("com.quellor.stream.system.cpu"), QStringLiteral("c"));
    key.titleText = QStringLiteral("CPU");
    key.showTitle = false;
    key.fontSpec = QStringLiteral("Roboto|Bold");
    key.font.setPixelSize(23);
    key.color = QStringLiteral("#ff0000");
    key.opacity = 0.25;
    key.imageWidth = 61;
    key.imageHeight = 17;
    const QJsonObject reply = settingsReply({}, key, SettingsOccasion::WillAppear);
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
    const QJsonObject reply = settingsReply(settings, key, SettingsOccasion::DidReceiveSettings);
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
    const QString prefix = QStringLiteral("com.quellor.stream.system.");
    QTest::newRow("CPU") << prefix + QStringLiteral("cpu") << false << false;
    QTest::newRow("CPU temperature") << prefix + QStringLiteral("cpu.temperature") << true << false;
    QTest::newRow("GPU temperature") << prefix + QStringLiteral("Gpu_Temperature") << true << false;
    QTest::newRow("disk temperature")
        << prefix + QStringLiteral("PhysicalDisk.Temperature") << true << false;
    QTest::newRow("network") << prefix + QStringLiteral("NetWork") << false << true;
    QTest::newRow("upload") << prefix + QStringLiteral("NetWork.Upload") << false << false;
}

void tst_SettingsReply::choosesMembersByOccasion()
{
    QFETCH(QString, uuid);
    const normalAction key(nullptr, uuid, QStringLiteral("c"));
    const QString temperatureType = QStringLiteral("temperatureType");
    const QString titleLines = QStringLiteral("titleLines");

    const QJsonObject appearing =
        parametersOf(settingsReply({}, key, SettingsOccasion::WillAppear));
    QVERIFY(appearing.contains(temperatureType));
    QVERIFY(appearing.contains(titleLines));

    const QJsonObject later =
        parametersOf(settingsReply({}, key, SettingsOccasion::DidReceiveSettings));
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
    const QJsonObject reply = settingsReply({}, key, SettingsOccasion::WillAppear);
    systemInfor::fontlist_one.clear();
    const auto entry = [](const char *name, const char *value) {
        return QJsonObject{{QStringLiteral("name"), QString::fromLatin1(name)},
                           {QStringLiteral("value"), QString::fromLatin1(value)}};
    };
    QCOMPARE(parametersOf(reply).value(QStringLiteral("FontList")).toArray(),
             (QJsonArray{entry("Foo-Bold Bold", "Foo|Bold"), entry("Foo Regular", "Foo")}));
}

QTEST_MAIN(tst_SettingsReply)
#include "tst_settingsreply.moc"
