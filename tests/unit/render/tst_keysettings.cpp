#include "render/KeySettings.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QtTest>

#include <climits>

/// Parsing of a key's settings, and the pixel size that follows from them.
class tst_KeySettings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsTheFullSet();
    void isEmptyWithoutParameters_data();
    void isEmptyWithoutParameters();
    void readsTexts_data();
    void readsTexts();
    void readsFlags_data();
    void readsFlags();
    void readsWholeNumbers_data();
    void readsWholeNumbers();
    void readsOpacity_data();
    void readsOpacity();
    void namesTheModes_data();
    void namesTheModes();
    void readsTheKeyWidth_data();
    void readsTheKeyWidth();
    void scalesTheFont_data();
    void scalesTheFont();
};

namespace {

QJsonObject object(const char *json)
{
    QJsonParseError error{};
    QJsonObject result = QJsonDocument::fromJson(json, &error).object();
    if (error.error != QJsonParseError::NoError)
        qFatal("%s: %s", json, qPrintable(error.errorString()));
    return result;
}

/// The settings read when one member of "titleParameters" has the value \a json.
KeySettings withParameter(const QByteArray &name, const QByteArray &json)
{
    const QByteArray payload =
        R"({"settings":{"titleParameters":{")" + name + R"(":)" + json + "}}}";
    return parseKeySettings(object(payload.constData()));
}

const std::initializer_list<const char *> notATextValues{
    "null", "true", "0", "144", "-1.5", "[]", R"(["a"])", R"({"text":"a"})",
};

void compareEmpty(const KeySettings &settings)
{
    QCOMPARE(settings.titleText, QString());
    QCOMPARE(settings.showTitle, false);
    QCOMPARE(settings.fontSpec, QString());
    QCOMPARE(settings.fontSize, 0);
    QCOMPARE(settings.color, QString());
    QCOMPARE(settings.opacity, 0.0);
    QCOMPARE(settings.temperatureType, QString());
    QCOMPARE(settings.titleLines, QString());
    QCOMPARE(settings.diskMode, QString());
    QCOMPARE(settings.volumeNameItem, QString());
    QCOMPARE(settings.switchFrequency, 0);
    QCOMPARE(settings.showVolumeName, false);
    QCOMPARE(settings.chosenDisk, QString());
    QCOMPARE(settings.chosenFan, QString());
    QCOMPARE(settings.chosenSensor, QString());
    QCOMPARE(settings.newlyChosenSensor, QString());
    QCOMPARE(settings.keyWidth, 0);
}

} // namespace

void tst_KeySettings::readsTheFullSet()
{
    const KeySettings settings = parseKeySettings(object(R"({"settings":{
        "titleParameters":{"text":"网速/速度","showTitle":true,"fontFamily":"Roboto|Bold",
            "fontSize":20,"color":"#12ab34","opacity":0.25,"temperatureType":"华氏度",
            "titleLines":"双行显示","diskMode":"Total_Disks","volumeNameItem":"2",
            "switchFrequency":7,"showVolumeName":true,"SelectPhysicalDisk":"sda",
            "SelectCPUFan":"CPU Fan","SelectValue":"CPU Package","SystemDataSelect":"Framerate"},
        "ActionGeometry":{"width":144,"height":96}}})"));
    QCOMPARE(settings.titleText, QStringLiteral("网速/速度"));
    QCOMPARE(settings.showTitle, true);
    QCOMPARE(settings.fontSpec, QStringLiteral("Roboto|Bold"));
    QCOMPARE(settings.fontSize, 20);
    QCOMPARE(settings.color, QStringLiteral("#12ab34"));
    QCOMPARE(settings.opacity, 0.25);
    QCOMPARE(settings.temperatureType, QStringLiteral("华氏度"));
    QCOMPARE(settings.titleLines, QStringLiteral("双行显示"));
    QCOMPARE(settings.diskMode, QStringLiteral("Total_Disks"));
    QCOMPARE(settings.volumeNameItem, QStringLiteral("2"));
    QCOMPARE(settings.switchFrequency, 7);
    QCOMPARE(settings.showVolumeName, true);
    QCOMPARE(settings.chosenDisk, QStringLiteral("sda"));
    QCOMPARE(settings.chosenFan, QStringLiteral("CPU Fan"));
    QCOMPARE(settings.chosenSensor, QStringLiteral("CPU Package"));
    QCOMPARE(settings.newlyChosenSensor, QStringLiteral("Framerate"));
    QCOMPARE(settings.keyWidth, 144);
}

