#include "render/gauges/InkCanvas.h"

#include <QSet>
#include <QtTest>

using gauge::Ink;
using gauge::InkCanvas;

/// From coverages to colours.
class tst_InkCanvas : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void paintsEachInkInItsColor();
    void leavesTheRestTransparent();
    void keepsTheColorOfFaintPixels();
    void laysInksOverEachOther();
    void keepsTheAlphaOfAColor();
    void standsInFrontOfTheGround_data();
    void standsInFrontOfTheGround();
    void appliesOpacityOnce();
    void colorsEveryPixelOfRowsOfAnyWidth();
    void hasFewColors();
};

namespace {

const QColor letters(0x20, 0xC0, 0x60);
const QColor first(0x56, 0xB4, 0xE9);
const QColor second(0xCC, 0x79, 0xA7);

/// One step of coverage of 31, of 255.
constexpr int step = 9;

InkCanvas *newCanvas(const QSize &size = {4, 4})
{
    return new InkCanvas(size, {letters, first, second});
}

bool isAbout(int actual, double expected)
{
    return std::abs(actual - expected) <= step / 2.0;
}

} // namespace

void tst_InkCanvas::paintsEachInkInItsColor()
{
    const QScopedPointer<InkCanvas> canvas(newCanvas());
    canvas->painter().fillRect(0, 0, 1, 4, canvas->colorOf(Ink::Letters));
    canvas->painter().fillRect(1, 0, 1, 4, canvas->colorOf(Ink::Gauge));
    canvas->painter().fillRect(2, 0, 1, 4, canvas->colorOf(Ink::Second));
    const QImage picture = canvas->finished(QColor(), 1);
    QCOMPARE(picture.format(), QImage::Format_ARGB32);
    QCOMPARE(picture.size(), QSize(4, 4));
    QCOMPARE(picture.pixel(0, 1), letters.rgba());
    QCOMPARE(picture.pixel(1, 2), first.rgba());
    QCOMPARE(picture.pixel(2, 3), second.rgba());
}

void tst_InkCanvas::leavesTheRestTransparent()
{
    const QScopedPointer<InkCanvas> canvas(newCanvas());
    canvas->painter().fillRect(0, 0, 2, 4, canvas->colorOf(Ink::Gauge));
    QCOMPARE(canvas->finished(QColor(), 1).pixel(3, 0), 0U);
}

void tst_InkCanvas::keepsTheColorOfFaintPixels()
{
    for (const double strength : {0.05, 0.16, 0.25, 0.35, 0.5, 0.75, 0.8, 0.95}) {
        const QScopedPointer<InkCanvas> canvas(newCanvas());
        canvas->painter().fillRect(0, 0, 4, 4, canvas->colorOf(Ink::Second, strength));
        const QRgb pixel = canvas->finished(QColor(), 1).pixel(2, 2);
        QCOMPARE(pixel | 0xFF000000U, second.rgb());
        QVERIFY2(isAbout(qAlpha(pixel), 255 * strength),
                 qPrintable(QString::number(qAlpha(pixel))));
    }
}

void tst_InkCanvas::laysInksOverEachOther()
{
    const QScopedPointer<InkCanvas> canvas(newCanvas());
    canvas->painter().fillRect(0, 0, 4, 4, canvas->colorOf(Ink::Gauge));
    canvas->painter().fillRect(0, 0, 4, 4, canvas->colorOf(Ink::Letters, 0.5));
    const QColor pixel = canvas->finished(QColor(), 1).pixelColor(0, 0);
    QCOMPARE(pixel.alpha(), 255);
    QVERIFY(isAbout(pixel.red(), (0x20 + 0x56) / 2.0));
    QVERIFY(isAbout(pixel.green(), (0xC0 + 0xB4) / 2.0));
    QVERIFY(isAbout(pixel.blue(), (0x60 + 0xE9) / 2.0));
}

