#include "render/ActionCatalogue.h"
#include "render/KeyPicture.h"
#include "render/ShapedLine.h"
#include "render/normalAction.h"
#include "tests/support/GoldenPicture.h"
#include "tests/support/KeyUuids.h"
#include "tests/support/MessageCapture.h"
#include "tests/support/TestFonts.h"

#include <QElapsedTimer>
#include <QFontMetrics>
#include <QtTest>

#include <ctime>

#include <algorithm>
#include <climits>
#include <cstdlib>

/// The pictures of keys, compared with the golden ones, and what cannot be painted.
class tst_KeyPainting : public QObject
{
    Q_OBJECT

public:
    static void initMain() { testfonts::hideMachineFonts(); }

private Q_SLOTS:
    void initTestCase();
    void paintsOneLine_data();
    void paintsOneLine();
    void paintsTwoLines_data();
    void paintsTwoLines();
    void opacityIsATransparency_data();
    void opacityIsATransparency();
    void standsTheShorterLineFlushLeft();
    void composesOneLine_data();
    void composesOneLine();
    void composesTwoLines_data();
    void composesTwoLines();
    void overwritesATitleWithoutSlash();
    void twoLinesAreForTheNetworkKeyAlone_data();
    void twoLinesAreForTheNetworkKeyAlone();
    void eachPaintingReplacesTheLast();
    void logsTheTextOfOneLineAlone();
    void emptyTextGivesNoPicture();
    void emptyLinesGiveNoPicture();
    void longTextsGiveNoPictureSoon_data();
    void longTextsGiveNoPictureSoon();
    void longLinesAreDrawnSoon_data();
    void longLinesAreDrawnSoon();
    void longSecondLineGivesNoPicture();
    void paintsNoPictureAboveItsLimits_data();
    void paintsNoPictureAboveItsLimits();
};

namespace {

const QString dataUrl = QStringLiteral("data:image/png;base64,");

/// A key that paints in a fixed font.
class Key : public normalAction
{
public:
    explicit Key(const QString &uuid = keyuuid::netWork)
        : normalAction(nullptr, uuid, QStringLiteral("ctx"))
    {
        font = QFont(QStringLiteral("Roboto"));
        font.setStyleName(QStringLiteral("Bold"));
        font.setPixelSize(24);
        // Otherwise each platform fits the letters to the pixels in its own way.
        font.setHintingPreference(QFont::PreferNoHinting);
        color = QStringLiteral("#2060c0");
        titleText.clear();
        titleLines = QStringLiteral("双行显示");
    }
};

QImage pictureOf(const QString &url)
{
    const QByteArray png = QByteArray::fromBase64(url.mid(dataUrl.size()).toLatin1());
    return QImage::fromData(png, "PNG").convertToFormat(QImage::Format_ARGB32);
}

void comparePicture(const normalAction &key, const QString &url, const QString &golden)
{
    QCOMPARE(key.keyImage.size(), QSize(key.imageWidth, key.imageHeight));
    QCOMPARE(key.keyImage.format(), QImage::Format_ARGB32);
    QCOMPARE(pictureOf(url), key.keyImage);
    QCOMPARE(GoldenPicture(golden).differenceFrom(key.keyImage), QString());
}

// The fonts of the golden pictures.
const QString latin = QStringLiteral("Roboto-Bold.ttf");
const QString chinese = QStringLiteral("wqy-microhei.ttc");

/// The fonts that are needed to paint \a text like its golden picture.
QStringList fontsFor(const QString &text)
{
    const bool isChinese = std::any_of(
        text.begin(), text.end(), [](QChar each) { return each.script() == QChar::Script_Han; });
    return isChinese ? QStringList{latin, chinese} : QStringList{latin};
}

const QString cannotConvert = QStringLiteral("Can't convert QImage to png");

} // namespace

void tst_KeyPainting::initTestCase()
{
    // The fonts that exist are enough for tests that do not compare letters.
    testfonts::missing({latin, chinese, QStringLiteral("DejaVuSans.ttf")});
}

