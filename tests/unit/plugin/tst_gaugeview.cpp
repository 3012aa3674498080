#include "plugin/GaugeView.h"

#include "SDK/LanguageUtilities.h"
#include "plugin/KeyKinds.h"
#include "render/normalAction.h"
#include "sensors/systemInfor.h"
#include "tests/support/Json.h"
#include "tests/support/KeyUuids.h"
#include "tests/support/SampleSnapshot.h"

#include <QtTest>

Q_DECLARE_METATYPE(DisplaySettings::Style)
Q_DECLARE_METATYPE(gauge::Level)

/// What a key with a gauge is painted from.
class tst_GaugeView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void choosesTheStyle_data();
    void choosesTheStyle();
    void showsThePresentValue_data();
    void showsThePresentValue();
    void showsADashForAMissingReading();
    void showsThePair();
    void showsTheMeanOfReadings();
    void showsMeansWithTheDigitsOfTheReading();
    void showsExtremes();
    void placesTheValueOnTheScale_data();
    void placesTheValueOnTheScale();
    void marksThresholdsInRange_data();
    void marksThresholdsInRange();
    void tellsTheLevel_data();
    void tellsTheLevel();
    void leavesALevelLate();
    void takesTheWorseDirectionOfAPair();
    void tracesGraphsOnly();
    void titlesAreShort_data();
    void titlesAreShort();
    void looksAsTheKeyAsks();
    void looksAreSafe();
};

namespace {

using Info = systemInfor;
using Style = DisplaySettings::Style;

/// A key with these display settings, and the record of its source.
struct Shown
{
    Shown(const QString &uuid, const QByteArray &display)
        : key(nullptr, uuid, QStringLiteral("ctx"))
        , source{findKeyKind(uuid)->gauge(), QString()}
        , record(GaugeHistory::newRecord(*source.kind))
    {
        key.display = parseDisplaySettings(json(display));
    }

    void sample(qint64 now) { GaugeHistory::sample(source, record, now); }
    GaugeView view(qint64 now = 0) const { return {key, source, record, now}; }
    gauge::Content content(qint64 now = 0) { return view(now).content(state); }

    normalAction key;
    GaugeSource source;
    GaugeRecord record;
    KeyGaugeState state;
};

const QByteArray ring = R"({"style":"ring"})";

/// A ring with one member more.
QByteArray ringWith(const QByteArray &member)
{
    return R"({"style":"ring",)" + member + "}";
}

QString joined(const gauge::Reading &reading)
{
    return reading.value + QLatin1Char(' ') + reading.unit;
}

} // namespace

void tst_GaugeView::initTestCase()
{
    LanguageUtilities::instance()->LoadLanguages();
}

void tst_GaugeView::init()
{
    fillSnapshot();
    LanguageUtilities::instance()->SetLanguage(QStringLiteral("en"));
}

void tst_GaugeView::choosesTheStyle_data()
{
    QTest::addColumn<QString>("uuid");
    QTest::addColumn<Style>("asked");
    QTest::addColumn<Style>("shown");
    const auto rows = [](const char *name, const QString &uuid, const QVector<Style> &shown) {
        const QVector<Style> asked{Style::Text, Style::Bar, Style::Ring, Style::Graph, Style::Pair};
        for (int index = 0; index < asked.size(); ++index)
            QTest::addRow("%s %d", name, index) << uuid << asked.at(index) << shown.at(index);
    };
    rows("load", keyuuid::cpu, {Style::Text, Style::Bar, Style::Ring, Style::Graph, Style::Text});
    rows("one rate", keyuuid::upload,
         {Style::Text, Style::Bar, Style::Ring, Style::Graph, Style::Text});
    rows("network", keyuuid::netWork,
         {Style::Text, Style::Pair, Style::Pair, Style::Pair, Style::Pair});
    rows("model", keyuuid::cpuModel,
         {Style::Text, Style::Text, Style::Text, Style::Text, Style::Text});
}

