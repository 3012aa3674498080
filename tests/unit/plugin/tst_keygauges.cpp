#include "plugin/KeyGauges.h"

#include "SDK/LanguageUtilities.h"
#include "plugin/GaugeView.h"
#include "plugin/KeyKinds.h"
#include "plugin/KeyPass.h"
#include "plugin/KeySelections.h"
#include "plugin/SettingsReply.h"
#include "render/normalAction.h"
#include "sensors/VqSystemMonitorLib.h"
#include "sensors/systemInfor.h"
#include "tests/support/InMemoryLibrary.h"
#include "tests/support/InMemoryMachine.h"
#include "tests/support/Json.h"
#include "tests/support/KeyUuids.h"
#include "tests/support/MessageCapture.h"
#include "tests/support/SampleSnapshot.h"

#include <QtTest>

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

/// Keys with and without display settings, from pass to pass.
class tst_KeyGauges : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void changesNothingUnasked_data();
    void changesNothingUnasked();
    void findsTheFirstTextAgain_data();
    void findsTheFirstTextAgain();
    void keepsTitleAndLogInEveryStyle_data();
    void keepsTitleAndLogInEveryStyle();
    void rewritesTheTitleOfTwoLines();
    void paintsAGaugeOnNeitherLayout();
    void feedsItsSizeBack();
    void colorsLettersBeyondGivenThresholds();
    void leavesOtherTextsUncolored_data();
    void leavesOtherTextsUncolored();
    void leavesAColorLate();
    void drawsAGraphOverThePasses();
    void keepsTheGraphOfAKeyThatComesBack();
    void showsExtremesAfterPresses();
    void beginsExtremesAnewWhenHeld();
    void ignoresPressesUnasked_data();
    void ignoresPressesUnasked();
    void switchingDrivesAddsNoSample();
    void keepsTheLevelOfADriveToItself();
    void showsMoreKeysThanItRemembers();
};

namespace {

using Info = systemInfor;

const QString chineseOneLine = QStringLiteral("单行显示");

/// Settings as a panel sends them; \a display is left out if it is empty.
QJsonObject payloadWith(const QByteArray &display, const QString &lines = chineseOneLine)
{
    QJsonObject parameters = json(R"({"text":"Title","showTitle":true,"fontFamily":"",
        "fontSize":20,"color":"#ffffff","opacity":0,"diskMode":"Single_Disk","volumeNameItem":"0",
        "showVolumeName":true,"switchFrequency":3})");
    parameters.insert(QStringLiteral("titleLines"), lines);
    QJsonObject settings{{QStringLiteral("titleParameters"), parameters},
                         {QStringLiteral("ActionGeometry"), json(R"({"width":144,"height":144})")}};
    if (!display.isEmpty())
        settings.insert(QStringLiteral("display"), json(display));
    return {{QStringLiteral("settings"), settings}};
}

/// The plugin's part for one key: settings, passes and what the host is sent.
class Deck
{
public:
    explicit Deck(const QString &uuid) { appear(uuid); }

    void appear(const QString &uuid)
    {
        if (m_key)
            m_gauges.forget(*m_key);
        m_key = std::make_unique<normalAction>(nullptr, uuid, QStringLiteral("ctx"));
    }

    /// Returns the reply.
    QJsonObject apply(const QJsonObject &payload)
    {
        m_key->applySettings(payload);
        m_gauges.forget(*m_key);
        applySelections(*m_key, SettingsOccasion::WillAppear);
        VqSystemMonitorLib library(false, nullptr);
        return settingsReply(payload.value(QLatin1String("settings")).toObject(), *m_key,
                             SettingsOccasion::WillAppear, &library);
    }

    /// The picture after a pass, one second after the last one.
    QString pass()
    {
        m_now += 1000;
        KeyPass next(m_gauges, m_now);
        return next.paint(*m_key).value_or(QStringLiteral("none"));
    }

    void passWithoutTheKey()
    {
        m_now += 1000;
        const KeyPass next(m_gauges, m_now);
    }

    QString tick(const QString &text)
    {
        return m_gauges.paintBetweenPasses(*m_key, *findKeyKind(m_key->GetAction()), text,
                                           m_now + 500);
    }

    void press(qint64 held = 100)
    {
        m_gauges.press(*m_key, m_now);
        m_gauges.release(*m_key, m_now + held);
    }