void tst_KeyPainting::paintsOneLine_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("color");
    QTest::addColumn<double>("opacity");
    QTest::addColumn<QString>("golden");
    const auto row = [](const char *golden, const char *title, const char *text) -> QTestData & {
        return QTest::newRow(golden)
               << QString::fromUtf8(title) << QString::fromUtf8(text) << QStringLiteral("#2060c0")
               << 0.0 << QString::fromLatin1(golden);
    };
    row("one-line", "", "45°C");
    row("one-line-title", "CPU", "45°C");
    row("one-line-title-with-slash", "Up/Down", "1.2Kb/s");
    row("one-line-chinese", "CPU温度", "45°C");
    row("one-line-combining", "Cafe\u0301", "n\u0303o\u0308 q\u0303x\u0323\u0304");
    row("one-line-emoji", "Fox", "a\U0001F98Ab");

    const auto look = [](const char *name, const char *color, double opacity, const char *golden) {
        QTest::newRow(name) << QStringLiteral("CPU") << QStringLiteral("45°C")
                            << QString::fromUtf8(color) << opacity << QString::fromLatin1(golden);
    };
    look("color name", "crimson", 0.0, "one-line-color-name");
    look("color with alpha", "#802060c0", 0.0, "one-line-color-alpha");
    look("invalid color", "no colour", 0.0, "one-line-color-invalid");
    look("empty color", "", 0.0, "one-line-color-invalid");
    look("opacity 0.25", "#2060c0", 0.25, "one-line-opacity-quarter");
    look("opacity 1", "#2060c0", 1.0, "one-line-opacity-whole");
    look("opacity above 1", "#2060c0", 1e300, "one-line-opacity-whole");
    look("negative opacity", "#2060c0", -1e300, "one-line-title");
}

void tst_KeyPainting::paintsOneLine()
{
    QFETCH(QString, title);
    QFETCH(QString, text);
    QFETCH(QString, color);
    QFETCH(double, opacity);
    QFETCH(QString, golden);
    REQUIRE_FONTS(fontsFor(title + text));
    Key key;
    key.titleText = title;
    key.color = color;
    key.opacity = opacity;
    const QString url = key.normalPainting(text);
    const QFontMetrics metrics(key.font);
    QCOMPARE(key.imageWidth, metrics.horizontalAdvance(key.displayedText));
    QCOMPARE(key.imageHeight, metrics.height());
    comparePicture(key, url, golden);
}

void tst_KeyPainting::paintsTwoLines_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("upload");
    QTest::addColumn<QString>("download");
    const auto row = [](const char *golden, const char *title, const char *upload,
                        const char *download) {
        QTest::newRow(golden) << QString::fromUtf8(title) << QString::fromUtf8(upload)
                              << QString::fromUtf8(download);
    };
    row("two-lines", "", "1.2Kb/s", "1023.9MB/s");
    row("two-lines-longer-first", "", "1023.9MB/s", "0.0Kb/s");
    row("two-lines-title-with-slash", "Up/Down", "1.2Kb/s", "3.0MB/s");
    row("two-lines-title-without-slash", "网速", "1.2Kb/s", "1023.9MB/s");
    row("two-lines-slash-alone", "/", "1.2Kb/s", "3.0MB/s");
    row("two-lines-one-empty", "", "", "3.0MB/s");
}

void tst_KeyPainting::paintsTwoLines()
{
    QFETCH(QString, title);
    QFETCH(QString, upload);
    QFETCH(QString, download);
    REQUIRE_FONTS(fontsFor(title + upload + download));
    Key key;
    key.titleText = title;
    const QString url = key.paintingTwoLines(upload, download);
    const QFontMetrics metrics(key.font);
    const QStringList lines = key.displayedText.split(QLatin1Char('\n'));
    QCOMPARE(key.imageWidth, std::max(metrics.horizontalAdvance(lines.at(0)),
                                      metrics.horizontalAdvance(lines.at(1))));
    QCOMPARE(key.imageHeight, 2 * metrics.height());
    comparePicture(key, url, QString::fromLatin1(QTest::currentDataTag()));
}

void tst_KeyPainting::opacityIsATransparency_data()
{
    QTest::addColumn<double>("opacity");
    QTest::addColumn<int>("alpha");
    QTest::newRow("0") << 0.0 << 255;
    QTest::newRow("0.25") << 0.25 << 191;
    QTest::newRow("0.5") << 0.5 << 127;
    QTest::newRow("1") << 1.0 << 0;
    QTest::newRow("2") << 2.0 << 0;
    QTest::newRow("-1") << -1.0 << 255;
}

void tst_KeyPainting::opacityIsATransparency()
{
    REQUIRE_FONTS({latin});
    QFETCH(double, opacity);
    QFETCH(int, alpha);
    Key key;
    key.font.setPixelSize(60);
    key.opacity = opacity;
    key.normalPainting(QStringLiteral("H"));
    int strongest = 0;
    for (int x = 0; x < key.imageWidth; ++x)
        strongest = std::max(strongest, qAlpha(key.keyImage.pixel(x, key.imageHeight / 2)));
    QVERIFY2(std::abs(strongest - alpha) <= 1, qPrintable(QString::number(strongest)));
    QCOMPARE(qAlpha(key.keyImage.pixel(0, 0)), 0);
}

