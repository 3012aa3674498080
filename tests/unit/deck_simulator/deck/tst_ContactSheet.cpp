#include "deck_simulator/deck/ContactSheet.h"

#include <QtTest>

using namespace deck;

class tst_ContactSheet : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void laysKeysOutInRows();
    void fitsTexts_data();
    void fitsTexts();
    void fitsGauges_data();
    void fitsGauges();
    void paintsTextsInTheMiddleOfTheirKeys();
    void paintsGaugesAsLargeAsTheirKeys();
    void givesWideGaugesTwoKeys();
    void showsEmptyKeysAndRoundCorners();
    void keepsTransparency();
    void paintsADeckWithoutKeys();
};

namespace {

const ContactSheetStyle twoColumns{2, 144};

QImage filled(int width, int height, Qt::GlobalColor color)
{
    QImage image(width, height, QImage::Format_ARGB32);
    image.fill(color);
    return image;
}

SheetPicture text(int width, int height, Qt::GlobalColor color)
{
    return {filled(width, height, color), false};
}

SheetPicture gauge(int width, int height, Qt::GlobalColor color)
{
    return {filled(width, height, color), true};
}

QRect paintedArea(const QImage &sheet, const QRect &key, QRgb color)
{
    QRect area;
    for (int y = key.top(); y <= key.bottom(); ++y) {
        for (int x = key.left(); x <= key.right(); ++x) {
            if (sheet.pixel(x, y) == color)
                area |= QRect(x, y, 1, 1);
        }
    }
    return area;
}

} // namespace

void tst_ContactSheet::laysKeysOutInRows()
{
    const QRect first = sheetKeyRect(0, twoColumns);
    const QRect second = sheetKeyRect(1, twoColumns);
    const QRect third = sheetKeyRect(2, twoColumns);
    QCOMPARE(first.size(), QSize(144, 144));
    QCOMPARE(second.top(), first.top());
    QVERIFY(second.left() > first.right() + 1);
    QCOMPARE(third.left(), first.left());
    QVERIFY(third.top() > first.bottom() + 1);

    const QSize size = sheetSize(3, twoColumns);
    QCOMPARE(size, sheetSize(4, twoColumns));
    QCOMPARE(size.width() - 1 - second.right(), first.left());
    QCOMPARE(size.height() - 1 - third.bottom(), first.top());
}

void tst_ContactSheet::fitsTexts_data()
{
    QTest::addColumn<QSize>("picture");
    QTest::addColumn<int>("keySize");
    QTest::addColumn<QSize>("shown");
    QTest::newRow("wide text is scaled down") << QSize(264, 30) << 144 << QSize(132, 15);
    QTest::newRow("high picture is scaled down") << QSize(33, 264) << 144 << QSize(17, 132);
    QTest::newRow("small picture grows little") << QSize(40, 20) << 144 << QSize(60, 30);
    QTest::newRow("it grows with the key") << QSize(40, 20) << 288 << QSize(120, 60);
    QTest::newRow("a line stays visible") << QSize(4000, 1) << 144 << QSize(132, 1);
    QTest::newRow("no picture") << QSize() << 144 << QSize(0, 0);
}

void tst_ContactSheet::fitsTexts()
{
    QFETCH(QSize, picture);
    QFETCH(int, keySize);
    QTEST(shownTextSize(picture, {5, keySize}), "shown");
}

void tst_ContactSheet::paintsTextsInTheMiddleOfTheirKeys()
{
    const QImage sheet =
        paintContactSheet({text(264, 60, Qt::red), text(20, 20, Qt::green)}, twoColumns);
    QCOMPARE(sheet.size(), sheetSize(2, twoColumns));

    const QRect red = paintedArea(sheet, sheetKeyRect(0, twoColumns), qRgb(255, 0, 0));
    QCOMPARE(red.size(), QSize(132, 30));
    QCOMPARE(red.center(), sheetKeyRect(0, twoColumns).center());
    const QRect green = paintedArea(sheet, sheetKeyRect(1, twoColumns), qRgb(0, 255, 0));
    QCOMPARE(green.size(), QSize(30, 30));
    QCOMPARE(green.center(), sheetKeyRect(1, twoColumns).center());
}

void tst_ContactSheet::fitsGauges_data()
{
    QTest::addColumn<QSize>("picture");
    QTest::addColumn<QSize>("screen");
    QTest::addColumn<QSize>("shown");
    QTest::newRow("as large as the key") << QSize(144, 144) << QSize(144, 144) << QSize(144, 144);
    QTest::newRow("small ones grow") << QSize(72, 72) << QSize(288, 288) << QSize(288, 288);
    QTest::newRow("large ones shrink") << QSize(288, 288) << QSize(96, 96) << QSize(96, 96);
    QTest::newRow("wide on a key") << QSize(288, 144) << QSize(144, 144) << QSize(144, 72);
    QTest::newRow("wide on a dial") << QSize(288, 144) << QSize(200, 90) << QSize(180, 90);
    QTest::newRow("square on a dial") << QSize(144, 144) << QSize(200, 90) << QSize(90, 90);
    QTest::newRow("no picture") << QSize() << QSize(144, 144) << QSize(0, 0);
}