void tst_KeySettings::isEmptyWithoutParameters_data()
{
    QTest::addColumn<QByteArray>("payload");
    const auto row = [](const char *json) { QTest::newRow(json) << QByteArray(json); };
    row("{}");
    row(R"({"settings":{}})");
    row(R"({"settings":{"titleParameters":{}}})");
    row(R"({"settings":{"titleParameters":{},"ActionGeometry":{}}})");
    row(R"({"settings":null})");
    row(R"({"settings":"text"})");
    row(R"({"settings":[{"titleParameters":{"text":"a"}}]})");
    row(R"({"settings":{"titleParameters":"text","ActionGeometry":144}})");
    row(R"({"settings":{"titleParameters":[{"text":"a"}],"ActionGeometry":["width"]}})");
    row(R"({"titleParameters":{"text":"a"},"ActionGeometry":{"width":144}})");
    row(R"({"settings":{"text":"a","showTitle":true,"fontSize":20,"width":144}})");
    row(R"({"settings":{"TitleParameters":{"text":"a"},"actionGeometry":{"width":144}}})");
    row(R"({"settings":{"titleParameters":{"Text":"a","width":144},
            "ActionGeometry":{"text":"a","Width":144}}})");
}

void tst_KeySettings::isEmptyWithoutParameters()
{
    QFETCH(QByteArray, payload);
    compareEmpty(parseKeySettings(object(payload.constData())));
}

void tst_KeySettings::readsTexts_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("text");
    const auto row = [](const char *json, const QString &text) {
        QTest::newRow(json) << QByteArray(json) << text;
    };
    row(R"("")", QString());
    row(R"("a")", QStringLiteral("a"));
    row(R"(" 温度 ")", QStringLiteral(" 温度 "));
    row(R"("144")", QStringLiteral("144"));
    row(R"("nan")", QStringLiteral("nan"));
    row(R"("line\nbreak")", QStringLiteral("line\nbreak"));
    for (const char *json : notATextValues)
        row(json, QString());
    QTest::newRow("huge") << '"' + QByteArray(1000000, 'x') + '"'
                          << QString(1000000, QLatin1Char('x'));
}

void tst_KeySettings::readsTexts()
{
    QFETCH(QByteArray, json);
    QFETCH(QString, text);
    QCOMPARE(withParameter("text", json).titleText, text);
    QCOMPARE(withParameter("fontFamily", json).fontSpec, text);
    QCOMPARE(withParameter("color", json).color, text);
    QCOMPARE(withParameter("temperatureType", json).temperatureType, text);
    QCOMPARE(withParameter("titleLines", json).titleLines, text);
    QCOMPARE(withParameter("diskMode", json).diskMode, text);
    QCOMPARE(withParameter("volumeNameItem", json).volumeNameItem, text);
    QCOMPARE(withParameter("SelectPhysicalDisk", json).chosenDisk, text);
    QCOMPARE(withParameter("SelectCPUFan", json).chosenFan, text);
    QCOMPARE(withParameter("SelectValue", json).chosenSensor, text);
    QCOMPARE(withParameter("SystemDataSelect", json).newlyChosenSensor, text);
}

void tst_KeySettings::readsFlags_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<bool>("flag");
    const auto row = [](const char *json, bool flag) {
        QTest::newRow(json) << QByteArray(json) << flag;
    };
    row("true", true);
    for (const char *json : {"false", "null", "1", R"("true")", R"("")", "[true]", "{}"})
        row(json, false);
}

void tst_KeySettings::readsFlags()
{
    QFETCH(QByteArray, json);
    QFETCH(bool, flag);
    QCOMPARE(withParameter("showTitle", json).showTitle, flag);
    QCOMPARE(withParameter("showVolumeName", json).showVolumeName, flag);
}

void tst_KeySettings::readsWholeNumbers_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<int>("number");
    const auto row = [](const char *json, int number) {
        QTest::newRow(json) << QByteArray(json) << number;
    };
    row("0", 0);
    row("20", 20);
    row("20.0", 20);
    row("-7", -7);
    row("2147483647", INT_MAX);
    row("-2147483648", INT_MIN);
    for (const char *json : {"20.5", "2147483648", "-2147483649", "1e300", "null", "true",
                             R"("20")", R"("nan")", R"("abc")", "[20]", R"({"fontSize":20})"})
        row(json, 0);
}

void tst_KeySettings::readsWholeNumbers()
{
    QFETCH(QByteArray, json);
    QFETCH(int, number);
    QCOMPARE(withParameter("fontSize", json).fontSize, number);
    QCOMPARE(withParameter("switchFrequency", json).switchFrequency, number);
}

void tst_KeySettings::readsOpacity_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<double>("opacity");
    const auto row = [](const char *json, double opacity) {
        QTest::newRow(json) << QByteArray(json) << opacity;
    };
    row("0", 0.0);
    row("0.25", 0.25);
    row("1", 1.0);
    row("-3.5", -3.5);
    row("1e300", 1e300);
    for (const char *json : {"null", "true", R"("0.25")", R"("nan")", R"("abc")", "[0.25]", "{}"})
        row(json, 0.0);
}

void tst_KeySettings::readsOpacity()
{
    QFETCH(QByteArray, json);
    QTEST(withParameter("opacity", json).opacity, "opacity");
}