void tst_KeyPainting::standsTheShorterLineFlushLeft()
{
    REQUIRE_FONTS({latin});
    Key key;
    key.paintingTwoLines(QStringLiteral("H"), QStringLiteral("HHHHHHHH"));
    const int lineHeight = key.imageHeight / 2;
    const QImage alone = pictureOf(Key().normalPainting(QStringLiteral("H")));
    QVERIFY(alone.width() * 4 < key.imageWidth);
    QCOMPARE(key.keyImage.copy(0, 0, alone.width(), lineHeight), alone);
    QImage empty(key.imageWidth - alone.width(), lineHeight, QImage::Format_ARGB32);
    empty.fill(Qt::transparent);
    QCOMPARE(key.keyImage.copy(alone.width(), 0, empty.width(), lineHeight), empty);
}

void tst_KeyPainting::composesOneLine_data()
{
    QTest::addColumn<bool>("showTitle");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("line");
    const auto row = [](bool showTitle, const char *title, const char *text, const char *line) {
        QTest::newRow(line) << showTitle << QString::fromUtf8(title) << QString::fromUtf8(text)
                            << QString::fromUtf8(line);
    };
    row(true, "CPU", "45°C", "CPU: 45°C");
    row(true, "", "46°C", "46°C");
    row(false, "CPU", "47°C", "47°C");
    row(true, " ", "48°C", " : 48°C");
    row(true, "Up/Down", "1", "Up/Down: 1");
    row(true, "CPU", "", "CPU: ");
    row(true, "a%1b", "%2", "a%1b: %2");
}

void tst_KeyPainting::composesOneLine()
{
    QFETCH(bool, showTitle);
    QFETCH(QString, title);
    QFETCH(QString, text);
    Key key;
    key.showTitle = showTitle;
    key.titleText = title;
    key.normalPainting(text);
    QTEST(key.displayedText, "line");
    QCOMPARE(key.titleText, title);
}

void tst_KeyPainting::composesTwoLines_data()
{
    QTest::addColumn<bool>("showTitle");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("lines");
    QTest::addColumn<QString>("titleAfter");
    const auto row = [](bool showTitle, const char *title, const char *lines,
                        const char *titleAfter) {
        QTest::newRow(lines) << showTitle << QString::fromUtf8(title) << QString::fromUtf8(lines)
                             << QString::fromUtf8(titleAfter);
    };
    row(true, "Up/Down", "Up: U\nDown: D", "Up/Down");
    row(true, "/", ": U\n: D", "/");
    row(true, "a/", "a: U\n: D", "a/");
    row(true, "/b", ": U\nb: D", "/b");
    row(true, "a/b/c", "a: U\nb/c: D", "a/b/c");
    row(true, "网速", "上传: U\n下载: D", "上传/下载");
    row(true, "a／b", "上传: U\n下载: D", "上传/下载");
    row(true, "", "U\nD", "");
    row(false, "网速", "U\nD", "网速");
    row(false, "Up/Down", "U\nD", "Up/Down");
}

void tst_KeyPainting::composesTwoLines()
{
    QFETCH(bool, showTitle);
    QFETCH(QString, title);
    Key key;
    key.showTitle = showTitle;
    key.titleText = title;
    QVERIFY(key.paintingTwoLines(QStringLiteral("U"), QStringLiteral("D")).startsWith(dataUrl));
    QTEST(key.displayedText, "lines");
    QTEST(key.titleText, "titleAfter");
}

void tst_KeyPainting::overwritesATitleWithoutSlash()
{
    Key key;
    key.titleText = QStringLiteral("网速");
    key.paintingTwoLines(QStringLiteral("U"), QStringLiteral("D"));
    key.normalPainting(QStringLiteral("text"));
    QCOMPARE(key.displayedText, QStringLiteral("上传/下载: text"));

    key.applySettings({{QStringLiteral("settings"),
                        QJsonObject{{QStringLiteral("titleParameters"),
                                     QJsonObject{{QStringLiteral("text"), QStringLiteral("网速")},
                                                 {QStringLiteral("showTitle"), true}}}}}});
    key.normalPainting(QStringLiteral("text"));
    QCOMPARE(key.displayedText, QStringLiteral("网速: text"));
}

