#include "render/GlyphShapes.h"
#include "render/normalAction.h"
#include "tests/support/KeyUuids.h"
#include "tests/support/MessageCapture.h"
#include "tests/support/Waits.h"

#include <QFontMetrics>
#include <QJsonDocument>
#include <QtTest>

#include <algorithm>

/// The state of one key: its initial values, and how settings and painting change it.
class tst_normalAction : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void startsWithDefaults();
    void takesOverEverySetting();
    void forgetsWhatThePayloadLacks_data();
    void forgetsWhatThePayloadLacks();
    void keepsWhatIsNotASetting();
    void logsTheFontSettings();
    void reportsThatNothingWasPainted();
    void firstSettingsTakeTheSizeAsGiven_data();
    void firstSettingsTakeTheSizeAsGiven();
    void laterSettingsScaleByTheLastPicture_data();
    void laterSettingsScaleByTheLastPicture();
    void feedsBackOverSettingsAndPaintings();
    void feedsBackOverTwoLines();
    void anEmptyPictureStartsTheSizeAnew();
    void settingsAloneDoNotFeedBack();
    void survivesAnyPayload_data();
    void survivesAnyPayload();
    void stopsItsTimer();
    void composesWithoutPainting();
    void composesTwoLinesWithoutPainting();
    void preparesWithoutATrace();
    void paintsAGauge();
    void paintsLettersInAnotherColor();
};

namespace {

QJsonObject object(const QByteArray &json)
{
    QJsonParseError error{};
    QJsonObject result = QJsonDocument::fromJson(json, &error).object();
    if (error.error != QJsonParseError::NoError)
        qFatal("%s: %s", json.constData(), qPrintable(error.errorString()));
    return result;
}

const char *const fullSet = R"({"settings":{
    "titleParameters":{"text":"网速/速度","showTitle":false,"fontFamily":"DejaVu Sans|Book",
        "fontSize":20,"color":"#12ab34","opacity":0.25,"temperatureType":"华氏度",
        "titleLines":"双行显示","diskMode":"Total_Disks","volumeNameItem":"2",
        "switchFrequency":7,"showVolumeName":false},
    "ActionGeometry":{"width":144,"height":96}}})";

/// A payload that only sets the font's size on a key \a width wide.
QJsonObject fontSize(int size, const QByteArray &width = "144")
{
    return object(R"({"settings":{"titleParameters":{"fontSize":)" + QByteArray::number(size) +
                  R"(},"ActionGeometry":{"width":)" + width + "}}}");
}

class Key : public normalAction
{
public:
    Key()
        : normalAction(nullptr, keyuuid::netWork, QStringLiteral("ctx"))
    {
    }
};

/// The size that follows from the last picture.
int expectedSize(const normalAction &key, int size, int width)
{
    const double ratio = static_cast<double>(width) / key.imageWidth;
    return static_cast<int>(std::min(600.0, std::max(1.0, ratio * size)));
}

} // namespace

void tst_normalAction::startsWithDefaults()
{
    const Key key;
    QCOMPARE(key.GetAction(), keyuuid::netWork);
    QCOMPARE(key.GetContext(), QStringLiteral("ctx"));
    QVERIFY(key.keyImage.isNull());
    QCOMPARE(key.textAlignment, 132);
    QCOMPARE(key.displayedText, QString());
    QCOMPARE(key.titleText, QStringLiteral("网速"));
    QCOMPARE(key.showTitle, true);
    QCOMPARE(key.fontSpec, QStringLiteral("Roboto|Bold"));
    QCOMPARE(key.color, QStringLiteral("#ffffff"));
    QCOMPARE(key.opacity, 0.0);
    QCOMPARE(key.temperatureType, QStringLiteral("摄氏度"));
    QCOMPARE(key.titleLines, QStringLiteral("单行显示"));
    QCOMPARE(key.imageWidth, 0);
    QCOMPARE(key.imageHeight, 0);
    QCOMPARE(key.diskMode, QStringLiteral("Single_Disk"));
    QCOMPARE(key.volumeNameItem, QStringLiteral("0"));
    QCOMPARE(key.showVolumeName, true);
    QCOMPARE(key.switchFrequency, 3);
    QCOMPARE(key.switchTimer.timerType(), Qt::PreciseTimer);
    QVERIFY(!key.switchTimer.isActive());
    QCOMPARE(key.SelectPhysicalDisk, QString());
    QCOMPARE(key.SelectValue, QString());
    QCOMPARE(key.SelectCPUFan, QString());
}

