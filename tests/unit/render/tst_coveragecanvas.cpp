#include "render/KeyPicture.h"
#include "render/ShapedLine.h"
#include "tests/support/TestFonts.h"

#include <QFontMetrics>
#include <QPainter>
#include <QtTest>

#include <algorithm>

/// Pictures of glyphs are those that QPainter draws, pixel by pixel, and their numbers tell the
/// same colours.
class tst_CoverageCanvas : public QObject
{
    Q_OBJECT

public:
    static void initMain() { testfonts::hideMachineFonts(); }

private Q_SLOTS:
    void initTestCase();
    void areWhatThePainterDraws_data();
    void areWhatThePainterDraws();
    void clipsToTheRectangle();
    void onePictureLeavesNothingInTheNext();
    void leavesToThePainter_data();
    void leavesToThePainter();

private:
    QString differenceFromThePainter(const QStringList &lines, const QFont &font,
                                     const QString &color, int narrower = 0);

    int m_numbered = 0;
};

namespace {

const char *const colors[] = {"#ffffff", "#2060c0", "#80ff3010", "#03ffffff", "#00ff0000", "none"};

const QStringList &texts()
{
    static const QStringList all{
        QStringLiteral("CPU usage rate: 37%"),
        QStringLiteral("1023.9MB/s  0.0Kb/s"),
        QStringLiteral("45°"),
        QStringLiteral("CPU封装功率: 65.0W"),
        QStringLiteral("AVAWATo fjffi Ty //jjj\\/\\/"),
        QStringLiteral("WWWWMMMM@@@@####"),
        QStringLiteral("f"),
        QStringLiteral("j"),
        QStringLiteral("Ωμέγα Жук"),
        QStringLiteral("a\U0001F98Ab\ue000"),
    };
    return all;
}

QFont fontOf(const char *family, int pixelSize)
{
    QFont font(QString::fromLatin1(family));
    font.setPixelSize(pixelSize);
    return font;
}

QImage plainPicture(const QStringList &lines, const QVector<QRect> &rects, const QSize &size,
                    const PictureStyle &style)
{
    QImage picture(size, QImage::Format_ARGB32);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setFont(style.font);
    painter.setPen(QColor(style.color));
    painter.setOpacity(style.opacity);
    for (int i = 0; i < lines.size(); ++i)
        painter.drawText(rects.at(i), style.alignment, lines.at(i));
    return picture;
}

/// Whether \a pixels, if they are known, are those of \a image.
bool areThose(const IndexedPixels &pixels, const QImage &image)
{
    if (pixels.colors.isEmpty())
        return true;
    const int length = image.width() + 1;
    if (pixels.colors.size() > 256 || pixels.rows.size() != length * image.height())
        return false;
    for (int y = 0; y < image.height(); ++y) {
        if (pixels.rows.at(y * length) != 0)
            return false;
        for (int x = 0; x < image.width(); ++x) {
            const auto number = static_cast<uchar>(pixels.rows.at(y * length + 1 + x));
            if (number >= pixels.colors.size() ||
                pixels.colors.at(number) !=
                    reinterpret_cast<const QRgb *>(image.constScanLine(y))[x])
                return false;
        }
    }
    return true;
}

} // namespace

void tst_CoverageCanvas::initTestCase()
{
    for (const char *file : {"Roboto-Bold.ttf", "DejaVuSans.ttf", "wqy-microhei.ttc"}) {
        if (!testfonts::registerFile(QString::fromLatin1(file)))
            qWarning("%s is not installed; other fonts stand in for it", file);
    }
}

/// What is wrong with the picture of \a lines, the rectangles of which are \a narrower than the
/// lines; empty when it is the painter's.
QString tst_CoverageCanvas::differenceFromThePainter(const QStringList &lines, const QFont &font,
                                                     const QString &color, int narrower)
{
    const ShapedLine first(lines.first(), font);
    const ShapedLine second(lines.last(), font);
    const int height = QFontMetrics(font).height() - narrower;
    const QVector<QRect> rects{{0, 0, std::max(0, first.width() - narrower), height},
                               {0, height, std::max(0, second.width() - narrower), height}};
    const QSize size(std::max(first.width(), second.width()), 2 * height);
    const PictureStyle style{font, color, 1.0, Qt::AlignCenter};
    // The first drawing of a glyph, which is not yet cached, may differ from all others.
    plainPicture(lines, rects, size, style);
    const QImage plain = plainPicture(lines, rects, size, style);
    const PaintedPicture picture =
        paintPicture(size, {{rects.first(), &first}, {rects.last(), &second}}, style);
    m_numbered += picture.pixels.colors.isEmpty() ? 0 : 1;
    if (picture.image != plain)
        return QStringLiteral("differs: ") + lines.join(u'/') + u' ' + color;
    if (!areThose(picture.pixels, picture.image))
        return QStringLiteral("has other numbers: ") + lines.join(u'/') + u' ' + color;
    return {};
}

