#include "deck_simulator/deck/DisplaySettings.h"

#include <QJsonArray>
#include <QtTest>

using namespace deck;

class tst_DisplaySettings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void writesNothingThatIsUsual();
    void writesOneMember_data();
    void writesOneMember();
    void comesBackAsItWent();
    void writesNoUsualColor();
    void refusesWhatIsNotKnown_data();
    void refusesWhatIsNotKnown();
    void limitsWhatIsOutOfRange_data();
    void limitsWhatIsOutOfRange();
    void tellsGaugesFromTexts_data();
    void tellsGaugesFromTexts();
};

namespace {

// Every member, and a value that is not the usual one.
const QJsonObject unusual{{QStringLiteral("style"), QStringLiteral("graph")},
                          {QStringLiteral("shape"), QStringLiteral("wide")},
                          {QStringLiteral("size"), 72},
                          {QStringLiteral("minimum"), -10.5},
                          {QStringLiteral("maximum"), 0},
                          {QStringLiteral("warning"), 0},
                          {QStringLiteral("critical"), 1e9},
                          {QStringLiteral("worse"), QStringLiteral("below")},
                          {QStringLiteral("normalColor"), QStringLiteral("red")},
                          {QStringLiteral("warningColor"), QStringLiteral("#123456")},
                          {QStringLiteral("criticalColor"), QStringLiteral("no colour")},
                          {QStringLiteral("ground"), QStringLiteral("#101010")},
                          {QStringLiteral("span"), 3600},
                          {QStringLiteral("average"), 60},
                          {QStringLiteral("decimals"), 0},
                          {QStringLiteral("rates"), QStringLiteral("bits")},
                          {QStringLiteral("press"), QStringLiteral("extremes")}};

} // namespace

void tst_DisplaySettings::writesNothingThatIsUsual()
{
    QVERIFY(displayObject({}).isEmpty());
    QVERIFY(displayFrom({}) == DisplaySettings());
    const QJsonObject spelledOut{{QStringLiteral("style"), QStringLiteral("text")},
                                 {QStringLiteral("shape"), QStringLiteral("square")},
                                 {QStringLiteral("size"), 144},
                                 {QStringLiteral("span"), 60},
                                 {QStringLiteral("average"), 1},
                                 {QStringLiteral("rates"), QStringLiteral("bytes")},
                                 {QStringLiteral("press"), QStringLiteral("none")}};
    QVERIFY(displayFrom(spelledOut) == DisplaySettings());
}

void tst_DisplaySettings::writesOneMember_data()
{
    QTest::addColumn<QJsonObject>("object");
    for (auto member = unusual.begin(); member != unusual.end(); ++member)
        QTest::newRow(qPrintable(member.key())) << QJsonObject{{member.key(), member.value()}};
}

void tst_DisplaySettings::writesOneMember()
{
    QFETCH(const QJsonObject, object);
    const DisplaySettings display = displayFrom(object);
    QVERIFY(display != DisplaySettings());
    QCOMPARE(displayObject(display), object);
}

void tst_DisplaySettings::comesBackAsItWent()
{
    QCOMPARE(displayObject(displayFrom(unusual)), unusual);
}

void tst_DisplaySettings::writesNoUsualColor()
{
    DisplaySettings display;
    display.normalColor = QStringLiteral("#56b4e9"); // as a picker writes it
    display.warningColor = usualWarningColor();
    display.criticalColor = usualCriticalColor();
    QVERIFY(displayObject(display).isEmpty());
    display.warningColor = usualNormalColor();
    QCOMPARE(displayObject(display).keys(), QStringList{QStringLiteral("warningColor")});
}

void tst_DisplaySettings::refusesWhatIsNotKnown_data()
{
    QTest::addColumn<QString>("member");
    QTest::addColumn<QJsonValue>("value");
    const auto row = [](const char *member, const QJsonValue &value) {
        QTest::addRow("%s %s", member, qPrintable(value.toVariant().toString().left(20)))
            << QString::fromLatin1(member) << value;
    };
    row("style", QStringLiteral("pie"));
    row("style", 3);
    row("shape", QStringLiteral("round"));
    row("size", 1e13);
    row("size", QStringLiteral("100"));
    row("minimum", QStringLiteral("1"));
    row("maximum", true);
    row("warning", QJsonArray{80});
    row("critical", QJsonObject());
    row("worse", QStringLiteral("beside"));
    row("normalColor", 5);
    row("ground", QString(1000, QLatin1Char('f')));
    row("maximum", 1.1e12);
    row("span", QJsonValue::Null);
    row("average", QStringLiteral("5"));
    row("decimals", true);
    row("rates", QStringLiteral("nibbles"));
    row("press", true);
}

void tst_DisplaySettings::refusesWhatIsNotKnown()
{
    QFETCH(const QString, member);
    QFETCH(const QJsonValue, value);
    QVERIFY(displayFrom({{member, value}}) == DisplaySettings());
}

void tst_DisplaySettings::limitsWhatIsOutOfRange_data()
{
    QTest::addColumn<QString>("member");
    QTest::addColumn<double>("value");
    QTest::addColumn<QJsonObject>("written");
    const auto row = [](const char *member, double value, const QJsonObject &written) {
        QTest::addRow("%s %g", member, value) << QString::fromLatin1(member) << value << written;
    };
    row("size", 71, {{QStringLiteral("size"), 72}});
    row("size", 1e9, {{QStringLiteral("size"), 288}});
    row("size", 100.9, {{QStringLiteral("size"), 100}});
    row("span", -1, {{QStringLiteral("span"), 10}});
    row("span", 3601, {{QStringLiteral("span"), 3600}});
    row("average", 0, {});
    row("average", 61, {{QStringLiteral("average"), 60}});
    row("decimals", -1, {{QStringLiteral("decimals"), 0}});
    row("decimals", 4, {{QStringLiteral("decimals"), 3}});
}

void tst_DisplaySettings::limitsWhatIsOutOfRange()
{
    QFETCH(const QString, member);
    QFETCH(const double, value);
    QTEST(displayObject(displayFrom({{member, value}})), "written");
}

void tst_DisplaySettings::tellsGaugesFromTexts_data()
{
    QTest::addColumn<QSize>("picture");
    QTest::addColumn<QString>("style");
    QTest::addColumn<bool>("gauge");
    const auto row = [](const char *name, const QSize &picture, const char *style, bool gauge) {
        QTest::newRow(name) << picture << QString::fromLatin1(style) << gauge;
    };
    row("square", {144, 144}, "ring", true);
    row("wide", {288, 144}, "graph", true);
    row("text beside it", {145, 33}, "bar", false); // a kind that has no gauge
    row("a square text", {33, 33}, "text", false);
    row("high", {72, 144}, "pair", false);
    row("nothing", {}, "ring", false);
}

void tst_DisplaySettings::tellsGaugesFromTexts()
{
    QFETCH(const QSize, picture);
    QFETCH(const QString, style);
    DisplaySettings display;
    display.style = style;
    QTEST(isGaugePicture(picture, display), "gauge");
}

QTEST_GUILESS_MAIN(tst_DisplaySettings)
#include "tst_DisplaySettings.moc"