void tst_GaugeView::choosesTheStyle()
{
    QFETCH(QString, uuid);
    QFETCH(Style, asked);
    DisplaySettings display;
    display.style = asked;
    QTEST(GaugeView::styleOf(display, findKeyKind(uuid)->gauge()), "shown");
}

void tst_GaugeView::showsThePresentValue_data()
{
    QTest::addColumn<QString>("uuid");
    QTest::addColumn<QString>("text");
    const auto row = [](const QString &uuid, const char *text) {
        QTest::newRow(text) << uuid << QString::fromUtf8(text);
    };
    row(keyuuid::cpu, "37 %");
    row(keyuuid::cpuTemperature, "45 °C");
    row(keyuuid::cpuClock, "4200 MHz");
    row(keyuuid::cpuPower, "65.3 W");
    row(keyuuid::gpuMemoryUsage, "49 %");
    row(keyuuid::memoryUsedGB, "14.3 GB");
    row(keyuuid::gpuMemoryUsed, "2048 MB");
    row(keyuuid::gpuVoltage, "0.913 V");
    row(keyuuid::upload, "1.2 Kb/s");
    row(keyuuid::download, "3.0 MB/s");
    row(keyuuid::pumpSpeed, "1850 RPM");
}

void tst_GaugeView::showsThePresentValue()
{
    QFETCH(QString, uuid);
    Shown shown(uuid, ring);
    QTEST(joined(shown.content().first), "text");
    QVERIFY(shown.content().style == gauge::Style::Ring);
    QVERIFY(shown.content().extreme == gauge::Extreme::None);
    QCOMPARE(shown.content().span, 60.0);
}

void tst_GaugeView::showsADashForAMissingReading()
{
    Shown shown(keyuuid::cpuTemperature, R"({"style":"graph","average":5})");
    shown.sample(0);
    Info::MissingNumbers = {&Info::CpuTemperature};
    Info::CpuTemperature = 0;
    shown.sample(1000);
    const gauge::Content content = shown.content(1000);
    QCOMPARE(joined(content.first), QStringLiteral("– "));
    QVERIFY(!content.first.share);
    QCOMPARE(content.first.trace.size(), 1);
    QCOMPARE(content.first.trace.first().size(), 1);
    QVERIFY(shown.view(1000).level(gauge::Level::Critical) == gauge::Level::Normal);
}

void tst_GaugeView::showsThePair()
{
    Shown shown(keyuuid::netWork, R"({"style":"bar","rates":"bits","decimals":2})");
    shown.sample(0);
    const gauge::Content content = shown.content();
    QVERIFY(content.style == gauge::Style::Pair);
    QCOMPARE(joined(content.first), QStringLiteral("10.16 kbit/s"));
    QCOMPARE(joined(content.second), QStringLiteral("25.17 Mbit/s"));
    // The end is 50 Mbit/s.
    QCOMPARE(content.second.share.value(), 3072 / (50000 * 1000 / 8.0 / 1024));
    QCOMPARE(content.first.trace.size(), 1);
    QCOMPARE(content.second.trace.size(), 1);
    Info::MissingNumbers = {&Info::NetUpRate};
    QCOMPARE(joined(shown.content().first), QStringLiteral("– "));
    QCOMPARE(joined(shown.content().second), QStringLiteral("25.17 Mbit/s"));
}

void tst_GaugeView::showsTheMeanOfReadings()
{
    Shown shown(keyuuid::cpu, ringWith(R"("average":3)"));
    qint64 now = 0;
    for (const unsigned load : {90U, 20U, 31U, 42U}) {
        Info::CpuUsage = load;
        shown.sample(now += 1000);
    }
    QCOMPARE(shown.content(now).first.value, QStringLiteral("31"));
    QCOMPARE(shown.content(now).first.share.value(), 0.31);
    // After sleep the present reading counts alone.
    QCOMPARE(shown.content(now + 60000).first.value, QStringLiteral("42"));
}

