#include "deck_simulator/deck/ContactSheet.h"

#include <QtTest>

using namespace deck;

class tst_ContactSheet : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void laysKeysOutInRows();
    void fitsPictures_data();
    void fitsPictures();
    void paintsPicturesInTheMiddleOfTheirKeys();
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

void tst_ContactSheet::fitsPictures_data()
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

void tst_ContactSheet::fitsPictures()
{
    QFETCH(QSize, picture);
    QFETCH(int, keySize);
    QTEST(shownPictureSize(picture, {5, keySize}), "shown");
}

void tst_ContactSheet::paintsPicturesInTheMiddleOfTheirKeys()
{
    const QImage sheet =
        paintContactSheet({filled(264, 60, Qt::red), filled(20, 20, Qt::green)}, twoColumns);
    QCOMPARE(sheet.size(), sheetSize(2, twoColumns));

    const QRect red = paintedArea(sheet, sheetKeyRect(0, twoColumns), qRgb(255, 0, 0));
    QCOMPARE(red.size(), QSize(132, 30));
    QCOMPARE(red.center(), sheetKeyRect(0, twoColumns).center());
    const QRect green = paintedArea(sheet, sheetKeyRect(1, twoColumns), qRgb(0, 255, 0));
    QCOMPARE(green.size(), QSize(30, 30));
    QCOMPARE(green.center(), sheetKeyRect(1, twoColumns).center());
}

void tst_ContactSheet::showsEmptyKeysAndRoundCorners()
{
    const QImage sheet =
        paintContactSheet({filled(20, 20, Qt::white), QImage(), QImage()}, twoColumns);
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
    const QImage sheet = paintContactSheet({filled(20, 20, Qt::transparent), QImage()}, twoColumns);
    QCOMPARE(sheet.pixel(sheetKeyRect(0, twoColumns).center()),
             sheet.pixel(sheetKeyRect(1, twoColumns).center()));
}

void tst_ContactSheet::paintsADeckWithoutKeys()
{
    QCOMPARE(paintContactSheet({}, twoColumns).size(), sheetSize(1, twoColumns));
}

QTEST_GUILESS_MAIN(tst_ContactSheet)
#include "tst_ContactSheet.moc"