void tst_normalAction::takesOverEverySetting()
{
    Key key;
    key.applySettings(object(fullSet));
    QCOMPARE(key.titleText, QStringLiteral("网速/速度"));
    QCOMPARE(key.showTitle, false);
    QCOMPARE(key.fontSpec, QStringLiteral("DejaVu Sans|Book"));
    QCOMPARE(key.font.family(), QStringLiteral("DejaVu Sans"));
    QCOMPARE(key.font.styleName(), QStringLiteral("Book"));
    QCOMPARE(key.font.pixelSize(), 20);
    QCOMPARE(key.color, QStringLiteral("#12ab34"));
    QCOMPARE(key.opacity, 0.25);
    QCOMPARE(key.temperatureType, QStringLiteral("华氏度"));
    QCOMPARE(key.titleLines, QStringLiteral("双行显示"));
    QCOMPARE(key.diskMode, QStringLiteral("Total_Disks"));
    QCOMPARE(key.volumeNameItem, QStringLiteral("2"));
    QCOMPARE(key.switchFrequency, 7);
    QCOMPARE(key.showVolumeName, false);
}

void tst_normalAction::forgetsWhatThePayloadLacks_data()
{
    QTest::addColumn<QByteArray>("payload");
    QTest::newRow("nothing") << QByteArray("{}");
    QTest::newRow("no parameters") << QByteArray(R"({"settings":{}})");
    QTest::newRow("empty parameters") << QByteArray(R"({"settings":{"titleParameters":{}}})");
    QTest::newRow("wrong types") << QByteArray(R"({"settings":{"titleParameters":
        {"text":1,"showTitle":"true","fontFamily":[],"fontSize":"20","color":{},"opacity":"1",
         "temperatureType":null,"titleLines":true,"diskMode":0,"volumeNameItem":2,
         "switchFrequency":"3","showVolumeName":1}}})");
}

void tst_normalAction::forgetsWhatThePayloadLacks()
{
    QFETCH(QByteArray, payload);
    Key key;
    key.showTitle = true;
    key.applySettings(object(fullSet));
    key.applySettings(object(payload));
    QCOMPARE(key.titleText, QString());
    QCOMPARE(key.showTitle, false);
    QCOMPARE(key.fontSpec, QString());
    QCOMPARE(key.font.pixelSize(), 1);
    QCOMPARE(key.color, QString());
    QCOMPARE(key.opacity, 0.0);
    QCOMPARE(key.temperatureType, QString());
    QCOMPARE(key.titleLines, QString());
    QCOMPARE(key.diskMode, QString());
    QCOMPARE(key.volumeNameItem, QString());
    QCOMPARE(key.switchFrequency, 0);
    QCOMPARE(key.showVolumeName, false);
}

void tst_normalAction::keepsWhatIsNotASetting()
{
    Key key;
    key.normalPainting(QStringLiteral("text"));
    key.SelectPhysicalDisk = QStringLiteral("disk");
    key.SelectValue = QStringLiteral("value");
    key.SelectCPUFan = QStringLiteral("fan");
    const QImage image = key.keyImage;
    const QString text = key.displayedText;
    key.applySettings(object(R"({"settings":{"titleParameters":{"SelectPhysicalDisk":"a",
        "SelectValue":"b","SelectCPUFan":"c","textAlignment":1,"imageWidth":7}}})"));
    QCOMPARE(key.keyImage, image);
    QCOMPARE(key.imageWidth, image.width());
    QCOMPARE(key.imageHeight, image.height());
    QCOMPARE(key.displayedText, text);
    QCOMPARE(key.textAlignment, 132);
    QCOMPARE(key.SelectPhysicalDisk, QStringLiteral("disk"));
    QCOMPARE(key.SelectValue, QStringLiteral("value"));
    QCOMPARE(key.SelectCPUFan, QStringLiteral("fan"));
    QVERIFY(!key.switchTimer.isActive());
}

