#include "deck_simulator/gui/StylePreview.h"

#include <QtTest>

using namespace deck;

class tst_StylePreview : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void differsFromStyleToStyle();
    void showsTheLook_data();
    void showsTheLook();
    void isAsLargeAsItIsAsked();
};

namespace {

constexpr int side = 48;

PreviewLook someLook()
{
    PreviewLook look;
    look.gauge = QColor(0, 200, 0);
    return look;
}

QImage preview(const QString &style, const PreviewLook &look)
{
    return stylePreview(style, look, side, 1).toImage().convertToFormat(QImage::Format_ARGB32);
}

// Pixels about that colour: a thin line has hardly one exactly of it.
int pixelsOf(const QImage &image, const QColor &color)
{
    constexpr int tolerance = 90;
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor pixel = image.pixelColor(x, y);
            const int distance = qAbs(pixel.red() - color.red()) +
                                 qAbs(pixel.green() - color.green()) +
                                 qAbs(pixel.blue() - color.blue());
            count += pixel.alpha() > 200 && distance < tolerance ? 1 : 0;
        }
    }
    return count;
}

} // namespace

void tst_StylePreview::differsFromStyleToStyle()
{
    QVector<QImage> images;
    for (const char *style : {"text", "bar", "ring", "graph", "pair"}) {
        const QImage image = preview(QString::fromLatin1(style), someLook());
        QVERIFY2(!images.contains(image), style);
        images.append(image);
        // Letters or lines on a dark key with round corners.
        QCOMPARE(qAlpha(image.pixel(0, 0)), 0);
        QVERIFY2(qGray(image.pixel(side / 2, 3)) < 80, style);
        const bool text = images.size() == 1;
        QVERIFY2((pixelsOf(image, someLook().gauge) == 0) == text, style);
    }
}

void tst_StylePreview::showsTheLook_data()
{
    QTest::addColumn<QString>("style");
    for (const char *style : {"bar", "ring", "graph", "pair"})
        QTest::newRow(style) << QString::fromLatin1(style);
}

void tst_StylePreview::showsTheLook()
{
    QFETCH(const QString, style);
    const QImage usual = preview(style, someLook());
    PreviewLook look = someLook();
    look.gauge = QColor(Qt::red);
    QVERIFY(pixelsOf(preview(style, look), Qt::red) > 3);
    look = someLook();
    look.ground = QColor(Qt::blue);
    QVERIFY(pixelsOf(preview(style, look), Qt::blue) > side * side / 4);
    look = someLook();
    look.wide = true;
    const QImage wide = preview(style, look);
    QCOMPARE(qAlpha(wide.pixel(side / 2, 3)), 0); // half as high
    QVERIFY(qAlpha(usual.pixel(side / 2, 3)) > 0);
    QVERIFY(pixelsOf(wide, look.gauge) > 3);
}

void tst_StylePreview::isAsLargeAsItIsAsked()
{
    const QPixmap pixmap = stylePreview(QStringLiteral("ring"), someLook(), side, 2);
    QCOMPARE(pixmap.size(), QSize(2 * side, 2 * side));
    QCOMPARE(pixmap.devicePixelRatio(), 2.0);
}

QTEST_MAIN(tst_StylePreview)
#include "tst_StylePreview.moc"