void tst_CoverageCanvas::areWhatThePainterDraws_data()
{
    QTest::addColumn<QFont>("font");
    for (const char *family : {"Roboto", "DejaVu Sans", "WenQuanYi Micro Hei"}) {
        for (const int pixelSize : {1, 3, 8, 12, 17, 28, 40, 48, 49, 66}) {
            QFont font = fontOf(family, pixelSize);
            QTest::addRow("%s, %d px", family, pixelSize) << font;
            font.setItalic(true);
            font.setBold(true);
            QTest::addRow("%s, %d px, bold and italic", family, pixelSize) << font;
        }
        QFont font = fontOf(family, 24);
        font.setStyleStrategy(QFont::NoAntialias);
        QTest::addRow("%s, not smooth", family) << font;
        font = fontOf(family, 24);
        font.setUnderline(true);
        QTest::addRow("%s, underlined", family) << font;
        font = fontOf(family, 24);
        font.setLetterSpacing(QFont::AbsoluteSpacing, -1.8);
        QTest::addRow("%s, overlapping", family) << font;
        font = fontOf(family, 24);
        font.setHintingPreference(QFont::PreferFullHinting);
        QTest::addRow("%s, hinted", family) << font;
    }
}

void tst_CoverageCanvas::areWhatThePainterDraws()
{
    QFETCH(QFont, font);
    m_numbered = 0;
    for (const QString &text : texts()) {
        for (const char *color : colors) {
            const QStringList lines{text, texts().first()};
            const QString found = differenceFromThePainter(lines, font, QString::fromLatin1(color));
            QVERIFY2(found.isEmpty(), qPrintable(found));
        }
    }
    // Else nothing was tested but the painter against itself. Letters that overlap much are left to
    // it.
    if (font.letterSpacing() == 0)
        QCOMPARE(m_numbered > 0, font.pixelSize() <= 48 && !font.underline() &&
                                     font.styleStrategy() != QFont::NoAntialias);
}

void tst_CoverageCanvas::clipsToTheRectangle()
{
    for (const int narrower : {1, 2, 3, 7, 11, 19}) {
        for (const QString &text : texts()) {
            QFont font = fontOf("Roboto", 28);
            font.setItalic(true);
            const QString found =
                differenceFromThePainter({text, text}, font, QStringLiteral("#2060c0"), narrower);
            QVERIFY2(found.isEmpty(), qPrintable(found));
        }
    }
}

void tst_CoverageCanvas::onePictureLeavesNothingInTheNext()
{
    for (const int pixelSize : {40, 9, 48, 12, 3, 28}) {
        for (const QString &text : texts()) {
            const QString found = differenceFromThePainter(
                {text, text}, fontOf("Roboto", pixelSize), QStringLiteral("#ffffff"));
            QVERIFY2(found.isEmpty(), qPrintable(found));
        }
    }
}

void tst_CoverageCanvas::leavesToThePainter_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("opacity");
    QTest::addColumn<int>("alignment");
    QTest::newRow("opacity") << QStringLiteral("37%") << 0.75 << int(Qt::AlignCenter);
    QTest::newRow("nearly opaque") << QStringLiteral("37%") << 0.999 << int(Qt::AlignCenter);
    QTest::newRow("not a number") << QStringLiteral("37%") << qQNaN() << int(Qt::AlignCenter);
    QTest::newRow("alignment") << QStringLiteral("37%") << 1.0 << int(Qt::AlignLeft);
    QTest::newRow("right to left") << QStringLiteral("מעבד") << 1.0 << int(Qt::AlignCenter);
}

void tst_CoverageCanvas::leavesToThePainter()
{
    QFETCH(QString, text);
    QFETCH(double, opacity);
    QFETCH(int, alignment);
    const PictureStyle style{fontOf("Roboto", 28), QStringLiteral("#2060c0"), opacity, alignment};
    const ShapedLine line(text, style.font);
    const QRect rect(0, 0, line.width() + 9, 50);
    plainPicture({text}, {rect}, rect.size(), style);
    const PaintedPicture picture = paintPicture(rect.size(), {{rect, &line}}, style);
    QCOMPARE(picture.image, plainPicture({text}, {rect}, rect.size(), style));
    QVERIFY(picture.pixels.colors.isEmpty());
}

QTEST_MAIN(tst_CoverageCanvas)
#include "tst_coveragecanvas.moc"