void tst_normalAction::logsTheFontSettings()
{
    Key key;
    key.font.setPixelSize(37);
    key.imageWidth = 72;
    const auto quoted = [](const char *text) {
        return MessageCapture::quoted(QString::fromUtf8(text));
    };
    const MessageCapture capture;
    key.applySettings(object(fullSet));
    QCOMPARE(MessageCapture::messages(),
             (QStringList{quoted("我拿到的字体: DejaVu Sans|Book"), quoted("我当前的字体大小: 37"),
                          quoted("我拿到的字体大小: 20")}));
    MessageCapture::clear();
    key.applySettings(fontSize(12345678));
    QVERIFY(MessageCapture::messages().contains(quoted("我拿到的字体大小: 1.23457e+07")));
    QCOMPARE(MessageCapture::messages().at(0), quoted("我拿到的字体: "));
    QCOMPARE(MessageCapture::messages().at(1), quoted("我当前的字体大小: 40"));
}

void tst_normalAction::reportsThatNothingWasPainted()
{
    const QString line = MessageCapture::quoted(QStringLiteral("发生错误，ActionW=0"));
    Key key;
    const MessageCapture capture;
    key.applySettings(fontSize(20));
    QCOMPARE(MessageCapture::count(line), 1);
    key.normalPainting(QStringLiteral("text"));
    key.applySettings(fontSize(20));
    QCOMPARE(MessageCapture::count(line), 1);
}

void tst_normalAction::firstSettingsTakeTheSizeAsGiven_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<QByteArray>("width");
    QTest::addColumn<int>("pixels");
    QTest::newRow("number") << 20 << QByteArray("144") << 20;
    QTest::newRow("text") << 20 << QByteArray(R"("144")") << 20;
    QTest::newRow("no number") << 20 << QByteArray(R"("abc")") << 20;
    QTest::newRow("largest") << 600 << QByteArray("144") << 600;
    QTest::newRow("too large") << 900 << QByteArray("144") << 600;
    QTest::newRow("none") << 0 << QByteArray("144") << 1;
    QTest::newRow("negative") << -20 << QByteArray("144") << 1;
}

void tst_normalAction::firstSettingsTakeTheSizeAsGiven()
{
    QFETCH(int, size);
    QFETCH(QByteArray, width);
    Key key;
    key.applySettings(fontSize(size, width));
    QTEST(key.font.pixelSize(), "pixels");
}

void tst_normalAction::laterSettingsScaleByTheLastPicture_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<QByteArray>("width");
    QTest::addColumn<int>("imageWidth");
    QTest::addColumn<int>("pixels");
    QTest::newRow("twice as wide") << 20 << QByteArray("144") << 72 << 40;
    QTest::newRow("width as text") << 20 << QByteArray(R"("144")") << 72 << 40;
    QTest::newRow("width no number") << 20 << QByteArray(R"("abc")") << 72 << 1;
    QTest::newRow("width an object") << 20 << QByteArray(R"({"width":144})") << 72 << 1;
    QTest::newRow("0.4") << 4 << QByteArray("10") << 100 << 1;
    QTest::newRow("900") << 450 << QByteArray("144") << 72 << 600;
    QTest::newRow("37.9") << 379 << QByteArray("1") << 10 << 37;
    QTest::newRow("huge width") << 20 << QByteArray("1e300") << 72 << 600;
}

void tst_normalAction::laterSettingsScaleByTheLastPicture()
{
    QFETCH(int, size);
    QFETCH(QByteArray, width);
    QFETCH(int, imageWidth);
    Key key;
    key.imageWidth = imageWidth;
    key.applySettings(fontSize(size, width));
    QTEST(key.font.pixelSize(), "pixels");
}