void tst_InkCanvas::keepsTheAlphaOfAColor()
{
    QColor faint = first;
    faint.setAlpha(102);
    InkCanvas canvas({4, 4}, {letters, faint, second});
    canvas.painter().fillRect(0, 0, 4, 4, canvas.colorOf(Ink::Gauge));
    const QColor pixel = canvas.finished(QColor(), 1).pixelColor(0, 0);
    QVERIFY(isAbout(pixel.alpha(), 102));
    QCOMPARE(pixel.rgb(), first.rgb());
}

void tst_InkCanvas::standsInFrontOfTheGround_data()
{
    QTest::addColumn<QColor>("ground");
    QTest::addColumn<QColor>("expected");
    QTest::newRow("none") << QColor() << QColor(0, 0, 0, 0);
    QTest::newRow("transparent") << QColor(Qt::transparent) << QColor(0, 0, 0, 0);
    QTest::newRow("opaque") << QColor(1, 2, 3) << QColor(1, 2, 3);
    QTest::newRow("half") << QColor(1, 2, 3, 128) << QColor(1, 2, 3, 128);
}

void tst_InkCanvas::standsInFrontOfTheGround()
{
    QFETCH(QColor, ground);
    QFETCH(QColor, expected);
    const QScopedPointer<InkCanvas> canvas(newCanvas());
    canvas->painter().fillRect(0, 0, 2, 4, canvas->colorOf(Ink::Gauge));
    const QImage picture = canvas->finished(ground, 1);
    QCOMPARE(picture.pixel(0, 0), first.rgba());
    QCOMPARE(picture.pixel(3, 3), expected.rgba());
}

void tst_InkCanvas::appliesOpacityOnce()
{
    const auto painted = [](double opacity) {
        const QScopedPointer<InkCanvas> canvas(newCanvas());
        canvas->painter().fillRect(0, 0, 2, 4, canvas->colorOf(Ink::Gauge));
        canvas->painter().fillRect(1, 0, 2, 4, canvas->colorOf(Ink::Letters));
        return canvas->finished(QColor(1, 2, 3), opacity);
    };
    const QImage half = painted(0.5);
    const QImage whole = painted(1);
    for (int x = 0; x < 4; ++x) {
        QCOMPARE(qAlpha(half.pixel(x, 0)), 128);
        QCOMPARE(half.pixel(x, 0) | 0xFF000000U, whole.pixel(x, 0));
    }
    QCOMPARE(painted(0), []() {
        QImage nothing(4, 4, QImage::Format_ARGB32);
        nothing.fill(0);
        return nothing;
    }());
}

void tst_InkCanvas::colorsEveryPixelOfRowsOfAnyWidth()
{
    for (int width = 1; width <= 40; ++width) {
        for (int start = 0; start < width; ++start) {
            const QScopedPointer<InkCanvas> canvas(newCanvas({width, 1}));
            canvas->painter().fillRect(start, 0, width / 3 + 1, 1, canvas->colorOf(Ink::Gauge));
            const QImage picture = canvas->finished(QColor(), 1);
            for (int x = 0; x < width; ++x) {
                const bool isPainted = x >= start && x < start + width / 3 + 1;
                QCOMPARE(picture.pixel(x, 0), isPainted ? first.rgba() : 0U);
            }
        }
    }
}

void tst_InkCanvas::hasFewColors()
{
    const QScopedPointer<InkCanvas> canvas(newCanvas({256, 1}));
    for (int x = 0; x < 256; ++x)
        canvas->painter().fillRect(x, 0, 1, 1, canvas->colorOf(Ink::Gauge, x / 255.0));
    const QImage picture = canvas->finished(QColor(), 1);
    QSet<QRgb> colors;
    for (int x = 0; x < 256; ++x)
        colors.insert(picture.pixel(x, 0));
    QCOMPARE(colors.size(), 32);
}

QTEST_APPLESS_MAIN(tst_InkCanvas)
#include "tst_inkcanvas.moc"