void tst_KeyPainting::twoLinesAreForTheNetworkKeyAlone_data()
{
    QTest::addColumn<QString>("uuid");
    QTest::addColumn<QString>("titleLines");
    const QString two = QStringLiteral("双行显示");
    for (const ActionCatalogueRow &row : actionCatalogue()) {
        if (row.uuid != keyuuid::netWork)
            QTest::newRow(qPrintable(row.uuid)) << row.uuid << two;
    }
    QTest::newRow("letter case") << keyuuid::prefix + QStringLiteral("system.network") << two;
    QTest::newRow("one line") << keyuuid::netWork << QStringLiteral("单行显示");
    QTest::newRow("no setting") << keyuuid::netWork << QString();
    QTest::newRow("blank") << keyuuid::netWork << two + QLatin1Char(' ');
}

void tst_KeyPainting::twoLinesAreForTheNetworkKeyAlone()
{
    QFETCH(QString, uuid);
    QFETCH(QString, titleLines);
    Key key(uuid);
    key.titleText = QStringLiteral("title");
    key.titleLines = titleLines;
    key.normalPainting(QStringLiteral("text"));
    const QImage image = key.keyImage;
    const MessageCapture capture;
    const QString url = key.paintingTwoLines(QStringLiteral("U"), QStringLiteral("D"));
    QVERIFY(url.isNull());
    QCOMPARE(key.displayedText, QStringLiteral("title: text"));
    QCOMPARE(key.titleText, QStringLiteral("title"));
    QCOMPARE(key.keyImage, image);
    QCOMPARE(QSize(key.imageWidth, key.imageHeight), image.size());
    QCOMPARE(MessageCapture::messages(), QStringList());
}

void tst_KeyPainting::eachPaintingReplacesTheLast()
{
    Key key;
    const QString first = key.normalPainting(QStringLiteral("37%"));
    const int firstWidth = key.imageWidth;
    const QString longer = key.normalPainting(QStringLiteral("100% of it"));
    QVERIFY(key.imageWidth > firstWidth);
    QVERIFY(longer != first);
    QCOMPARE(key.normalPainting(QStringLiteral("37%")), first);
    QCOMPARE(key.imageWidth, firstWidth);
    QCOMPARE(key.keyImage, pictureOf(first));
}

void tst_KeyPainting::logsTheTextOfOneLineAlone()
{
    Key key;
    key.titleText = QStringLiteral("title/title");
    const MessageCapture capture;
    key.normalPainting(QStringLiteral("45°C"));
    const QString line = MessageCapture::quoted(QStringLiteral("textToDraw: 45°C"));
    QCOMPARE(MessageCapture::messages(), QStringList{line});
    key.paintingTwoLines(QStringLiteral("U"), QStringLiteral("D"));
    QCOMPARE(MessageCapture::messages(), QStringList{line});
}

void tst_KeyPainting::emptyTextGivesNoPicture()
{
    Key key;
    key.normalPainting(QStringLiteral("text"));
    const MessageCapture capture;
    QCOMPARE(key.normalPainting(QString()), dataUrl);
    QCOMPARE(MessageCapture::criticalMessages(),
             QStringList{QStringLiteral("normalAction::normalPainting ") + cannotConvert});
    QVERIFY(key.keyImage.isNull());
    QCOMPARE(key.displayedText, QString());
    QCOMPARE(key.imageWidth, 0);
    QCOMPARE(key.imageHeight, QFontMetrics(key.font).height());
}

void tst_KeyPainting::emptyLinesGiveNoPicture()
{
    Key key;
    const MessageCapture capture;
    QCOMPARE(key.paintingTwoLines(QString(), QString()), dataUrl);
    QCOMPARE(MessageCapture::criticalMessages(),
             QStringList{QStringLiteral("normalAction::paintingTwoLines ") + cannotConvert});
    QVERIFY(key.keyImage.isNull());
    QCOMPARE(key.displayedText, QStringLiteral("\n"));
    QCOMPARE(key.imageWidth, 0);
}

void tst_KeyPainting::longTextsGiveNoPictureSoon_data()
{
    QTest::addColumn<int>("pixelSize");
    QTest::addColumn<QString>("text");
    const QString letters(100000, QLatin1Char('W'));
    const QString marks = QLatin1Char('e') + QString(99999, QChar(0x301));
    const QString circles = QLatin1Char('e') + QString(99999, QChar(0x20dd));
    const QString noWidth(100000, QChar(0x200b));
    const QString lineFeeds(100000, QLatin1Char('\n'));
    for (const int pixelSize : {1, 24, 600}) {
        const auto row = [pixelSize](const char *name, const QString &text) {
            QTest::addRow("%s, %d px", name, pixelSize) << pixelSize << text;
        };
        row("letters", letters);
        row("marks", marks);
        row("circles", circles);
        row("characters without width", noWidth);
        row("line feeds", lineFeeds);
    }
    QTest::newRow("10 million letters, 600 px") << 600 << QString(10000000, QLatin1Char('W'));
    QTest::newRow("side, 24 px") << 24 << QString(4000, QLatin1Char('W'));
    QTest::newRow("side, 600 px") << 600 << QString(70, QLatin1Char('W'));
}