void tst_ContactSheet::fitsGauges()
{
    QFETCH(const QSize, picture);
    QFETCH(const QSize, screen);
    QTEST(shownGaugeSize(picture, screen), "shown");
}

void tst_ContactSheet::paintsGaugesAsLargeAsTheirKeys()
{
    SheetPicture exact = gauge(144, 144, Qt::black);
    for (int x = 0; x < 144; ++x)
        exact.image.setPixel(x, 72, x % 2 == 0 ? qRgb(255, 0, 0) : qRgb(0, 0, 255));
    const QImage sheet = paintContactSheet({exact, gauge(72, 72, Qt::green)}, twoColumns);
    const QRect key = sheetKeyRect(0, twoColumns);
    // Pixel by pixel, up to the edges, but not in the round corners.
    for (int x = 0; x < 144; ++x)
        QCOMPARE(sheet.pixel(key.left() + x, key.top() + 72), exact.image.pixel(x, 72));
    QCOMPARE(sheet.pixel(key.topLeft()), sheet.pixel(0, 0));
    const QRect green = paintedArea(sheet, sheetKeyRect(1, twoColumns), qRgb(0, 255, 0));
    QCOMPARE(green.size(), QSize(144, 144));
}

void tst_ContactSheet::givesWideGaugesTwoKeys()
{
    const ContactSheetStyle threeColumns{3, 144};
    const QImage sheet = paintContactSheet({text(20, 20, Qt::red), text(288, 144, Qt::red),
                                            gauge(288, 144, Qt::green), text(20, 20, Qt::blue)},
                                           threeColumns);
    // It does not fit beside the first two; a wide text takes one key.
    QCOMPARE(sheet.size(), sheetSize(6, threeColumns));
    const QRect both = sheetKeyRect(3, threeColumns) | sheetKeyRect(4, threeColumns);
    const QRect green = paintedArea(sheet, both, qRgb(0, 255, 0));
    QCOMPARE(green.size(), QSize(288, 144));
    QCOMPARE(green.center(), both.center());
    QCOMPARE(sheet.pixel(sheetKeyRect(5, threeColumns).center()), qRgb(0, 0, 255));
    const QRgb dark = sheet.pixel(sheetKeyRect(2, threeColumns).center());
    QVERIFY(dark != sheet.pixel(0, 0)); // the key that was passed over
    // Where there is one column it has to do with one key.
    const ContactSheetStyle oneColumn{1, 144};
    const QImage narrow = paintContactSheet({gauge(288, 144, Qt::green)}, oneColumn);
    QCOMPARE(narrow.size(), sheetSize(1, oneColumn));
    QCOMPARE(paintedArea(narrow, narrow.rect(), qRgb(0, 255, 0)).size(), QSize(144, 72));
}

void tst_ContactSheet::showsEmptyKeysAndRoundCorners()
{
    const QImage sheet = paintContactSheet({text(20, 20, Qt::white), {}, {}}, twoColumns);
    const QRgb ground = sheet.pixel(0, 0);
    const QRgb dark = sheet.pixel(sheetKeyRect(1, twoColumns).center());
    QVERIFY(dark != ground);
    QVERIFY(qGray(dark) < qGray(ground));
    // The fourth key fills the row.
    for (int index = 1; index < 4; ++index) {
        const QRect key = sheetKeyRect(index, twoColumns);
        QCOMPARE(sheet.pixel(key.center()), dark);
        QCOMPARE(sheet.pixel(key.topLeft()), ground);
        QCOMPARE(sheet.pixel(key.bottomRight()), ground);
        QVERIFY(sheet.pixel(key.left(), key.center().y()) != ground);
    }
}

void tst_ContactSheet::keepsTransparency()
{
    const QImage sheet = paintContactSheet({text(20, 20, Qt::transparent), {}}, twoColumns);
    QCOMPARE(sheet.pixel(sheetKeyRect(0, twoColumns).center()),
             sheet.pixel(sheetKeyRect(1, twoColumns).center()));
}

void tst_ContactSheet::paintsADeckWithoutKeys()
{
    QCOMPARE(paintContactSheet({}, twoColumns).size(), sheetSize(1, twoColumns));
}

QTEST_GUILESS_MAIN(tst_ContactSheet)
#include "tst_ContactSheet.moc"
