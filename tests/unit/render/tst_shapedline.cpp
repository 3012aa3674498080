#include "render/ShapedLine.h"
#include "tests/support/TestFonts.h"

#include <QFontMetrics>
#include <QImage>
#include <QPainter>
#include <QtTest>

#include <algorithm>

/// Lines are measured and drawn exactly as by Qt's own functions.
class tst_ShapedLine : public QObject
{
    Q_OBJECT

public:
    static void initMain() { testfonts::hideMachineFonts(); }

private Q_SLOTS:
    void initTestCase();
    void measuresAndDrawsLikeThePainter_data();
    void measuresAndDrawsLikeThePainter();
    void keepsToItsRectangle();
    void clipsWhereThePainterDoes_data();
    void clipsWhereThePainterDoes();
    void otherAlignments_data();
    void otherAlignments();
    void estimatesTheWidthOfLongTexts();
    void drawsNoLongText();
};

namespace {

QImage canvas(const QSize &size)
{
    QImage image(size, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    return image;
}

template <typename Draw>
QImage drawn(const QSize &size, const QFont &font, Draw draw)
{
    QImage image = canvas(size);
    QPainter painter(&image);
    painter.setFont(font);
    painter.setPen(QColor(QStringLiteral("#2060c0")));
    draw(painter);
    return image;
}

/// Whether a line with this text is drawn in \a rect exactly as by QPainter.
bool isLikeThePainters(const QString &text, const QFont &font, const QRect &rect, int alignment)
{
    const ShapedLine line(text, font);
    const QSize size(rect.right() + 20, rect.bottom() + 20);
    const auto painters = [&] {
        return drawn(size, font,
                     [&](QPainter &painter) { painter.drawText(rect, alignment, text); });
    };
    // The first drawing of a glyph, which is not yet cached, may differ from all others.
    painters();
    return drawn(size, font, [&](QPainter &painter) { line.draw(painter, rect, alignment); }) ==
           painters();
}

const char *const texts[] = {
    "CPU usage rate: 37%",
    "1023.9MB/s  0.0Kb/s",
    "45°",
    "AVAWATo fj Ty //",
    "ffi fl jjj W",
    "f",
    "j",
    "CPU封装功率: 65.0W",
    "网速：1.2Kb/s",
    "Ωμέγα Жук",
    "מעבד: 37%",
    "37% מעבד",
    "معالج ٣٧",
    "n\u0303o\u0308q\u0323\u0304\u0301e\u20dd",
    "a\U0001F98Ab\ue000",
    "",
    " ",
    "GPU model: ",
    "  both  ",
    "tab\tand\u00a0blank",
    "two\nlines",
    "\n",
    "return\rand\u2028separator",
    "soft\u00adhyphen\u200bzero",
    "cut\u009chere",
    "a & b && c",
    "Fahrenheit\u2103 \u00bd \u2460 \u4e00",
    "\u202eturned\u202c",
};

} // namespace

void tst_ShapedLine::initTestCase()
{
    for (const char *file : {"Roboto-Bold.ttf", "DejaVuSans.ttf", "wqy-microhei.ttc"}) {
        if (!testfonts::registerFile(QString::fromLatin1(file)))
            qWarning("%s is not installed; other fonts stand in for it", file);
    }
}

void tst_ShapedLine::measuresAndDrawsLikeThePainter_data()
{
    QTest::addColumn<QString>("text");
    for (const char *text : texts)
        QTest::newRow(text) << QString::fromUtf8(text);
}

void tst_ShapedLine::measuresAndDrawsLikeThePainter()
{
    QFETCH(QString, text);
    for (const char *family : {"Roboto", "DejaVu Sans", "WenQuanYi Micro Hei"}) {
        for (const int pixelSize : {1, 2, 5, 9, 12, 17, 24, 31, 48, 63, 64, 65, 90}) {
            QFont font(QString::fromLatin1(family));
            font.setPixelSize(pixelSize);
            font.setItalic(pixelSize % 2 == 0);
            const QFontMetrics metrics(font);
            const QString place = QStringLiteral("%1, %2 px").arg(font.family()).arg(pixelSize);
            const int width = ShapedLine(text, font).width();
            QVERIFY2(width == metrics.horizontalAdvance(text), qPrintable(place));
            const QRect first(0, 0, width, metrics.height());
            const QRect second(0, metrics.height(), width, metrics.height());
            QVERIFY2(isLikeThePainters(text, font, first, Qt::AlignCenter), qPrintable(place));
            QVERIFY2(isLikeThePainters(text, font, second, Qt::AlignCenter), qPrintable(place));
        }
    }
}

void tst_ShapedLine::keepsToItsRectangle()
{
    QFont font(QStringLiteral("Roboto"));
    font.setPixelSize(40);
    const QString text = QStringLiteral("CPU 45°");
    for (const QRect &rect : {QRect(5, 5, 20, 20), QRect(3, 0, 400, 11), QRect(0, 0, 61, 300),
                              QRect(7, 9, 0, 0), QRect(0, 0, 301, 77)})
        QVERIFY(isLikeThePainters(text, font, rect, Qt::AlignCenter));
}

void tst_ShapedLine::clipsWhereThePainterDoes_data()
{
    QTest::addColumn<QString>("text");
    // Their ink extends beyond their box to the right, to the left, to both sides.
    for (const char *text : {"f", "j", "jf", "7/"})
        QTest::newRow(text) << QString::fromUtf8(text);
}

void tst_ShapedLine::clipsWhereThePainterDoes()
{
    QFETCH(QString, text);
    QFont font(QStringLiteral("Roboto"));
    font.setItalic(true);
    for (const int pixelSize : {20, 63, 90}) {
        font.setPixelSize(pixelSize);
        const QFontMetrics metrics(font);
        const int width = metrics.horizontalAdvance(text);
        for (int wider = -8; wider <= pixelSize / 2; ++wider) {
            const QRect rect(40, 5, std::max(0, width + wider), metrics.height());
            QVERIFY2(isLikeThePainters(text, font, rect, Qt::AlignCenter),
                     qPrintable(QStringLiteral("%1 px, %2 wide").arg(pixelSize).arg(rect.width())));
        }
    }
}

void tst_ShapedLine::otherAlignments_data()
{
    QTest::addColumn<int>("alignment");
    QTest::newRow("none") << 0;
    QTest::newRow("left") << static_cast<int>(Qt::AlignLeft | Qt::AlignTop);
    QTest::newRow("right") << static_cast<int>(Qt::AlignRight | Qt::AlignBottom);
    QTest::newRow("centred, wrapped") << static_cast<int>(Qt::AlignCenter | Qt::TextWordWrap);
}

void tst_ShapedLine::otherAlignments()
{
    QFETCH(int, alignment);
    QFont font(QStringLiteral("Roboto"));
    font.setPixelSize(24);
    QVERIFY(isLikeThePainters(QStringLiteral("CPU usage"), font, QRect(4, 6, 80, 90), alignment));
}

void tst_ShapedLine::estimatesTheWidthOfLongTexts()
{
    const QFont font(QStringLiteral("Roboto"));
    const auto width = [&font](int length) {
        return ShapedLine(QString(length, QLatin1Char('x')), font).width();
    };
    QCOMPARE(width(0), 0);
    QVERIFY(width(longestText) > 0);
    QCOMPARE(width(longestText),
             QFontMetrics(font).horizontalAdvance(QString(longestText, QLatin1Char('x'))));
    QCOMPARE(width(2 * longestText), 2 * width(longestText));
    QCOMPARE(width(longestText * 100), 100 * width(longestText));
    QVERIFY(width(longestText + 1) >= width(longestText));
}

void tst_ShapedLine::drawsNoLongText()
{
    const QFont font(QStringLiteral("Roboto"));
    const ShapedLine whole(QString(longestText, QLatin1Char('x')), font);
    const ShapedLine longer(QString(longestText + 1, QLatin1Char('x')), font);
    QVERIFY(whole.isWhole());
    QVERIFY(!longer.isWhole());
    const QSize size(200, 30);
    const auto draw = [&size](const ShapedLine &line) {
        return [&line, &size](QPainter &painter) {
            line.draw(painter, {QPoint(0, 0), size}, Qt::AlignCenter);
        };
    };
    QVERIFY(drawn(size, font, draw(whole)) != canvas(size));
    QCOMPARE(drawn(size, font, draw(longer)), canvas(size));
}

QTEST_MAIN(tst_ShapedLine)
#include "tst_shapedline.moc"
