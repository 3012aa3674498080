#include "render/KeyPicture.h"
#include "render/PngEncoder.h"
#include "render/ShapedLine.h"
#include "tests/support/TestFonts.h"

#include <QBuffer>
#include <QFontDatabase>
#include <QFontMetrics>
#include <QRandomGenerator>
#include <QtTest>

#include <algorithm>
#include <ctime>

/// Pictures of keys and of noise, each compared with what Qt's own encoder makes of it.
class tst_PngEncoder : public QObject
{
    Q_OBJECT

public:
    static void initMain() { testfonts::hideMachineFonts(); }

private Q_SLOTS:
    void initTestCase();
    void keyPictures_data();
    void keyPictures();
    void numbersThatPaintingTells();
    void isSmallerThanQts_data();
    void isSmallerThanQts();
    void sizesOfNoise_data();
    void sizesOfNoise();
    void coloursOfNoise_data();
    void coloursOfNoise();
    void nothingForOtherFormats_data();
    void nothingForOtherFormats();
    void largestKeyPicture();
    void partOfAPicture();
    void transparentPixelsKeepTheirColours();
    void onePictureLeavesNothingInTheNext();
    void colorTypeFollowsTheColours_data();
    void colorTypeFollowsTheColours();
    void nothingForANullImage();
};

namespace {

QByteArray qtPng(const QImage &image)
{
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "png");
    return png;
}

QImage decoded(const QByteArray &png)
{
    return QImage::fromData(png, "PNG").convertToFormat(QImage::Format_ARGB32);
}

/// How the encoded \a image differs from Qt's; empty when it does not.
QString difference(const QImage &image)
{
    const QImage own = decoded(encodedPng(image));
    if (own.isNull())
        return QStringLiteral("cannot be read");
    if (own != decoded(qtPng(image)))
        return QStringLiteral("differs from Qt's own");
    return own == image ? QString() : QStringLiteral("differs");
}

/// The same for the pixels that painting has told, if any, and for those that the encoder finds.
QString difference(const PaintedPicture &picture)
{
    if (decoded(encodedPng(picture.image, picture.pixels)) != picture.image)
        return QStringLiteral("differs by its pixels");
    return difference(picture.image);
}

/// A picture whose pixels are \a colours random ones, each of which occurs if there is room.
QImage noise(const QSize &size, int colours, quint32 opaque = 0)
{
    QRandomGenerator random(static_cast<quint32>(size.width() * 31 + size.height() * 7 + colours));
    QVector<QRgb> palette;
    while (palette.size() < colours) {
        const QRgb colour = random.generate() | opaque;
        if (!palette.contains(colour))
            palette.append(colour);
    }
    QImage image(size, QImage::Format_ARGB32);
    int count = 0;
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            image.setPixel(x, y, palette.at(count < colours ? count : random.bounded(colours)));
            ++count;
        }
    }
    return image;
}

/// Whether Qt's own encoder replaces a missing library.
bool isQtsOwn()
{
    const QImage image = noise({8, 8}, 3);
    return encodedPng(image) == qtPng(image);
}

/// The byte of a PNG that contains its colour type.
int colorType(const QByteArray &png)
{
    return png.at(25);
}

struct Script
{
    const char *name;
    const char *text;
};

const Script scripts[] = {
    {"Latin", "CPU usage rate: 37%"},
    {"digits", "1023.9MB/s  0.0Kb/s"},
    {"degree", "45°"},
    {"Chinese", "CPU封装功率: 65.0W"},
    {"Greek and Cyrillic", "Ωμέγα Жук"},
    {"Hebrew", "מעבד: 37%"},
    {"Arabic", "معالج ٣٧"},
    {"combining", "n\u0303o\u0308q\u0323\u0304\u0301e\u20dd"},
    {"overlapping", "ffjjVAVAWA//\u0338\u0338\u0338"},
    {"no glyph", "\U0001F98A\ue000"},
    {"blank", "   "},
};

} // namespace

void tst_PngEncoder::initTestCase()
{
    for (const char *file : {"Roboto-Bold.ttf", "DejaVuSans.ttf", "wqy-microhei.ttc"}) {
        if (!testfonts::registerFile(QString::fromLatin1(file)))
            qWarning("%s is not installed; other fonts stand in for it", file);
    }
}

void tst_PngEncoder::keyPictures_data()
{
    QTest::addColumn<QString>("family");
    QTest::addColumn<int>("pixelSize");
    for (const char *family : {"Roboto", "DejaVu Sans", "WenQuanYi Micro Hei"}) {
        for (const int pixelSize : {1, 5, 9, 12, 16, 20, 24, 31, 40})
            QTest::newRow(
                qPrintable(QStringLiteral("%1, %2 px").arg(QLatin1String(family)).arg(pixelSize)))
                << QString::fromLatin1(family) << pixelSize;
    }
}

