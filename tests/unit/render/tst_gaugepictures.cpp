#include "render/Gauge.h"
#include "render/PngEncoder.h"
#include "tests/support/GoldenPicture.h"
#include "tests/support/SampleGauges.h"
#include "tests/support/TestFonts.h"

#include <QtTest>

#include <cmath>
#include <functional>

using gauge::Content;
using gauge::Extreme;
using gauge::Level;
using gauge::Look;
using gauge::Style;

Q_DECLARE_METATYPE(gauge::Content)
Q_DECLARE_METATYPE(gauge::Look)

/// The pictures of gauges against kept ones.
class tst_GaugePictures : public QObject
{
    Q_OBJECT

public:
    static void initMain() { testfonts::hideMachineFonts(); }

private Q_SLOTS:
    void paintsAsKept_data();
    void paintsAsKept();
};

namespace {

using Change = std::function<void(Content &, Look &)>;

struct State
{
    const char *name;
    Change change;
};

void setReading(Content &content, const char *title, const char *value, const char *unit,
                double share)
{
    content.title = QString::fromUtf8(title);
    content.first.value = QString::fromUtf8(value);
    content.first.widest = content.first.value;
    content.first.unit = QString::fromUtf8(unit);
    content.first.share = share;
}

void forBoth(Content &content, const std::function<void(gauge::Reading &)> &change)
{
    change(content.first);
    change(content.second);
}

void setMissing(Content &content)
{
    forBoth(content, [](gauge::Reading &reading) {
        reading.value = QStringLiteral("–");
        reading.share.reset();
        reading.trace.clear();
    });
}

QVector<gauge::Point> hourOfSamples()
{
    QVector<gauge::Point> run;
    for (int age = 3600; age >= 0; --age)
        run.append({double(age), 0.5 + 0.3 * std::sin(age / 300.0) + 0.2 * std::sin(age * 1.3)});
    return run;
}

void setGap(Content &content)
{
    forBoth(content, [](gauge::Reading &reading) {
        const QVector<gauge::Point> all = reading.trace.value(0);
        reading.trace = {all.mid(0, 25), all.mid(32, 1), all.mid(40)};
    });
}

/// Those of every style.
const State commonStates[] = {
    {"normal", [](Content &, Look &) {}},
    {"warning", [](Content &content, Look &) { content.level = Level::Warning; }},
    {"critical", [](Content &content, Look &) { content.level = Level::Critical; }},
    {"missing", [](Content &content, Look &) { setMissing(content); }},
    {"minimum", [](Content &content, Look &) { content.extreme = Extreme::Minimum; }},
    {"maximum", [](Content &content, Look &) { content.extreme = Extreme::Maximum; }},
    {"mean", [](Content &content, Look &) { content.extreme = Extreme::Mean; }},
    {"opacity", [](Content &, Look &look) { look.opacity = 0.4; }},
    {"ground", [](Content &, Look &look) { look.ground = QColor(0x20, 0x24, 0x50); }},
    {"color", [](Content &, Look &look) { look.color = QColor(0x20, 0xC0, 0x60); }},
    {"wide", [](Content &, Look &look) { look.size.rwidth() *= 2; }},
    {"wide-critical",
     [](Content &content, Look &look) {
         content.level = Level::Critical;
         content.extreme = Extreme::Maximum;
         look.size.rwidth() *= 2;
     }},
    {"wide-no-title",
     [](Content &content, Look &look) {
         content.title.clear();
         look.size.rwidth() *= 2;
     }},
};

/// Those of gauges with one value.
const State singleStates[] = {
    {"no-title", [](Content &content, Look &) { content.title.clear(); }},
    {"long-title",
     [](Content &content, Look &) {
         content.title = QStringLiteral("Temperature of the graphics card");
     }},
    {"long-title-critical",
     [](Content &content, Look &) {
         setReading(content, "Graphics temp", "94", "°C", 0.93);
         content.level = Level::Critical;
     }},
    {"long-title-extreme",
     [](Content &content, Look &) {
         setReading(content, "Graphics temperature", "94", "°C", 0.93);
         content.level = Level::Critical;
         content.extreme = Extreme::Maximum;
     }},
    {"chinese-title", [](Content &content, Look &) { content.title = QStringLiteral("显卡温度"); }},
    {"whole", [](Content &content, Look &) { setReading(content, "Memory", "100", "%", 1); }},
    {"start", [](Content &content, Look &) { setReading(content, "Memory", "0", "%", 0); }},
    {"least", [](Content &content, Look &) { setReading(content, "Memory", "1", "%", 0.01); }},
    {"long-unit", [](Content &content, Look &) { setReading(content, "Fan", "1240", "RPM", 0.5); }},
    {"long-value",
     [](Content &content, Look &) { setReading(content, "Down", "1023.9", "MB/s", 0.8); }},
};

/// Those of gauges with a history.
const State traceStates[] = {
    {"empty-history",
     [](Content &content, Look &) {
         forBoth(content, [](gauge::Reading &reading) { reading.trace.clear(); });
     }},
    {"one-sample",
     [](Content &content, Look &) {
         forBoth(content,
                 [](gauge::Reading &reading) { reading.trace = {reading.trace.value(0).mid(60)}; });
     }},
    {"gap", [](Content &content, Look &) { setGap(content); }},
    {"thresholds",
     [](Content &content, Look &) {
         content.thresholds = {0.6, 0.8, 1.5};
     }},
    {"dense",
     [](Content &content, Look &) {
         content.span = 3600;
         forBoth(content, [](gauge::Reading &reading) { reading.trace = {hourOfSamples()}; });
     }},
};

const State pairStates[] = {
    {"long-value",
     [](Content &content, Look &) { setReading(content, "Network", "1023.9", "MB/s", 0.8); }},
};

template <std::size_t count>
void addRows(const samplegauges::StyleName &style, const State (&states)[count])
{
    for (const State &state : states) {
        for (const int side : {72, 144}) {
            Content content = samplegauges::contentOf(style.style);
            Look look = samplegauges::look(side);
            state.change(content, look);
            QTest::addRow("gauge-%s-%s-%d", style.name, state.name, side) << content << look;
        }
    }
}

int colorsOf(const QImage &picture)
{
    QSet<QRgb> colors;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            colors.insert(picture.pixel(x, y));
    }
    return static_cast<int>(colors.size());
}