    normalAction &key() { return *m_key; }
    qint64 now() const { return m_now; }

private:
    KeyGauges m_gauges;
    std::unique_ptr<normalAction> m_key;
    qint64 m_now = 0;
};

/// All that a key shows, says and logs over its settings and two passes.
QStringList storyOf(const QString &uuid, const QByteArray &display, const QString &lines)
{
    const MessageCapture capture;
    MessageCapture::clear();
    Deck deck(uuid);
    QStringList story;
    for (int round = 0; round < 2; ++round) {
        QJsonObject reply = deck.apply(payloadWith(display, lines));
        reply.remove(QStringLiteral("display"));
        story << QString::fromUtf8(QJsonDocument(reply).toJson());
        story << deck.pass() << deck.key().displayedText;
        deck.press();
        story << deck.pass() << deck.key().displayedText;
    }
    return story + MessageCapture::messages();
}

const QByteArray ring = R"({"style":"ring"})";

void addEveryKind()
{
    QTest::addColumn<QString>("uuid");
    for (const QString &uuid : {keyuuid::memory,         keyuuid::cpu,
                                keyuuid::cpuTemperature, keyuuid::cpuClock,
                                keyuuid::cpuPower,       keyuuid::netWork,
                                keyuuid::gpuTemperature, keyuuid::gpuClock,
                                keyuuid::gpuLoad,        keyuuid::gpuMemoryClock,
                                keyuuid::gpuMemoryUsage, keyuuid::memoryFreeMB,
                                keyuuid::memoryUsedMB,   keyuuid::memoryTotalMB,
                                keyuuid::memoryFreeGB,   keyuuid::memoryUsedGB,
                                keyuuid::memoryTotalGB,  keyuuid::gpuMemoryUsed,
                                keyuuid::gpuPower,       keyuuid::volume,
                                keyuuid::cpuModel,       keyuuid::gpuModel,
                                keyuuid::gpuVoltage,     keyuuid::diskTemperature,
                                keyuuid::memoryModel,    keyuuid::upload,
                                keyuuid::download,       keyuuid::allData,
                                keyuuid::cpuVoltage,     keyuuid::physicalDisk,
                                keyuuid::pumpSpeed,      keyuuid::cpuFan,
                                keyuuid::prefix})
        QTest::newRow(qPrintable(uuid)) << uuid;
}

} // namespace

void tst_KeyGauges::initTestCase()
{
    LanguageUtilities::instance()->LoadLanguages();
    LanguageUtilities::instance()->SetLanguage(QStringLiteral("en"));
}

void tst_KeyGauges::init()
{
    InMemoryLibrary::reset();
    InMemoryMachine::reset();
    fillSnapshot();
}

void tst_KeyGauges::changesNothingUnasked_data()
{
    addEveryKind();
}

void tst_KeyGauges::changesNothingUnasked()
{
    QFETCH(QString, uuid);
    for (const char *const lines : {"单行显示", "双行显示", "three"}) {
        const QString layout = QString::fromUtf8(lines);
        const QStringList expected = storyOf(uuid, QByteArray(), layout);
        QVERIFY(expected.size() > 10);
        for (const char *const display :
             {"{}", R"({"style":"text","press":"none","average":1,"rates":"bytes"})",
              R"({"style":"text","press":"extremes","average":9,"decimals":3,"rates":"bits",
              "size":72,"ground":"#ff0000","minimum":50,"normalColor":"red"})"})
            QCOMPARE(storyOf(uuid, display, layout), expected);
    }
}

void tst_KeyGauges::findsTheFirstTextAgain_data()
{
    addEveryKind();
}

void tst_KeyGauges::findsTheFirstTextAgain()
{
    QFETCH(QString, uuid);
    Deck deck(uuid);
    deck.apply(payloadWith("{}"));
    const QString first = deck.pass();
    deck.apply(payloadWith(ring));
    deck.pass();
    // A picture as wide as the key leaves the font size as it is.
    const KeyKind *const kind = findKeyKind(uuid);
    if (kind && kind->gauge())
        QCOMPARE(deck.key().keyImage.size(), QSize(144, 144));
    else
        deck.key().imageWidth = 144;
    deck.apply(payloadWith("{}"));
    QCOMPARE(deck.pass(), first);
}

void tst_KeyGauges::keepsTitleAndLogInEveryStyle_data()
{
    addEveryKind();
}