void tst_normalAction::feedsBackOverSettingsAndPaintings()
{
    Key key;
    key.applySettings(fontSize(20));
    QCOMPARE(key.font.pixelSize(), 20);
    const QStringList texts{
        QStringLiteral("7%"), QStringLiteral("100% of everything there is to show"),
        QStringLiteral("7%"), QStringLiteral("."), QStringLiteral("a longer text again")};
    int size = 20;
    for (const QString &text : texts) {
        key.normalPainting(text);
        QCOMPARE(key.imageWidth, QFontMetrics(key.font).horizontalAdvance(text));
        QVERIFY(key.imageWidth > 0);
        size += 30;
        const int expected = expectedSize(key, size, 144);
        key.applySettings(fontSize(size));
        QCOMPARE(key.font.pixelSize(), expected);
    }
}

void tst_normalAction::feedsBackOverTwoLines()
{
    Key key;
    key.showTitle = false;
    key.titleLines = QStringLiteral("双行显示");
    key.font.setPixelSize(20);
    key.paintingTwoLines(QStringLiteral("U"), QStringLiteral("a longer second line"));
    QCOMPARE(key.imageWidth,
             QFontMetrics(key.font).horizontalAdvance(QStringLiteral("a longer second line")));
    const int expected = expectedSize(key, 60, 288);
    key.applySettings(fontSize(60, "288"));
    QCOMPARE(key.font.pixelSize(), expected);
}

void tst_normalAction::anEmptyPictureStartsTheSizeAnew()
{
    Key key;
    key.applySettings(fontSize(20));
    key.normalPainting(QStringLiteral("some text"));
    key.applySettings(fontSize(20, "1440"));
    QVERIFY(key.font.pixelSize() != 20);
    const MessageCapture nullPicture;
    key.normalPainting(QString());
    key.applySettings(fontSize(20, "1440"));
    QCOMPARE(key.font.pixelSize(), 20);
}

void tst_normalAction::settingsAloneDoNotFeedBack()
{
    Key key;
    key.applySettings(fontSize(20));
    key.normalPainting(QStringLiteral("some text"));
    key.applySettings(fontSize(20));
    const int size = key.font.pixelSize();
    for (int i = 0; i < 3; ++i)
        key.applySettings(fontSize(20));
    QCOMPARE(key.font.pixelSize(), size);
}

void tst_normalAction::survivesAnyPayload_data()
{
    QTest::addColumn<QByteArray>("payload");
    const QByteArray longText(100000, 'x');
    const auto parameter = [](const QByteArray &name, const QByteArray &json) {
        return R"({"settings":{"titleParameters":{")" + name + R"(":)" + json + "}}}";
    };
    QTest::newRow("long title") << parameter("text", '"' + longText + '"');
    QTest::newRow("long font") << parameter("fontFamily", '"' + longText + '"');
    QTest::newRow("long style") << parameter("fontFamily", "\"a|" + longText + '"');
    QTest::newRow("long color") << parameter("color", '"' + longText + '"');
    QTest::newRow("zero characters") << parameter("text", R"("a\u0000b")");
    QTest::newRow("lone surrogate") << parameter("text", R"("\ud83e")");
    QTest::newRow("bars") << parameter("fontFamily", R"("||||")");
    QTest::newRow("largest numbers") << QByteArray(R"({"settings":{"titleParameters":
        {"fontSize":2147483647,"switchFrequency":2147483647,"opacity":1e308},
        "ActionGeometry":{"width":1e308,"height":1e308}}})");
    QTest::newRow("smallest numbers") << QByteArray(R"({"settings":{"titleParameters":
        {"fontSize":-2147483648,"switchFrequency":-2147483648,"opacity":-1e308},
        "ActionGeometry":{"width":-1e308,"height":"-1e308"}}})");
}

void tst_normalAction::survivesAnyPayload()
{
    QFETCH(QByteArray, payload);
    Key key;
    const MessageCapture capture;
    for (int i = 0; i < 3; ++i) {
        key.applySettings(object(payload));
        QVERIFY(key.font.pixelSize() >= 1 && key.font.pixelSize() <= 600);
        const QString url = key.normalPainting(QStringLiteral("45%"));
        QVERIFY(url.startsWith(QStringLiteral("data:image/png;base64,")));
    }
}

void tst_normalAction::stopsItsTimer()
{
    int timeouts = 0;
    {
        Key key;
        connect(&key.switchTimer, &QTimer::timeout, this, [&timeouts] { ++timeouts; });
        key.switchTimer.start(0);
        QTRY_VERIFY(timeouts > 0);
        timeouts = 0;
    }
    QCoreApplication::processEvents();
    QCOMPARE(timeouts, 0);
}