void tst_KeyPainting::longTextsGiveNoPictureSoon()
{
    QFETCH(int, pixelSize);
    QFETCH(QString, text);
    Key key;
    key.font.setPixelSize(pixelSize);
    const MessageCapture capture;
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(key.normalPainting(text), dataUrl);
    QVERIFY2(timer.elapsed() < 5000, qPrintable(QString::number(timer.elapsed())));
    QCOMPARE(MessageCapture::criticalMessages(),
             QStringList{QStringLiteral("normalAction::normalPainting ") + cannotConvert});
    QVERIFY(key.keyImage.isNull());
    QCOMPARE(key.displayedText, text);
    QVERIFY(key.imageWidth >= 0);
}

void tst_KeyPainting::longLinesAreDrawnSoon_data()
{
    QTest::addColumn<int>("pixelSize");
    QTest::addColumn<QString>("text");
    QTest::newRow("outlines of Chinese letters") << 66 << QString(480, QChar(0x9F98));
    QTest::newRow("outlines of Latin letters") << 80 << QString(480, QLatin1Char('R'));
    QTest::newRow("large letters") << 220 << QString(140, QLatin1Char('R'));
}

void tst_KeyPainting::longLinesAreDrawnSoon()
{
    QFETCH(int, pixelSize);
    QFETCH(QString, text);
    Key key;
    key.font.setPixelSize(pixelSize);
    const MessageCapture capture;
    const std::clock_t before = std::clock();
    QVERIFY(key.normalPainting(text).size() > dataUrl.size());
    // Processor time. Without strips these pictures take 2.4 to 5.3 seconds.
    const double seconds = static_cast<double>(std::clock() - before) / CLOCKS_PER_SEC;
    QVERIFY2(seconds < 1.5, qPrintable(QString::number(seconds)));
}

void tst_KeyPainting::longSecondLineGivesNoPicture()
{
    Key key;
    const MessageCapture capture;
    const QString text(100000, QLatin1Char('x'));
    QCOMPARE(key.paintingTwoLines(QStringLiteral("U"), text), dataUrl);
    QCOMPARE(MessageCapture::criticalMessages(),
             QStringList{QStringLiteral("normalAction::paintingTwoLines ") + cannotConvert});
    QVERIFY(key.keyImage.isNull());
}

void tst_KeyPainting::paintsNoPictureAboveItsLimits_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("length");
    QTest::addColumn<bool>("painted");
    QTest::newRow("one pixel") << QSize(1, 1) << 1 << true;
    QTest::newRow("longest side") << QSize(32767, 2) << 1 << true;
    QTest::newRow("too wide") << QSize(32768, 2) << 1 << false;
    QTest::newRow("too high") << QSize(2, 32768) << 1 << false;
    QTest::newRow("largest area") << QSize(16384, 1600) << 1 << true;
    QTest::newRow("too large") << QSize(16384, 1601) << 1 << false;
    QTest::newRow("largest int") << QSize(INT_MAX, INT_MAX) << 1 << false;
    QTest::newRow("no width") << QSize(0, 24) << 1 << false;
    QTest::newRow("negative") << QSize(-10, -10) << 1 << false;
    QTest::newRow("longest text") << QSize(100, 24) << longestText << true;
    QTest::newRow("text too long") << QSize(100, 24) << longestText + 1 << false;
}

void tst_KeyPainting::paintsNoPictureAboveItsLimits()
{
    QFETCH(QSize, size);
    QFETCH(int, length);
    QFETCH(bool, painted);
    const ShapedLine line(QString(length, QLatin1Char('x')), Key().font);
    const QImage picture =
        paintPicture(size, {{QRect(QPoint(0, 0), size), &line}},
                     {Key().font, QStringLiteral("#ffffff"), 1.0, Qt::AlignCenter})
            .image;
    QCOMPARE(picture.isNull(), !painted);
    QCOMPARE(picture.size(), painted ? size : QSize(0, 0));
}

QTEST_MAIN(tst_KeyPainting)
#include "tst_keypainting.moc"