void tst_KeyGauges::keepsTitleAndLogInEveryStyle()
{
    QFETCH(QString, uuid);
    const auto titlesAndLog = [&uuid](const QByteArray &display) {
        const MessageCapture capture;
        Deck deck(uuid);
        deck.apply(payloadWith(display));
        MessageCapture::clear();
        QStringList shown;
        for (int pass = 0; pass < 3; ++pass) {
            deck.pass();
            shown << deck.key().displayedText;
        }
        return shown + MessageCapture::messages();
    };
    const QStringList expected = titlesAndLog("{}");
    for (const char *const style : {"bar", "ring", "graph", "pair"}) {
        const QByteArray display = QByteArray(R"({"press":"extremes","style":")") + style + "\"}";
        QCOMPARE(titlesAndLog(display), expected);
    }
}

void tst_KeyGauges::rewritesTheTitleOfTwoLines()
{
    Deck deck(keyuuid::netWork);
    deck.apply(payloadWith(ring, QStringLiteral("双行显示")));
    deck.pass();
    QCOMPARE(deck.key().displayedText, QStringLiteral("上传: 1.2Kb/s\n下载: 3.0MB/s"));
    QCOMPARE(deck.key().titleText, QStringLiteral("上传/下载"));
    QCOMPARE(deck.key().keyImage.size(), QSize(144, 144));
}

void tst_KeyGauges::paintsAGaugeOnNeitherLayout()
{
    Deck deck(keyuuid::netWork);
    deck.apply(payloadWith(ring, QStringLiteral("three")));
    deck.key().displayedText = QStringLiteral("before");
    QVERIFY(deck.pass().size() > 100);
    QCOMPARE(deck.key().displayedText, QStringLiteral("before"));
}

void tst_KeyGauges::feedsItsSizeBack()
{
    Deck deck(keyuuid::cpu);
    deck.apply(payloadWith(R"({"style":"bar","size":72,"shape":"wide"})"));
    QVERIFY(deck.pass().startsWith(QLatin1String("data:image/png;base64,")));
    QCOMPARE(QSize(deck.key().imageWidth, deck.key().imageHeight), QSize(144, 72));
    deck.apply(payloadWith(R"({"style":"bar","size":288})"));
    QCOMPARE(deck.key().font.pixelSize(), 20);
    deck.pass();
    const QJsonObject reply = deck.apply(payloadWith("{}"));
    QCOMPARE(deck.key().font.pixelSize(), 10);
    QCOMPARE(reply.value(QLatin1String("ActionGeometry")).toObject(),
             json(R"({"width":288,"height":288})"));
}