void tst_normalAction::composesWithoutPainting()
{
    normalAction key(nullptr, keyuuid::cpu, QStringLiteral("c"));
    key.titleText = QStringLiteral("CPU");
    const MessageCapture capture;
    key.composeLine(QStringLiteral("37%"));
    QCOMPARE(key.displayedText, QStringLiteral("CPU: 37%"));
    QCOMPARE(MessageCapture::messages(),
             QStringList{MessageCapture::quoted(QStringLiteral("textToDraw: 37%"))});
    QVERIFY(key.keyImage.isNull());
    QCOMPARE(key.imageWidth, 0);
}

void tst_normalAction::composesTwoLinesWithoutPainting()
{
    normalAction key(nullptr, keyuuid::netWork, QStringLiteral("c"));
    key.titleText = QStringLiteral("Net");
    QVERIFY(key.composeTwoLines(QStringLiteral("1"), QStringLiteral("2")).isEmpty());
    QCOMPARE(key.displayedText, QString());
    key.titleLines = QStringLiteral("双行显示");
    QCOMPARE(key.composeTwoLines(QStringLiteral("1"), QStringLiteral("2")),
             (QStringList{QStringLiteral("上传: 1"), QStringLiteral("下载: 2")}));
    QCOMPARE(key.displayedText, QStringLiteral("上传: 1\n下载: 2"));
    QVERIFY(key.keyImage.isNull());
}

void tst_normalAction::preparesWithoutATrace()
{
    constexpr int pixelSize = 37; // no other test's, so that no glyph is known
    normalAction key(nullptr, keyuuid::cpu, QStringLiteral("ctx"));
    key.font.setPixelSize(pixelSize);
    const GlyphShapes &glyphs = GlyphShapes::of(QRawFont::fromFont(key.font));
    QCOMPARE(glyphs.count(), std::size_t(0));
    const MessageCapture capture;
    key.prepareToPaint();
    QCOMPARE(MessageCapture::messages(), QStringList());
    QVERIFY(key.keyImage.isNull());
    QCOMPARE(key.imageWidth, 0);
    QCOMPARE(key.displayedText, QString());

    const std::size_t prepared = glyphs.count();
    QVERIFY(prepared > 0);
    const QString picture = key.normalPainting(QStringLiteral("%"));
    QVERIFY(glyphs.count() - prepared < prepared);
    normalAction other(nullptr, keyuuid::cpu, QStringLiteral("ctx"));
    other.font.setPixelSize(pixelSize);
    QCOMPARE(other.normalPainting(QStringLiteral("%")), picture);
}

void tst_normalAction::paintsAGauge()
{
    normalAction key(nullptr, keyuuid::cpu, QStringLiteral("c"));
    gauge::Look look;
    look.size = QSize(144, 72);
    look.color = Qt::white;
    look.normal = Qt::blue;
    gauge::Content content;
    content.first.value = QStringLiteral("37");
    content.first.share = 0.37;
    QVERIFY(key.gaugePainting(content, look).startsWith(QLatin1String("data:image/png;base64,")));
    QCOMPARE(key.keyImage, paintGauge(content, look));
    QCOMPARE(QSize(key.imageWidth, key.imageHeight), QSize(144, 72));
    QCOMPARE(key.displayedText, QString());
}

void tst_normalAction::paintsLettersInAnotherColor()
{
    normalAction key(nullptr, keyuuid::cpu, QStringLiteral("c"));
    key.font.setPixelSize(20);
    key.color = QStringLiteral("#ff0000");
    key.normalPainting(QStringLiteral("37%"));
    const QImage red = key.keyImage;
    key.color = QStringLiteral("#ffffff");
    key.letterColor = QStringLiteral("#ffff0000");
    key.normalPainting(QStringLiteral("37%"));
    QCOMPARE(key.keyImage, red);
    key.letterColor.clear();
    key.normalPainting(QStringLiteral("37%"));
    QVERIFY(key.keyImage != red);
}

QTEST_MAIN(tst_normalAction)
#include "tst_normalaction.moc"
