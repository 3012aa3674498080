#include "render/DisplaySettings.h"

#include "render/KeySettings.h"
#include "tests/support/Json.h"

#include <QtTest>

Q_DECLARE_METATYPE(DisplaySettings::Style)

/// Reading of "display", member by member.
class tst_DisplaySettings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsTheFullSet();
    void isATextWithoutIt_data();
    void isATextWithoutIt();
    void readsStyles_data();
    void readsStyles();
    void holdsNumbersToTheirRange_data();
    void holdsNumbersToTheirRange();
    void takesScalesAndThresholdsAsTheyAre_data();
    void takesScalesAndThresholdsAsTheyAre();
    void readsWords();
    void readsColors_data();
    void readsColors();
    void standsBesideTheTitleParameters();
};

namespace {

using Style = DisplaySettings::Style;
using Worse = DisplaySettings::Worse;

/// The settings where one member is the JSON \a value.
DisplaySettings with(const QByteArray &member, const QByteArray &value)
{
    return parseDisplaySettings(json(R"({")" + member + R"(":)" + value + "}"));
}

QString textOf(const std::optional<double> &number)
{
    return number ? QString::number(*number) : QStringLiteral("none");
}

void compareWithDefaults(const DisplaySettings &settings)
{
    QCOMPARE(settings.style, Style::Text);
    QCOMPARE(settings.size, 144);
    QVERIFY(!settings.isWide);
    QVERIFY(!settings.minimum && !settings.maximum && !settings.hasThreshold());
    QVERIFY(!settings.worse && !settings.decimals);
    QCOMPARE(settings.normalColor, QColor(0x56, 0xB4, 0xE9));
    QCOMPARE(settings.warningColor, QColor(0xF0, 0xE4, 0x42));
    QCOMPARE(settings.criticalColor, QColor(0xFF, 0x70, 0x43));
    QVERIFY(!settings.ground.isValid());
    QCOMPARE(settings.span, 60.0);
    QCOMPARE(settings.average, 1);
    QVERIFY(!settings.showsBits && !settings.showsExtremes);
}

} // namespace

void tst_DisplaySettings::readsTheFullSet()
{
    const DisplaySettings settings = parseDisplaySettings(json(R"({"style":"graph","size":72,
        "shape":"wide","minimum":-5.5,"maximum":200,"warning":80,"critical":95,"worse":"below",
        "normalColor":"#010203","warningColor":"red","criticalColor":"#80ffffff",
        "ground":"#202020","span":300,"average":5,"decimals":2,"rates":"bits",
        "press":"extremes"})"));
    QCOMPARE(settings.style, Style::Graph);
    QCOMPARE(settings.size, 72);
    QVERIFY(settings.isWide);
    QCOMPARE(settings.minimum.value(), -5.5);
    QCOMPARE(settings.maximum.value(), 200.0);
    QCOMPARE(settings.warning.value(), 80.0);
    QCOMPARE(settings.critical.value(), 95.0);
    QCOMPARE(settings.worse.value(), Worse::Below);
    QCOMPARE(settings.normalColor, QColor(1, 2, 3));
    QCOMPARE(settings.warningColor, QColor(Qt::red));
    QCOMPARE(settings.criticalColor.alpha(), 128);
    QCOMPARE(settings.ground, QColor(32, 32, 32));
    QCOMPARE(settings.span, 300.0);
    QCOMPARE(settings.average, 5);
    QCOMPARE(settings.decimals.value(), 2);
    QVERIFY(settings.showsBits);
    QVERIFY(settings.showsExtremes);
}

void tst_DisplaySettings::isATextWithoutIt_data()
{
    QTest::addColumn<QByteArray>("display");
    QTest::newRow("empty") << QByteArray("{}");
    QTest::newRow("other members") << QByteArray(R"({"colour":"red","Style":"ring"})");
    for (const char *const value : {"null", "true", "[]", R"(["ring"])", "{}", R"("")", R"("x")"}) {
        QByteArray display("{");
        for (const char *const member :
             {"style", "size", "shape", "minimum", "maximum", "warning", "critical", "worse",
              "normalColor", "warningColor", "criticalColor", "ground", "span", "average",
              "decimals", "rates", "press"})
            display += QByteArray(display == "{" ? "\"" : ",\"") + member + "\":" + value;
        QTest::newRow(value) << display + "}";
    }
}

void tst_DisplaySettings::isATextWithoutIt()
{
    QFETCH(QByteArray, display);
    compareWithDefaults(parseDisplaySettings(json(display)));
}

void tst_DisplaySettings::readsStyles_data()
{
    QTest::addColumn<Style>("style");
    QTest::newRow("text") << Style::Text;
    QTest::newRow("bar") << Style::Bar;
    QTest::newRow("ring") << Style::Ring;
    QTest::newRow("graph") << Style::Graph;
    QTest::newRow("pair") << Style::Pair;
    QTest::newRow("Ring") << Style::Text;
    QTest::newRow("ring ") << Style::Text;
}

