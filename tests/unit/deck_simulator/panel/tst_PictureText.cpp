#include "deck_simulator/panel/PictureText.h"

#include <QtTest>

using namespace deck;

class tst_PictureText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tellsWhatBecomesOfAPicture_data();
    void tellsWhatBecomesOfAPicture();
};

void tst_PictureText::tellsWhatBecomesOfAPicture_data()
{
    QTest::addColumn<QSize>("picture");
    QTest::addColumn<bool>("gauge");
    QTest::addColumn<bool>("dial");
    QTest::addColumn<QString>("text");
    const auto row = [](const char *name, const QSize &picture, bool gauge, bool dial,
                        const QString &text) {
        QTest::newRow(name) << picture << gauge << dial << text;
    };
    row("none", {}, false, false, {});
    row("wide text", {212, 40}, false, false,
        QStringLiteral("Picture 212 × 40, key 144 × 144: scaled to 62 %"));
    row("short text", {40, 33}, false, false,
        QStringLiteral("Picture 40 × 33, key 144 × 144: scaled to 150 %"));
    row("text as it is", {132, 33}, false, false,
        QStringLiteral("Picture 132 × 33, key 144 × 144"));
    row("gauge", {144, 144}, true, false, QStringLiteral("Picture 144 × 144, key 144 × 144"));
    row("large gauge", {288, 288}, true, false,
        QStringLiteral("Picture 288 × 288, key 144 × 144: scaled to 50 %"));
    row("on a dial", {212, 40}, false, true,
        QStringLiteral("Picture 212 × 40, screen 288 × 144: scaled to 125 %"));
    row("high on a dial", {140, 264}, false, true,
        QStringLiteral("Picture 140 × 264, screen 288 × 144: scaled to 50 %"));
}

void tst_PictureText::tellsWhatBecomesOfAPicture()
{
    QFETCH(const QSize, picture);
    QFETCH(const bool, gauge);
    QFETCH(const bool, dial);
    QTEST(pictureText(picture, gauge, dial), "text");
}

QTEST_GUILESS_MAIN(tst_PictureText)
#include "tst_PictureText.moc"