constexpr int paletteSize = 256;

} // namespace

void tst_GaugePictures::paintsAsKept_data()
{
    QTest::addColumn<Content>("content");
    QTest::addColumn<Look>("look");
    for (const samplegauges::StyleName &style : samplegauges::styles) {
        addRows(style, commonStates);
        if (style.style != Style::Pair)
            addRows(style, singleStates);
        if (style.style == Style::Graph || style.style == Style::Pair)
            addRows(style, traceStates);
        if (style.style == Style::Pair)
            addRows(style, pairStates);
    }
}

void tst_GaugePictures::paintsAsKept()
{
    QFETCH(Content, content);
    QFETCH(Look, look);
    REQUIRE_FONTS({QStringLiteral("Roboto-Bold.ttf"), QStringLiteral("Roboto-Medium.ttf"),
                   QStringLiteral("wqy-microhei.ttc")});
    const QImage picture = paintGauge(content, look);
    QCOMPARE(picture.size(), look.size);
    QCOMPARE(picture.format(), QImage::Format_ARGB32);
    QCOMPARE(GoldenPicture(QString::fromLatin1(QTest::currentDataTag())).differenceFrom(picture),
             QString());
    const int colors = colorsOf(picture);
    QVERIFY2(colors <= paletteSize, qPrintable(QString::number(colors)));
    if (qEnvironmentVariableIsSet("GAUGE_FIGURES"))
        qInfo("%d colours, %d bytes", colors, static_cast<int>(encodedPng(picture).size()));
}

QTEST_MAIN(tst_GaugePictures)
#include "tst_gaugepictures.moc"