void tst_KeySettings::namesTheModes_data()
{
    QTest::addColumn<QString>("mode");
    QTest::addColumn<QStringList>("names");
    const auto row = [](const char *mode, const QStringList &names) {
        QTest::newRow(mode) << QString::fromUtf8(mode) << names;
    };
    row("华氏度", {QStringLiteral("Fahrenheit")});
    row("单行显示", {QStringLiteral("one line")});
    row("双行显示", {QStringLiteral("two lines")});
    row("Total_Disks", {QStringLiteral("all drives")});
    row("Disk_Loop", {QStringLiteral("loop")});
    for (const char *const none : {"", "摄氏度", "华氏度 ", "Single_Disk", "disk_loop", "F"})
        row(none, {});
}

void tst_KeySettings::namesTheModes()
{
    QFETCH(QString, mode);
    KeySettings settings;
    settings.temperatureType = mode;
    settings.titleLines = mode;
    settings.diskMode = mode;
    QStringList names;
    if (settings.isFahrenheit())
        names.append(QStringLiteral("Fahrenheit"));
    if (settings.isOneLine())
        names.append(QStringLiteral("one line"));
    if (settings.isTwoLines())
        names.append(QStringLiteral("two lines"));
    if (settings.showsAllDrives())
        names.append(QStringLiteral("all drives"));
    if (settings.loopsOverDrives())
        names.append(QStringLiteral("loop"));
    QTEST(names, "names");
}

void tst_KeySettings::readsTheKeyWidth_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<int>("width");
    const auto row = [](const char *json, int width) {
        QTest::newRow(json) << QByteArray(json) << width;
    };
    row("144", 144);
    row("144.9", 144);
    row("-144.9", -144);
    row("0.9", 0);
    row("1e300", INT_MAX);
    row("-1e300", INT_MIN);
    row(R"("144")", 144);
    row(R"("144.9")", 144);
    row(R"(" 144 ")", 144);
    row(R"("1.44e2")", 144);
    row(R"("-144")", -144);
    row(R"("1e300")", INT_MAX);
    row(R"("-1e300")", INT_MIN);
    for (const char *json :
         {R"("abc")", R"("144px")", R"("1,44")", R"("0x90")", R"("")", R"("nan")", R"("NaN")",
          R"("-nan")", R"("0.9")", "null", "true", "[144]", R"({"width":144})"})
        row(json, 0);
    QTest::newRow("long text") << '"' + QByteArray(100000, 'x') + '"' << 0;
}

void tst_KeySettings::readsTheKeyWidth()
{
    QFETCH(QByteArray, json);
    const QByteArray payload = R"({"settings":{"ActionGeometry":{"width":)" + json + "}}}";
    QTEST(parseKeySettings(object(payload.constData())).keyWidth, "width");
}

void tst_KeySettings::scalesTheFont_data()
{
    QTest::addColumn<int>("fontSize");
    QTest::addColumn<int>("keyWidth");
    QTest::addColumn<int>("imageWidth");
    QTest::addColumn<int>("pixels");
    QTest::newRow("doubled") << 20 << 144 << 72 << 40;
    QTest::newRow("halved") << 20 << 72 << 144 << 10;
    QTest::newRow("no picture yet") << 20 << 144 << 0 << 20;
    QTest::newRow("no picture, no width") << 20 << 0 << 0 << 20;
    QTest::newRow("no width") << 20 << 0 << 72 << 1;
    QTest::newRow("nothing") << 0 << 0 << 0 << 1;
    QTest::newRow("0.4 is held to 1") << 4 << 10 << 100 << 1;
    QTest::newRow("0.99 is held to 1") << 99 << 1 << 100 << 1;
    QTest::newRow("1.99 is truncated") << 199 << 1 << 100 << 1;
    QTest::newRow("37.9 is truncated") << 379 << 1 << 10 << 37;
    QTest::newRow("a third, exactly") << 30 << 1 << 3 << 10;
    QTest::newRow("599.9 is truncated") << 5999 << 1 << 10 << 599;
    QTest::newRow("600") << 600 << 0 << 0 << 600;
    QTest::newRow("900 is held to 600") << 450 << 144 << 72 << 600;
    QTest::newRow("negative size") << -20 << 144 << 72 << 1;
    QTest::newRow("negative width") << 20 << -144 << 72 << 1;
    QTest::newRow("both negative") << -20 << -144 << 72 << 40;
    QTest::newRow("largest") << INT_MAX << INT_MAX << 1 << 600;
    QTest::newRow("smallest") << INT_MIN << INT_MAX << 1 << 1;
    QTest::newRow("widest picture") << 600 << 144 << INT_MAX << 1;
}

void tst_KeySettings::scalesTheFont()
{
    QFETCH(int, fontSize);
    QFETCH(int, keyWidth);
    QFETCH(int, imageWidth);
    QTEST(fontPixelSize(fontSize, keyWidth, imageWidth), "pixels");
}

QTEST_APPLESS_MAIN(tst_KeySettings)
#include "tst_keysettings.moc"