void tst_GaugeView::showsMeansWithTheDigitsOfTheReading()
{
    Shown shown(keyuuid::pumpSpeed, ringWith(R"("average":3)"));
    qint64 now = 0;
    for (const int speed : {1850, 1860, 1861}) {
        Info::PumpNumber.value = speed;
        shown.sample(now += 1000);
    }
    QCOMPARE(joined(shown.content(now).first), QStringLiteral("1857 RPM"));
    Info::PumpNumber.value = 1861.5;
    QCOMPARE(joined(shown.content(now).first), QStringLiteral("1857.0 RPM"));
    shown.key.display.decimals = 2;
    QCOMPARE(joined(shown.content(now).first), QStringLiteral("1857.00 RPM"));
}

void tst_GaugeView::showsExtremes()
{
    Shown shown(keyuuid::cpu, ring);
    qint64 now = 0;
    for (const unsigned load : {30U, 90U, 15U, 42U}) {
        Info::CpuUsage = load;
        shown.sample(now += 1000);
    }
    const auto pressed = [&] {
        shown.state.turn.release(now);
        const gauge::Content content = shown.content(now);
        return content.first.value + QLatin1Char(' ') +
               QString::number(content.first.share.value_or(-1)) + QLatin1Char(' ') +
               QString::number(static_cast<int>(content.extreme));
    };
    QCOMPARE(pressed(), QStringLiteral("15 0.15 1"));
    QCOMPARE(pressed(), QStringLiteral("90 0.9 2"));
    QCOMPARE(pressed(), QStringLiteral("44 0.4425 3"));
    QCOMPARE(pressed(), QStringLiteral("42 0.42 0"));

    Shown empty(keyuuid::cpu, ring);
    empty.state.turn.release(0);
    QCOMPARE(joined(empty.content().first), QStringLiteral("– "));
    QVERIFY(!empty.content().first.share);
}

void tst_GaugeView::placesTheValueOnTheScale_data()
{
    QTest::addColumn<QString>("uuid");
    QTest::addColumn<bool>("isFahrenheit");
    QTest::addColumn<QByteArray>("display");
    QTest::addColumn<double>("share");
    const auto row = [](const char *name, const QString &uuid, const QByteArray &display,
                        double share, bool isFahrenheit = false) {
        QTest::newRow(name) << uuid << isFahrenheit << display << share;
    };
    row("load", keyuuid::cpu, ring, 0.37);
    row("load from 20", keyuuid::cpu, ringWith(R"("minimum":20)"), 17 / 80.0);
    row("load below the scale", keyuuid::cpu, ringWith(R"("minimum":40)"), 0);
    row("load with useless ends", keyuuid::cpu, ringWith(R"("minimum":90,"maximum":10)"), 0.37);
    row("temperature", keyuuid::cpuTemperature, ring, 25 / 80.0);
    row("temperature in °F", keyuuid::cpuTemperature, ring, 25 / 80.0, true);
    row("temperature up to 212 °F", keyuuid::cpuTemperature,
        ringWith(R"("minimum":32,"maximum":212)"), 0.45, true);
    row("steady", keyuuid::cpuClock, ring, 4200 / 10000.0);
    row("steady up to a wish", keyuuid::cpuClock, ringWith(R"("maximum":4200)"), 1);
    row("total", keyuuid::memoryUsedGB, ring, 14.25 / 15.75);
    row("rate, in KB/s", keyuuid::download, ringWith(R"("maximum":6144)"), 0.5);
    row("rate in bits, in KB/s", keyuuid::download, ringWith(R"("maximum":6144,"rates":"bits")"),
        0.5);
}

void tst_GaugeView::placesTheValueOnTheScale()
{
    QFETCH(QString, uuid);
    QFETCH(bool, isFahrenheit);
    QFETCH(QByteArray, display);
    Shown shown(uuid, display);
    if (isFahrenheit)
        shown.key.temperatureType = QStringLiteral("华氏度");
    shown.sample(0);
    QTEST(shown.content().first.share.value(), "share");
}

