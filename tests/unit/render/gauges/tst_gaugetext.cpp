#include "render/gauges/GaugeText.h"
#include "tests/support/TestFonts.h"

#include <QFontInfo>
#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <QtTest>

#include <functional>

using gauge::DigitLine;
using gauge::PlainLine;

/// The texts of gauges: fonts, equal cells, lengths.
class tst_GaugeText : public QObject
{
    Q_OBJECT

public:
    static void initMain() { testfonts::hideMachineFonts(); }

private Q_SLOTS:
    void weightsOutdoStyleNames();
    void keepsTheSlant_data();
    void keepsTheSlant();
    void digitsAreEquallyWide_data();
    void digitsAreEquallyWide();
    void missingValuesStandInACell();
    void digitsStandWhereThePainterPutsThem();
    void otherLettersAreDrawnAsWell();
    void startsAtTheLeftInAnyScript();
    void limitsTexts_data();
    void limitsTexts();
};

namespace {

QFont roboto(int pixelSize = 40)
{
    QFont font(QStringLiteral("Roboto"));
    font.setHintingPreference(QFont::PreferNoHinting);
    return gauge::fontOf(font, QFont::Bold, pixelSize);
}

QImage drawn(const std::function<void(QPainter &)> &draw)
{
    QImage image(300, 60, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setPen(Qt::black);
    draw(painter);
    return image;
}

int leftmostInk(const QImage &image)
{
    for (int x = 0; x < image.width(); ++x) {
        for (int y = 0; y < image.height(); ++y) {
            if (qAlpha(image.pixel(x, y)) > 0)
                return x;
        }
    }
    return -1;
}

} // namespace

void tst_GaugeText::weightsOutdoStyleNames()
{
    REQUIRE_FONTS({QStringLiteral("Roboto-Bold.ttf"), QStringLiteral("Roboto-Medium.ttf")});
    QFont listed(QStringLiteral("Roboto"));
    listed.setStyleName(QStringLiteral("Bold"));
    QCOMPARE(QFontInfo(gauge::fontOf(listed, QFont::Medium, 20)).styleName(),
             QStringLiteral("Medium"));
    listed.setStyleName(QStringLiteral("Medium"));
    QCOMPARE(QFontInfo(gauge::fontOf(listed, QFont::Bold, 20)).styleName(), QStringLiteral("Bold"));
    QCOMPARE(gauge::fontOf(listed, QFont::Bold, 20).pixelSize(), 20);
    QCOMPARE(gauge::fontOf(listed, QFont::Bold, -5).pixelSize(), 1);
}

void tst_GaugeText::keepsTheSlant_data()
{
    QTest::addColumn<QString>("style");
    QTest::addColumn<bool>("slanted");
    QTest::newRow("italic") << QStringLiteral("Italic") << true;
    QTest::newRow("light italic") << QStringLiteral("Light Italic") << true;
    QTest::newRow("oblique") << QStringLiteral("Bold Oblique") << true;
    QTest::newRow("upright") << QStringLiteral("Bold") << false;
    QTest::newRow("none") << QString() << false;
}

void tst_GaugeText::keepsTheSlant()
{
    QFETCH(QString, style);
    QFETCH(bool, slanted);
    QFont font(QStringLiteral("Roboto"));
    font.setStyleName(style);
    QCOMPARE(gauge::fontOf(font, QFont::Bold, 20).italic(), slanted);
}

void tst_GaugeText::digitsAreEquallyWide_data()
{
    QTest::addColumn<QFont>("font");
    for (const char *family : {"Roboto", "DejaVu Sans", "WenQuanYi Micro Hei"}) {
        for (const int size : {9, 24, 49}) {
            QFont font(QString::fromLatin1(family));
            QTest::addRow("%s, %d px", family, size) << gauge::fontOf(font, QFont::Bold, size);
            font.setHintingPreference(QFont::PreferNoHinting);
            QTest::addRow("%s, %d px, no hinting", family, size)
                << gauge::fontOf(font, QFont::Bold, size);
        }
    }
}

void tst_GaugeText::digitsAreEquallyWide()
{
    REQUIRE_FONTS({QStringLiteral("Roboto-Bold.ttf"), QStringLiteral("DejaVuSans.ttf"),
                   QStringLiteral("wqy-microhei.ttc")});
    QFETCH(QFont, font);
    const qreal width = DigitLine(QStringLiteral("1234.5"), font).width();
    QVERIFY(width > 3 * font.pixelSize() / 2.0);
    for (const char *text : {"1111.1", "0000.0", "9874.4", "7777.7"})
        QCOMPARE(DigitLine(QString::fromLatin1(text), font).width(), width);
}

void tst_GaugeText::missingValuesStandInACell()
{
    REQUIRE_FONTS({QStringLiteral("DejaVuSans.ttf")});
    QFont dejaVu(QStringLiteral("DejaVu Sans"));
    dejaVu.setHintingPreference(QFont::PreferNoHinting);
    const QFont font = gauge::fontOf(dejaVu, QFont::Normal, 40);
    const qreal cell = DigitLine(QStringLiteral("0"), font).width();
    QVERIFY(QFontMetricsF(font).horizontalAdvance(QChar(u'–')) < cell - 2);
    QCOMPARE(DigitLine(QStringLiteral("–"), font).width(), cell);
    // In the middle of it: the same room at both sides.
    const QImage image = drawn([&](QPainter &painter) {
        DigitLine(QStringLiteral("–"), font).draw(painter, {100, 50});
    });
    const qreal left = leftmostInk(image) - 100;
    const qreal right = 100 + cell - (300 - leftmostInk(image.mirrored(true, false)));
    QVERIFY2(std::abs(left - right) <= 2, qPrintable(QStringLiteral("%1 %2").arg(left).arg(right)));
}

void tst_GaugeText::digitsStandWhereThePainterPutsThem()
{
    REQUIRE_FONTS({QStringLiteral("Roboto-Bold.ttf")});
    QFont font = roboto();
    font.setKerning(false);
    const QString text = QStringLiteral("1024.8");
    const auto cells = [&](QPainter &painter) { DigitLine(text, font).draw(painter, {10, 50}); };
    const auto plain = [&](QPainter &painter) {
        painter.setFont(font);
        painter.drawText(QPointF(10, 50), text);
    };
    // The first drawing of a letter, which is not yet cached, may differ from all others.
    drawn(plain);
    QCOMPARE(drawn(cells), drawn(plain));
}

void tst_GaugeText::otherLettersAreDrawnAsWell()
{
    REQUIRE_FONTS({QStringLiteral("Roboto-Bold.ttf"), QStringLiteral("wqy-microhei.ttc")});
    const DigitLine line(QStringLiteral("12温"), roboto());
    QVERIFY(line.width() > DigitLine(QStringLiteral("12"), roboto()).width() + 20);
    const QImage image = drawn([&](QPainter &painter) { line.draw(painter, {10, 50}); });
    QVERIFY(leftmostInk(image) >= 10);
    QVERIFY(300 - leftmostInk(image.mirrored(true, false)) > 10 + line.width() - 10);
}

void tst_GaugeText::startsAtTheLeftInAnyScript()
{
    testfonts::missing({QStringLiteral("Roboto-Bold.ttf"), QStringLiteral("DejaVuSans.ttf")});
    for (const char *text : {"CPU", "מעבד", "معالج", "37% מעבד", "a\tb"}) {
        const QFont font = roboto(20);
        const PlainLine line(QString::fromUtf8(text), font);
        const QImage image = drawn([&](QPainter &painter) { line.draw(painter, {40, 30}); });
        QVERIFY2(std::abs(leftmostInk(image) - 40) < 8, text);
        QVERIFY2(line.width() > 10 && line.width() < 200, text);
    }
    QCOMPARE(PlainLine(QString(), roboto()).width(), 0.0);
}

void tst_GaugeText::limitsTexts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("limited");
    QTest::newRow("empty") << QString() << QString();
    QTest::newRow("short") << QStringLiteral("CPU") << QStringLiteral("CPU");
    QTest::newRow("as long") << QStringLiteral("12345678") << QStringLiteral("12345678");
    QTest::newRow("longer") << QStringLiteral("123456789") << QStringLiteral("1234567…");
    QTest::newRow("lines") << QStringLiteral("a\nb\rc\u2028d") << QStringLiteral("a b c d");
    QTest::newRow("huge") << QString(1000000, QLatin1Char('x')) << QStringLiteral("xxxxxxx…");
    QTest::newRow("blanks") << QStringLiteral("  a   b  ") << QStringLiteral("a b");
}

void tst_GaugeText::limitsTexts()
{
    QFETCH(QString, text);
    QFETCH(QString, limited);
    QCOMPARE(gauge::limited(text, 8), limited);
}

QTEST_MAIN(tst_GaugeText)
#include "tst_gaugetext.moc"