/// Each row encodes all scripts in all colours and opacities, on one line and on two.
void tst_PngEncoder::keyPictures()
{
    QFETCH(QString, family);
    QFETCH(int, pixelSize);
    QFont font(family);
    font.setPixelSize(pixelSize);
    // Letters fitted to so few pixels may have no width.
    font.setHintingPreference(QFont::PreferNoHinting);
    const QFontMetrics metrics(font);
    for (const auto &[script, utf8] : scripts) {
        const QString text = QString::fromUtf8(utf8);
        const ShapedLine shaped(text, font);
        const QRect line(0, 0, shaped.width(), metrics.height());
        const QVector<PictureLine> one{{line, &shaped}};
        const QVector<PictureLine> two{{line, &shaped},
                                       {line.translated(0, line.height()), &shaped}};
        for (const char *color : {"#ffffff", "#2060c0", "#80ff3010", "red", "no colour"}) {
            for (const double opacity : {1.0, 0.75, 0.3, 0.0}) {
                const bool onTwo = opacity == 0.3;
                const PaintedPicture picture =
                    paintPicture({line.width(), line.height() * (onTwo ? 2 : 1)}, onTwo ? two : one,
                                 {font, QString::fromLatin1(color), opacity, Qt::AlignCenter});
                QVERIFY(!picture.image.isNull());
                const QString found = difference(picture);
                QVERIFY2(found.isEmpty(),
                         qPrintable(QStringLiteral("%1, %2, %3: %4")
                                        .arg(QLatin1String(script), QLatin1String(color))
                                        .arg(opacity)
                                        .arg(found)));
            }
        }
    }
}

/// The pixels of the file are those that painting has told, not ones that the encoder looks up.
void tst_PngEncoder::numbersThatPaintingTells()
{
    if (isQtsOwn())
        QSKIP("Qt's own encoder stands in for a faster one");
    QFont font(QStringLiteral("Roboto"));
    font.setPixelSize(24);
    const ShapedLine shaped(QStringLiteral("CPU usage rate: 37%"), font);
    const QRect line(0, 0, shaped.width(), QFontMetrics(font).height());
    PaintedPicture picture = paintPicture(line.size(), {{line, &shaped}},
                                          {font, QStringLiteral("#2060c0"), 1.0, Qt::AlignCenter});
    QCOMPARE(picture.pixels.rows.size(), (line.width() + 1) * line.height());
    QCOMPARE(difference(picture), QString());

    const QRgb fullCoverage = qRgb(0x20, 0x60, 0xc0);
    const auto place = picture.pixels.colors.indexOf(fullCoverage);
    QVERIFY(place >= 0);
    const QRgb other = qRgb(1, 2, 3);
    picture.pixels.colors[place] = other;
    const QImage file = decoded(encodedPng(picture.image, picture.pixels));
    QCOMPARE(file.size(), picture.image.size());
    int replaced = 0;
    for (int y = 0; y < file.height(); ++y) {
        for (int x = 0; x < file.width(); ++x) {
            const QRgb painted = picture.image.pixel(x, y);
            QCOMPARE(file.pixel(x, y), painted == fullCoverage ? other : painted);
            replaced += painted == fullCoverage ? 1 : 0;
        }
    }
    QVERIFY(replaced > 0);
}

void tst_PngEncoder::isSmallerThanQts_data()
{
    QTest::addColumn<int>("pixelSize");
    QTest::addColumn<QString>("color");
    for (const int pixelSize : {16, 20, 24, 28, 40, 60}) {
        for (const char *color : {"#ffffff", "#2060c0"})
            QTest::addRow("%d px, %s", pixelSize, color) << pixelSize << QString::fromLatin1(color);
    }
}

void tst_PngEncoder::isSmallerThanQts()
{
    if (isQtsOwn())
        QSKIP("Qt's own encoder stands in for a faster one");
    QFETCH(int, pixelSize);
    QFETCH(QString, color);
    QFont font(QStringLiteral("Roboto"));
    font.setPixelSize(pixelSize);
    const ShapedLine shaped(QStringLiteral("CPU usage rate: 37%"), font);
    const QRect line(0, 0, shaped.width(), QFontMetrics(font).height());
    const PaintedPicture picture =
        paintPicture(line.size(), {{line, &shaped}}, {font, color, 1.0, Qt::AlignCenter});
    const auto bytes = encodedPng(picture.image, picture.pixels).size();
    const auto qtBytes = qtPng(picture.image).size();
    QVERIFY2(bytes * 10 <= qtBytes * 7,
             qPrintable(QStringLiteral("%1 bytes, Qt %2").arg(bytes).arg(qtBytes)));
}

void tst_PngEncoder::sizesOfNoise_data()
{
    QTest::addColumn<QSize>("size");
    for (const QSize size : {QSize(1, 1), QSize(2, 1), QSize(1, 2), QSize(3, 3), QSize(7, 5),
                             QSize(255, 1), QSize(1, 256), QSize(72, 72), QSize(513, 3),
                             QSize(32767, 1), QSize(1, 32767), QSize(640, 480)})
        QTest::addRow("%dx%d", size.width(), size.height()) << size;
}