void tst_GaugeView::marksThresholdsInRange_data()
{
    QTest::addColumn<QString>("uuid");
    QTest::addColumn<QByteArray>("display");
    QTest::addColumn<QVector<double>>("shares");
    QTest::newRow("none") << keyuuid::cpu << ring << QVector<double>();
    QTest::newRow("its own") << keyuuid::cpuTemperature << ring << QVector<double>{0.75, 0.9375};
    QTest::newRow("one replaced") << keyuuid::cpuTemperature << ringWith(R"("warning":60)")
                                  << QVector<double>{0.5, 0.9375};
    QTest::newRow("out of range") << keyuuid::cpu << ringWith(R"("warning":-1,"critical":50)")
                                  << QVector<double>{0.5};
}

void tst_GaugeView::marksThresholdsInRange()
{
    QFETCH(QString, uuid);
    QFETCH(QByteArray, display);
    QTEST(Shown(uuid, display).content().thresholds, "shares");
}

void tst_GaugeView::tellsTheLevel_data()
{
    using gauge::Level;
    QTest::addColumn<QString>("uuid");
    QTest::addColumn<QByteArray>("display");
    QTest::addColumn<Level>("level");
    const auto row = [](const char *name, const QString &uuid, const QByteArray &display,
                        Level level) { QTest::newRow(name) << uuid << display << level; };
    row("none", keyuuid::gpuLoad, ring, Level::Normal);
    row("given", keyuuid::gpuLoad, ringWith(R"("warning":90)"), Level::Warning);
    row("both given", keyuuid::gpuLoad, ringWith(R"("warning":90,"critical":99)"), Level::Critical);
    row("worse below", keyuuid::cpu, ringWith(R"("critical":40,"worse":"below")"), Level::Critical);
    row("its own", keyuuid::memoryFreeGB, ring, Level::Warning);
    row("its own side", keyuuid::memoryFreeGB, ringWith(R"("critical":2)"), Level::Critical);
    row("its side exchanged", keyuuid::memoryFreeGB, ringWith(R"("critical":2,"worse":"above")"),
        Level::Normal);
    row("a text without its own", keyuuid::memoryFreeGB, R"({"style":"text"})", Level::Normal);
    row("a text with a given one", keyuuid::memoryFreeGB, R"({"critical":2})", Level::Critical);
}

void tst_GaugeView::tellsTheLevel()
{
    QFETCH(QString, uuid);
    QFETCH(QByteArray, display);
    QTEST(Shown(uuid, display).view().level(gauge::Level::Normal), "level");
}

/// Temperatures have a scale of 80 °C, on which a step back is 1.6 °C.
void tst_GaugeView::leavesALevelLate()
{
    using gauge::Level;
    Shown shown(keyuuid::cpuTemperature, ring);
    shown.key.temperatureType = QStringLiteral("华氏度");
    Info::CpuTemperature = 94;
    QVERIFY(shown.view().level(Level::Critical) == Level::Critical);
    QVERIFY(shown.view().level(Level::Warning) == Level::Warning);
    Info::CpuTemperature = 93;
    QVERIFY(shown.view().level(Level::Critical) == Level::Warning);
    // 185 °F are 85 °C.
    shown.key.display.critical = 185;
    QVERIFY(shown.view().level(Level::Normal) == Level::Critical);
}

void tst_GaugeView::takesTheWorseDirectionOfAPair()
{
    using gauge::Level;
    QVERIFY(Shown(keyuuid::netWork, R"({"style":"pair","critical":3072})")
                .view()
                .level(Level::Normal) == Level::Critical);
    QVERIFY(Shown(keyuuid::netWork, R"({"style":"pair","critical":3073})")
                .view()
                .level(Level::Normal) == Level::Normal);
    QVERIFY(
        Shown(keyuuid::netWork, R"({"critical":2,"worse":"below"})").view().level(Level::Normal) ==
        Level::Critical);
    Info::MissingNumbers = {&Info::NetUpRate};
    QVERIFY(
        Shown(keyuuid::netWork, R"({"critical":2,"worse":"below"})").view().level(Level::Normal) ==
        Level::Normal);
}