void tst_DisplaySettings::readsStyles()
{
    QTEST(with("style", QByteArray("\"") + QTest::currentDataTag() + "\"").style, "style");
}

void tst_DisplaySettings::holdsNumbersToTheirRange_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<int>("size");
    QTest::addColumn<double>("span");
    QTest::addColumn<int>("average");
    QTest::addColumn<int>("decimals"); // -1: as the text has them.
    QTest::newRow("negative") << QByteArray("-1") << 72 << 10.0 << 1 << 0;
    QTest::newRow("small") << QByteArray("2") << 72 << 10.0 << 2 << 2;
    QTest::newRow("fraction") << QByteArray("10.75") << 72 << 10.75 << 10 << 3;
    QTest::newRow("medium") << QByteArray("100.9") << 100 << 100.9 << 60 << 3;
    QTest::newRow("large") << QByteArray("4000") << 288 << 3600.0 << 60 << 3;
    QTest::newRow("huge") << QByteArray("1e13") << 144 << 60.0 << 1 << -1;
    QTest::newRow("far below") << QByteArray("-1e300") << 144 << 60.0 << 1 << -1;
    QTest::newRow("text") << QByteArray("\"100\"") << 144 << 60.0 << 1 << -1;
}

void tst_DisplaySettings::holdsNumbersToTheirRange()
{
    QFETCH(QByteArray, value);
    QTEST(with("size", value).size, "size");
    QTEST(with("span", value).span, "span");
    QTEST(with("average", value).average, "average");
    QTEST(with("decimals", value).decimals.value_or(-1), "decimals");
}

void tst_DisplaySettings::takesScalesAndThresholdsAsTheyAre_data()
{
    QTest::addColumn<QString>("read");
    QTest::newRow("0") << QStringLiteral("0");
    QTest::newRow("-40") << QStringLiteral("-40");
    QTest::newRow("1e12") << QStringLiteral("1e+12");
    QTest::newRow("1.1e12") << QStringLiteral("none");
    QTest::newRow("-1e308") << QStringLiteral("none");
    QTest::newRow("\"5\"") << QStringLiteral("none");
    QTest::newRow("true") << QStringLiteral("none");
}

void tst_DisplaySettings::takesScalesAndThresholdsAsTheyAre()
{
    const QByteArray value = QTest::currentDataTag();
    QTEST(textOf(with("minimum", value).minimum), "read");
    QTEST(textOf(with("maximum", value).maximum), "read");
    QTEST(textOf(with("warning", value).warning), "read");
    QTEST(textOf(with("critical", value).critical), "read");
}

void tst_DisplaySettings::readsWords()
{
    QCOMPARE(with("worse", R"("above")").worse.value(), Worse::Above);
    QCOMPARE(with("worse", R"("below")").worse.value(), Worse::Below);
    QVERIFY(!with("shape", R"("square")").isWide);
    QVERIFY(!with("rates", R"("bytes")").showsBits);
    QVERIFY(!with("press", R"("none")").showsExtremes);
    QVERIFY(with("warning", "1").hasThreshold());
    QVERIFY(with("critical", "1").hasThreshold());
}

void tst_DisplaySettings::readsColors_data()
{
    QTest::addColumn<QColor>("color");
    QTest::newRow("\"#00f\"") << QColor(Qt::blue);
    QTest::newRow("\"steelblue\"") << QColor(70, 130, 180);
    QTest::newRow("\"transparent\"") << QColor(Qt::transparent);
    QTest::newRow("\"#12\"") << QColor();
    QTest::newRow("\"no colour\"") << QColor();
    QTest::newRow("255") << QColor();
}

void tst_DisplaySettings::readsColors()
{
    QFETCH(QColor, color);
    const QByteArray value = QTest::currentDataTag();
    const DisplaySettings defaults;
    const auto orElse = [&color](const QColor &other) { return color.isValid() ? color : other; };
    QCOMPARE(with("normalColor", value).normalColor, orElse(defaults.normalColor));
    QCOMPARE(with("warningColor", value).warningColor, orElse(defaults.warningColor));
    QCOMPARE(with("criticalColor", value).criticalColor, orElse(defaults.criticalColor));
    QCOMPARE(with("ground", value).ground, color);
}

void tst_DisplaySettings::standsBesideTheTitleParameters()
{
    const KeySettings beside =
        parseKeySettings(json(R"({"settings":{"titleParameters":{},"display":{"style":"bar"}}})"));
    QCOMPARE(beside.display.style, Style::Bar);
    const KeySettings among =
        parseKeySettings(json(R"({"settings":{"titleParameters":{"display":{"style":"bar"}}}})"));
    compareWithDefaults(among.display);
    compareWithDefaults(parseKeySettings(json(R"({"settings":{"display":"bar"}})")).display);
}

QTEST_APPLESS_MAIN(tst_DisplaySettings)
#include "tst_displaysettings.moc"
