#include "render/ActionUuids.h"
#include "render/KeyPicture.h"
#include "render/PngEncoder.h"
#include "render/ShapedLine.h"
#include "render/normalAction.h"
#include "tests/support/KeyUuids.h"
#include "tests/support/MessageCapture.h"
#include "tests/support/Sanitizers.h"
#include "tests/support/TestFonts.h"

#include <QBuffer>
#include <QFile>
#include <QFontMetrics>
#include <QPainter>
#include <QRegularExpression>
#include <QtTest>

#include <ctime>

#include <algorithm>

/// Pictures of many pixels: what they show, and what they cost.
class tst_WidePictures : public QObject
{
    Q_OBJECT

public:
    static void initMain() { testfonts::hideMachineFonts(); }

private Q_SLOTS:
    void areWhatThePainterDraws_data();
    void areWhatThePainterDraws();
    void ordinaryTextsAtLegalSizes_data();
    void ordinaryTextsAtLegalSizes();
    void costOfTheLargest_data();
    void costOfTheLargest();
};

namespace {

struct Family
{
    const char *name;
    const char *file;
};

const Family families[] = {
    {"Roboto", "Roboto-Bold.ttf"},
    {"DejaVu Sans", "DejaVuSans.ttf"},
    {"WenQuanYi Micro Hei", "wqy-microhei.ttc"},
};

const QString dataUrl = QStringLiteral("data:image/png;base64,");
const QString cpuModel = QStringLiteral("CPU model: AMD Ryzen 9 7950X 16-Core Processor");
const QString gpuModel =
    QStringLiteral("GPU model: NVIDIA Corporation AD102 [GeForce RTX 4090 Laptop GPU]");

QFont fontOf(const char *family, int pixelSize, bool italic)
{
    QFont font(QString::fromLatin1(family));
    font.setPixelSize(pixelSize);
    font.setBold(true);
    font.setItalic(italic);
    return font;
}

/// \a lines below each other, each in a rectangle of its own width.
QVector<QRect> rectsOf(const QStringList &lines, const QFont &font)
{
    const QFontMetrics metrics(font);
    QVector<QRect> rects;
    for (const QString &line : lines)
        rects.append({0, static_cast<int>(rects.size()) * metrics.height(),
                      metrics.horizontalAdvance(line), metrics.height()});
    return rects;
}

QSize sizeOf(const QVector<QRect> &rects)
{
    QRect all;
    for (const QRect &rect : rects)
        all |= rect;
    return all.size();
}

/// As drawn by one call of QPainter::drawText for each line.
QImage plainPicture(const QStringList &lines, const QVector<QRect> &rects,
                    const PictureStyle &style)
{
    QImage picture(sizeOf(rects), QImage::Format_ARGB32);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setFont(style.font);
    painter.setPen(QColor(style.color));
    painter.setOpacity(style.opacity);
    for (int i = 0; i < lines.size(); ++i)
        painter.drawText(rects.at(i), style.alignment, lines.at(i));
    return picture;
}

QImage shapedPicture(const QStringList &lines, const QVector<QRect> &rects,
                     const PictureStyle &style)
{
    QVector<PictureLine> shaped;
    for (int i = 0; i < lines.size(); ++i)
        shaped.append({rects.at(i), new ShapedLine(lines.at(i), style.font)});
    const QImage picture = paintPicture(sizeOf(rects), shaped, style).image;
    for (const PictureLine &each : qAsConst(shaped))
        delete each.line;
    return picture;
}

/// The columns in which two pictures of one size differ; empty when they are the same.
QString differentColumns(const QImage &first, const QImage &second)
{
    int least = first.width();
    int most = -1;
    for (int y = 0; y < first.height(); ++y) {
        for (int x = 0; x < first.width(); ++x) {
            if (first.pixel(x, y) != second.pixel(x, y)) {
                least = std::min(least, x);
                most = std::max(most, x);
            }
        }
    }
    return most < 0 ? QString() : QStringLiteral("%1 to %2").arg(least).arg(most);
}

/// Whether Qt's own encoder, which takes several times as long, replaces a missing library.
bool hasSlowEncoder()
{
    QImage image(8, 8, QImage::Format_ARGB32);
    image.fill(Qt::white);
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    return image.save(&buffer, "png") && encodedPng(image) == png;
}

double processorSeconds(std::clock_t since)
{
    return static_cast<double>(std::clock() - since) / CLOCKS_PER_SEC;
}

/// Resets mostResident(); false where the system cannot.
bool resetMostResident()
{
    QFile file(QStringLiteral("/proc/self/clear_refs"));
    return file.open(QIODevice::WriteOnly) && file.write("5") == 1;
}

/// The maximum memory of this process, in MiB.
int mostResident()
{
    QFile file(QStringLiteral("/proc/self/status"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    const QRegularExpression peak(QStringLiteral("VmHWM:\\s+(\\d+) kB"));
    return peak.match(QString::fromLatin1(file.readAll())).captured(1).toInt() / 1024;
}

class Key : public normalAction
{
public:
    explicit Key(const QFont &keyFont)
        : normalAction(nullptr, keyuuid::netWork, QStringLiteral("ctx"))
    {
        font = keyFont;
        titleText.clear();
        titleLines = QStringLiteral("双行显示");
    }
};

} // namespace

void tst_WidePictures::areWhatThePainterDraws_data()
{
    QTest::addColumn<QFont>("font");
    QTest::addColumn<QString>("file");
    for (const auto &[family, file] : families) {
        // Letters of up to 64 pixels are drawn as pictures, larger ones as outlines.
        for (const int pixelSize : {48, 66, 210, 270, 600}) {
            for (const bool italic : {false, true})
                QTest::addRow("%s, %d px%s", family, pixelSize, italic ? ", italic" : "")
                    << fontOf(family, pixelSize, italic) << QString::fromLatin1(file);
        }
    }
}

void tst_WidePictures::areWhatThePainterDraws()
{
    QFETCH(QFont, font);
    QFETCH(QString, file);
    REQUIRE_FONTS({file, QStringLiteral("wqy-microhei.ttc")});
    const QStringList texts[] = {
        {QStringLiteral("CPU使用率: 45°")},
        {QStringLiteral("日本語のテキストCPU ドライブ温度: 45°C")},
        {QStringLiteral("fjfj用CPU用f用/jWA VA\u0303 q\u0323")},
        {QStringLiteral("معالج ٣٧ מעבד: 37%")},
        {cpuModel + u' ' + cpuModel},
        {QStringLiteral("上传: 1023.9MB/s"), QStringLiteral("下载网速: 0.0Kb/s")},
    };
    int wide = 0;
    for (const QStringList &lines : texts) {
        const QVector<QRect> rects = rectsOf(lines, font);
        const PictureStyle style{font, QStringLiteral("#2060c0"), 0.8, Qt::AlignCenter};
        // The first drawing of a letter that is not yet cached may differ from all others.
        if (font.pixelSize() <= 64)
            plainPicture(lines, rects, style);
        const QImage plain = plainPicture(lines, rects, style);
        const QImage picture = shapedPicture(lines, rects, style);
        QCOMPARE(picture.size(), plain.size());
        wide += picture.width() > 2 * 512 ? 1 : 0;
        QVERIFY2(picture == plain,
                 qPrintable(lines.join(u' ') + u' ' + differentColumns(picture, plain)));
    }
    QVERIFY(wide > 0);
}

void tst_WidePictures::ordinaryTextsAtLegalSizes_data()
{
    QTest::addColumn<QString>("family");
    QTest::addColumn<QString>("file");
    for (const auto &[family, file] : families)
        QTest::newRow(family) << QString::fromLatin1(family) << QString::fromLatin1(file);
}

void tst_WidePictures::ordinaryTextsAtLegalSizes()
{
    QFETCH(QString, family);
    QFETCH(QString, file);
    REQUIRE_FONTS({file});
    for (const int pixelSize : {515, 552, 600}) {
        Key key(fontOf(qPrintable(family), pixelSize, true));
        const MessageCapture capture;
        for (const QString &text : {cpuModel, gpuModel}) {
            QVERIFY(key.normalPainting(text).size() > dataUrl.size());
            QVERIFY(!key.keyImage.isNull());
        }
        key.titleText = QStringLiteral("Upload speed/Download speed");
        const QString url =
            key.paintingTwoLines(QStringLiteral("1023.9MB/s"), QStringLiteral("1023.9MB/s"));
        const QImage picture =
            QImage::fromData(QByteArray::fromBase64(url.mid(dataUrl.size()).toLatin1()), "PNG");
        QCOMPARE(picture.size(), QSize(key.imageWidth, key.imageHeight));
        QCOMPARE(picture.convertToFormat(QImage::Format_ARGB32), key.keyImage);
        QCOMPARE(MessageCapture::criticalMessages(), QStringList());
    }
}

void tst_WidePictures::costOfTheLargest_data()
{
    QTest::addColumn<int>("pixelSize");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("onTwoLines");
    const QChar manyStrokes(0x9f98);
    QTest::newRow("widest of large letters") << 600 << QString(84, QLatin1Char('R')) << false;
    QTest::newRow("widest of Chinese letters") << 600 << QString(54, manyStrokes) << false;
    QTest::newRow("widest outlines, two lines") << 66 << QString(490, manyStrokes) << true;
    QTest::newRow("largest, two lines") << 600 << QString(27, manyStrokes) << true;
    QTest::newRow("most letters") << 8 << QString(longestText, QLatin1Char('R')) << true;
}

void tst_WidePictures::costOfTheLargest()
{
    QFETCH(int, pixelSize);
    QFETCH(QString, text);
    QFETCH(bool, onTwoLines);
    REQUIRE_FONTS({QStringLiteral("Roboto-Bold.ttf"), QStringLiteral("wqy-microhei.ttc")});
    Key key(fontOf("Roboto", pixelSize, false));
    const bool countsMemory = !isSanitized && resetMostResident();
    const int memoryBefore = mostResident();
    const std::clock_t before = std::clock();
    const QString url = onTwoLines ? key.paintingTwoLines(text, text) : key.normalPainting(text);
    const double seconds = processorSeconds(before);
    const int memory = mostResident() - memoryBefore;
    QVERIFY(url.size() > dataUrl.size());
    qInfo("%d x %d: %.2f s, %d MiB, %d kB", key.imageWidth, key.imageHeight, seconds, memory,
          static_cast<int>(url.size() / 1024));
    QVERIFY2(seconds < (hasSlowEncoder() ? 15 : 3), qPrintable(QString::number(seconds)));
    QVERIFY2(!countsMemory || memory < 200, qPrintable(QString::number(memory)));
}

QTEST_MAIN(tst_WidePictures)
#include "tst_widepictures.moc"