void tst_PngEncoder::sizesOfNoise()
{
    QFETCH(QSize, size);
    for (const int colours : {1, 2, 17, 100, 1000})
        QCOMPARE(difference(noise(size, colours)), QString());
}

void tst_PngEncoder::coloursOfNoise_data()
{
    QTest::addColumn<int>("colours");
    for (const int colours : {1, 2, 3, 4, 15, 16, 17, 128, 253, 254, 255, 256, 257, 300, 2000})
        QTest::addRow("%d", colours) << colours;
}

void tst_PngEncoder::coloursOfNoise()
{
    QFETCH(int, colours);
    QCOMPARE(difference(noise({61, 47}, colours)), QString());
    QCOMPARE(difference(noise({61, 47}, colours, 0xff000000U)), QString());
}

void tst_PngEncoder::nothingForOtherFormats_data()
{
    QTest::addColumn<QImage>("image");
    const QImage picture = noise({33, 21}, 90);
    for (const auto format :
         {QImage::Format_ARGB32_Premultiplied, QImage::Format_RGB32, QImage::Format_RGBA8888,
          QImage::Format_Indexed8, QImage::Format_Grayscale8, QImage::Format_Mono})
        QTest::addRow("format %d", format) << picture.convertToFormat(format);
}

void tst_PngEncoder::nothingForOtherFormats()
{
    QFETCH(QImage, image);
    QCOMPARE(encodedPng(image), QByteArray());
}

void tst_PngEncoder::largestKeyPicture()
{
    QImage image(16384, largestArea / 16384, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    for (int x = 0; x < image.width(); ++x)
        image.setPixel(x, x % image.height(), qRgba(x & 0xff, x >> 8, 7, 200));
    const std::clock_t before = std::clock();
    const QByteArray png = encodedPng(image);
    const double seconds = static_cast<double>(std::clock() - before) / CLOCKS_PER_SEC;
    QVERIFY2(isQtsOwn() || seconds < 2, qPrintable(QString::number(seconds)));
    QCOMPARE(decoded(png), image);
}

void tst_PngEncoder::partOfAPicture()
{
    const QImage whole = noise({64, 64}, 50);
    const QImage part(whole.constBits() + 4 * 5, 13, 17, whole.bytesPerLine(), whole.format());
    QCOMPARE(difference(part), QString());
}

void tst_PngEncoder::transparentPixelsKeepTheirColours()
{
    QImage image(256, 2, QImage::Format_ARGB32);
    for (int x = 0; x < image.width(); ++x) {
        image.setPixel(x, 0, qRgba(x, 255 - x, x / 2, 0));
        image.setPixel(x, 1, 0);
    }
    QCOMPARE(decoded(encodedPng(image)), image);
    QCOMPARE(difference(image), QString());
}

void tst_PngEncoder::onePictureLeavesNothingInTheNext()
{
    const QImage small = noise({9, 4}, 12);
    const QByteArray first = encodedPng(small);
    const QImage large = noise({1200, 900}, 5000);
    QCOMPARE(decoded(encodedPng(large)), large);
    QCOMPARE(encodedPng(small), first);
    QCOMPARE(encodedPng(noise({300, 200}, 200)).isEmpty(), false);
    QCOMPARE(encodedPng(small), first);
}

void tst_PngEncoder::colorTypeFollowsTheColours_data()
{
    QTest::addColumn<int>("colours");
    QTest::addColumn<bool>("withTransparent");
    QTest::addColumn<int>("type");
    QTest::newRow("1") << 1 << false << 3;
    QTest::newRow("255") << 255 << false << 3;
    QTest::newRow("255 and transparent") << 255 << true << 3;
    QTest::newRow("256") << 256 << false << 6;
    QTest::newRow("256 and transparent") << 256 << true << 6;
    QTest::newRow("257") << 257 << false << 6;
}

void tst_PngEncoder::colorTypeFollowsTheColours()
{
    if (isQtsOwn())
        QSKIP("Qt's own encoder stands in for a faster one");
    QFETCH(int, colours);
    QFETCH(bool, withTransparent);
    QFETCH(int, type);
    QImage image = noise({40, 40}, colours, 0xff000000U);
    if (withTransparent)
        image.setPixel(39, 39, 0);
    QCOMPARE(colorType(encodedPng(image)), type);
    QCOMPARE(decoded(encodedPng(image)), image);
    const QImage turned = image.mirrored(true, true);
    QCOMPARE(colorType(encodedPng(turned)), type);
    QCOMPARE(decoded(encodedPng(turned)), turned);
}

void tst_PngEncoder::nothingForANullImage()
{
    QCOMPARE(encodedPng(QImage()), QByteArray());
    QCOMPARE(qtPng(QImage()), QByteArray());
}

QTEST_MAIN(tst_PngEncoder)
#include "tst_pngencoder.moc"