void tst_KeyGauges::colorsLettersBeyondGivenThresholds()
{
    Deck colored(keyuuid::gpuLoad);
    colored.apply(payloadWith(
        R"({"warning":50,"critical":80,"warningColor":"#00ff00","criticalColor":"#0000ff"})"));
    Deck plain(keyuuid::gpuLoad);
    const auto plainIn = [&plain](const char *color) {
        plain.key().color = QString::fromLatin1(color);
        return plain.pass();
    };
    plain.apply(payloadWith(QByteArray()));
    for (const auto &[load, color] : {std::pair(49, "#ffffff"), std::pair(50, "#00ff00"),
                                      std::pair(80, "#0000ff"), std::pair(10, "#ffffff")}) {
        Info::GpuLoad = load;
        QCOMPARE(colored.pass(), plainIn(color));
        QCOMPARE(colored.key().color, QStringLiteral("#ffffff"));
    }
    // Settings without thresholds find the key as it was.
    Info::GpuLoad = 90;
    colored.pass();
    colored.key().imageWidth = 144;
    colored.apply(payloadWith("{}"));
    QCOMPARE(colored.pass(), plainIn("#ffffff"));
}

void tst_KeyGauges::leavesOtherTextsUncolored_data()
{
    QTest::addColumn<QString>("uuid");
    QTest::addColumn<QByteArray>("display");
    QTest::newRow("own thresholds") << keyuuid::memoryFreeMB << QByteArray("{}");
    QTest::newRow("pair beside the network key")
        << keyuuid::cpuTemperature << QByteArray(R"({"style":"pair","normalColor":"red"})");
    QTest::newRow("no number") << keyuuid::cpuModel << QByteArray(R"({"warning":0})");
    QTest::newRow("missing") << keyuuid::cpuFan << QByteArray(R"({"warning":5,"worse":"below"})");
}

void tst_KeyGauges::leavesOtherTextsUncolored()
{
    QFETCH(QString, uuid);
    QFETCH(QByteArray, display);
    Info::CpuTemperature = 99;
    Info::MemoryAvailableMB = 1;
    Deck asked(uuid);
    asked.apply(payloadWith(display));
    Deck plain(uuid);
    plain.apply(payloadWith(QByteArray()));
    QCOMPARE(asked.pass(), plain.pass());
}

void tst_KeyGauges::leavesAColorLate()
{
    Deck deck(keyuuid::gpuLoad);
    deck.apply(payloadWith(R"({"critical":80,"criticalColor":"#0000ff"})"));
    const auto isColored = [&deck](int load) {
        Info::GpuLoad = load;
        deck.pass();
        return !deck.key().letterColor.isEmpty();
    };
    QVERIFY(!isColored(79));
    QVERIFY(isColored(80));
    QVERIFY(isColored(78));
    QVERIFY(!isColored(77));
    QVERIFY(!isColored(79));
}

void tst_KeyGauges::drawsAGraphOverThePasses()
{
    Deck deck(keyuuid::cpu);
    deck.apply(payloadWith(R"({"style":"graph"})"));
    const QString first = deck.pass();
    const QString second = deck.pass();
    QVERIFY(first != second);
    // Other settings find the samples again.
    deck.apply(payloadWith(R"({"style":"graph","span":10})"));
    const QString wide = deck.pass();
    deck.apply(payloadWith(R"({"style":"graph"})"));
    Deck other(keyuuid::cpu);
    other.apply(payloadWith(R"({"style":"graph"})"));
    for (int pass = 0; pass < 3; ++pass)
        other.pass();
    QCOMPARE(deck.pass(), other.pass());
    QVERIFY(wide != second);
}

void tst_KeyGauges::keepsTheGraphOfAKeyThatComesBack()
{
    const QByteArray graph = R"({"style":"graph","span":3600})";
    Deck steadfast(keyuuid::cpu);
    Deck away(keyuuid::cpu);
    for (Deck *const deck : {&steadfast, &away}) {
        deck->apply(payloadWith(graph));
        for (int pass = 0; pass < 5; ++pass)
            deck->pass();
    }
    away.appear(keyuuid::gpuLoad);
    for (int pass = 0; pass < 100; ++pass) {
        steadfast.pass();
        away.passWithoutTheKey();
    }
    away.appear(keyuuid::cpu);
    away.apply(payloadWith(graph));
    QCOMPARE(away.pass(), steadfast.pass());
}

void tst_KeyGauges::showsExtremesAfterPresses()
{
    const QByteArray display = R"({"style":"ring","press":"extremes"})";
    const auto shownAt = [&display](unsigned load, gauge::Extreme extreme, unsigned present) {
        normalAction key(nullptr, keyuuid::cpu, QStringLiteral("ctx"));
        key.applySettings(payloadWith(display));
        gauge::Content content;
        content.style = gauge::Style::Ring;
        content.title = QStringLiteral("Title");
        content.first.value = QString::number(load);
        content.first.unit = QStringLiteral("%");
        content.first.widest = QStringLiteral("%1").arg(std::max(load, present));
        content.first.share = load / 100.0;
        content.extreme = extreme;
        return key.gaugePainting(content, GaugeView::lookOf(key));
    };
    Deck deck(keyuuid::cpu);
    deck.apply(payloadWith(display));
    for (const unsigned load : {20U, 80U, 50U}) {
        Info::CpuUsage = load;
        deck.pass();
    }
    deck.press();
    QStringList expected;
    for (const auto &[load, extreme] :
         {std::pair(20U, gauge::Extreme::Minimum), std::pair(80U, gauge::Extreme::Maximum),
          std::pair(50U, gauge::Extreme::Mean)}) {
        for (int pass = 0; pass < 3; ++pass)
            expected << shownAt(load, extreme, 50);
    }
    expected << shownAt(50, gauge::Extreme::None, 50);
    for (const QString &picture : qAsConst(expected))
        QCOMPARE(deck.pass(), picture);
    deck.press();
    deck.press();
    QCOMPARE(deck.pass(), shownAt(80, gauge::Extreme::Maximum, 50));
}

void tst_KeyGauges::beginsExtremesAnewWhenHeld()
{
    const QByteArray display = R"({"style":"ring","press":"extremes"})";
    Deck deck(keyuuid::cpu);
    deck.apply(payloadWith(display));
    Info::CpuUsage = 20;
    deck.pass();
    Info::CpuUsage = 50;
    deck.pass();
    const auto minimum = [&deck] {
        deck.press();
        const QString picture = deck.pass();
        deck.apply(payloadWith(R"({"style":"ring","press":"extremes"})"));
        return picture;
    };
    const QString before = minimum();
    deck.press(1000);
    const QString present = deck.pass();
    const QString after = minimum();
    QVERIFY(before != after);
    QVERIFY(present != before && present != after);
    Info::CpuUsage = 20;
    deck.pass();
    Info::CpuUsage = 50;
    deck.apply(payloadWith(display));
    QCOMPARE(minimum(), before);
}

void tst_KeyGauges::ignoresPressesUnasked_data()
{
    QTest::addColumn<QByteArray>("display");
    QTest::newRow("none") << QByteArray(R"({"style":"ring","press":"none"})");
    QTest::newRow("not told") << QByteArray(R"({"style":"ring"})");
    QTest::newRow("a text") << QByteArray(R"({"style":"text","press":"extremes"})");
}

void tst_KeyGauges::ignoresPressesUnasked()
{
    QFETCH(QByteArray, display);
    Deck deck(keyuuid::cpu);
    deck.apply(payloadWith(display));
    const QString before = deck.pass();
    for (const qint64 held : {0, 1000}) {
        deck.press(held);
        QCOMPARE(deck.pass(), before);
    }
}

void tst_KeyGauges::switchingDrivesAddsNoSample()
{
    Info::DriveRoots = QStringList{QStringLiteral("/"), QStringLiteral("/home")};
    Info::DriveFreePercent = {90, 40};
    Info::DriveFreeGB = {10, 20};
    const QByteArray graph = R"({"style":"graph","press":"extremes"})";
    Deck looping(keyuuid::physicalDisk);
    looping.apply(payloadWith(graph));
    Deck still(keyuuid::physicalDisk);
    still.apply(payloadWith(graph));
    looping.pass();
    still.pass();
    looping.key().driveIndex = 1;
    const QString empty = looping.tick(QStringLiteral("60% Used"));
    QCOMPARE(looping.key().displayedText, QStringLiteral("Title: 60% Used"));
    QCOMPARE(looping.tick(QStringLiteral("60% Used")), empty);
    QVERIFY(empty != looping.pass());
    // Each drive has its own, which goes on while the other is shown.
    looping.key().driveIndex = 0;
    still.pass();
    QCOMPARE(looping.pass(), still.pass());
    // A tick is no pass.
    looping.press();
    still.press();
    Info::DriveFreePercent = {20, 40};
    for (int tick = 0; tick < 5; ++tick)
        looping.tick(QStringLiteral("80% Used"));
    Info::DriveFreePercent = {90, 40};
    QCOMPARE(looping.pass(), still.pass());
}

void tst_KeyGauges::keepsTheLevelOfADriveToItself()
{
    Info::DriveRoots = QStringList{QStringLiteral("/"), QStringLiteral("/home")};
    Info::DriveFreePercent = {5, 6};
    Info::DriveFreeGB = {10, 20};
    Deck deck(keyuuid::physicalDisk);
    deck.apply(payloadWith(R"({"critical":95})"));
    deck.pass();
    QVERIFY(!deck.key().letterColor.isEmpty());
    deck.key().driveIndex = 1;
    deck.pass();
    QVERIFY(deck.key().letterColor.isEmpty());
    deck.key().driveIndex = 0;
    deck.pass();
    QVERIFY(!deck.key().letterColor.isEmpty());
}

void tst_KeyGauges::showsMoreKeysThanItRemembers()
{
    constexpr int count = 70;
    Info::SensorList.clear();
    Info::AllSensorNumbers.clear();
    KeyGauges gauges;
    std::vector<std::unique_ptr<normalAction>> keys;
    for (int index = 0; index < count; ++index) {
        Info::SensorList.append({QString::number(index), QString()});
        Info::AllSensorNumbers.append({1.0, QStringLiteral("V")});
        keys.push_back(std::make_unique<normalAction>(nullptr, keyuuid::allData, QString()));
        keys.back()->applySettings(payloadWith(ring));
        keys.back()->SelectValue = QString::number(index);
    }
    KeyPass pass(gauges, 0);
    QSet<QString> pictures;
    for (const auto &key : keys)
        pictures.insert(pass.paint(*key).value_or(QString()));
    QCOMPARE(pictures.size(), 1);
}

QTEST_MAIN(tst_KeyGauges)
#include "tst_keygauges.moc"