void tst_GaugeView::tracesGraphsOnly()
{
    for (const char *const style : {"bar", "ring", "graph"}) {
        Shown shown(keyuuid::cpu, QByteArray(R"({"span":10,"style":")") + style + R"("})");
        for (qint64 now = 0; now <= 20000; now += 1000)
            shown.sample(now);
        const gauge::Content content = shown.content(20000);
        QCOMPARE(content.span, 10.0);
        QCOMPARE(content.first.trace.size(), style == QByteArray("graph") ? 1 : 0);
        if (!content.first.trace.isEmpty())
            QCOMPARE(content.first.trace.first().size(), 12);
    }
}

void tst_GaugeView::titlesAreShort_data()
{
    QTest::addColumn<QString>("uuid");
    QTest::addColumn<QString>("title");
    QTest::addColumn<bool>("showTitle");
    QTest::addColumn<QString>("shown");
    const auto row = [](const char *name, const QString &uuid, const char *title, bool showTitle,
                        const char *shown) {
        QTest::newRow(name) << uuid << QString::fromUtf8(title) << showTitle
                            << QString::fromUtf8(shown);
    };
    row("default", keyuuid::cpu, "CPU usage rate", true, "CPU");
    row("default in Chinese", keyuuid::gpuMemoryUsage, "Gpu显存使用率", true, "GPU mem");
    row("own", keyuuid::cpu, "My processor", true, "My processor");
    row("empty", keyuuid::cpu, "", true, "");
    row("not shown", keyuuid::cpu, "CPU usage rate", false, "");
    row("without a default", keyuuid::pumpSpeed, "", true, "Pump");
    row("without a default, own", keyuuid::pumpSpeed, "Water", true, "Water");
    row("without a default, not shown", keyuuid::pumpSpeed, "", false, "");
}

void tst_GaugeView::titlesAreShort()
{
    QFETCH(QString, uuid);
    QFETCH(QString, title);
    QFETCH(bool, showTitle);
    Shown shown(uuid, ring);
    shown.key.titleText = title;
    shown.key.showTitle = showTitle;
    QTEST(shown.content().title, "shown");
}

void tst_GaugeView::looksAsTheKeyAsks()
{
    Shown shown(keyuuid::cpu, R"({"style":"bar","size":100,"shape":"wide","normalColor":"#010203",
        "warningColor":"#040506","criticalColor":"#070809","ground":"#0a0b0c"})");
    shown.key.color = QStringLiteral("#ff8000");
    shown.key.opacity = 0.25;
    shown.key.font.setFamily(QStringLiteral("Some Family"));
    const gauge::Look look = GaugeView::lookOf(shown.key);
    QCOMPARE(look.size, QSize(200, 100));
    QCOMPARE(look.font.family(), QStringLiteral("Some Family"));
    QCOMPARE(look.color, QColor(255, 128, 0));
    QCOMPARE(look.normal, QColor(1, 2, 3));
    QCOMPARE(look.warning, QColor(4, 5, 6));
    QCOMPARE(look.critical, QColor(7, 8, 9));
    QCOMPARE(look.ground, QColor(10, 11, 12));
    QCOMPARE(look.opacity, 0.75);
    QCOMPARE(GaugeView::lookOf(Shown(keyuuid::cpu, ring).key).size, QSize(144, 144));
}

void tst_GaugeView::looksAreSafe()
{
    Shown shown(keyuuid::cpu, ring);
    shown.key.color = QStringLiteral("no colour");
    shown.key.opacity = -1e300;
    QCOMPARE(GaugeView::lookOf(shown.key).color, QColor(Qt::black));
    QCOMPARE(GaugeView::lookOf(shown.key).opacity, 1.0);
    QVERIFY(!GaugeView::lookOf(shown.key).ground.isValid());
    shown.key.opacity = 7;
    QCOMPARE(GaugeView::lookOf(shown.key).opacity, 0.0);
}

QTEST_MAIN(tst_GaugeView)
#include "tst_gaugeview.moc"
