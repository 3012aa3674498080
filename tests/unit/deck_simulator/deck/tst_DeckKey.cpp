#include "deck_simulator/deck/DeckKey.h"
#include "deck_simulator/deck/KeyPicture.h"

#include <QBuffer>
#include <QtTest>

using namespace deck;

class tst_DeckKey : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void decodesAPicture();
    void refusesWhatIsNoPicture_data();
    void refusesWhatIsNoPicture();
    void keepsTheLastValidPicture();
    void clearsThePictureOnAnEmptyText();
    void keepsTitlesAndSettings();
    void tellsGauges();
};

namespace {

QByteArray pngBytes(int width, int height)
{
    QImage image(width, height, QImage::Format_ARGB32);
    image.fill(qRgba(10, 20, 30, 255));
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, "png");
    return bytes;
}

QString dataUrl(const QByteArray &bytes)
{
    return QStringLiteral("data:image/png;base64,") + QString::fromLatin1(bytes.toBase64());
}

DeckKey key()
{
    return {QStringLiteral("CPU"), QStringLiteral("action"), QStringLiteral("key-01"),
            QJsonObject{{QStringLiteral("a"), 1}}};
}

} // namespace

void tst_DeckKey::decodesAPicture()
{
    const QImage picture = decodeKeyPicture(dataUrl(pngBytes(7, 3)));
    QCOMPARE(picture.size(), QSize(7, 3));
    QCOMPARE(picture.pixel(6, 2), qRgba(10, 20, 30, 255));
}

void tst_DeckKey::refusesWhatIsNoPicture_data()
{
    QTest::addColumn<QString>("text");
    const QByteArray png = pngBytes(20, 20);
    QByteArray bmp;
    QBuffer buffer(&bmp);
    QImage(2, 2, QImage::Format_RGB32).save(&buffer, "bmp");
    QByteArray hugeHeader = png;
    hugeHeader.replace(16, 8, QByteArray::fromHex("7fffffff7fffffff"));

    QTest::newRow("empty") << QString();
    QTest::newRow("no prefix") << QString::fromLatin1(png.toBase64());
    QTest::newRow("prefix in capitals")
        << QStringLiteral("DATA:IMAGE/PNG;BASE64,") + QString::fromLatin1(png.toBase64());
    QTest::newRow("prefix alone") << dataUrl({});
    QTest::newRow("broken base64") << dataUrl(png).insert(40, QLatin1Char('*'));
    QTest::newRow("characters beyond latin") << dataUrl(png) + QStringLiteral("内存");
    QTest::newRow("not a PNG") << dataUrl(bmp);
    QTest::newRow("text") << dataUrl("hello");
    QTest::newRow("cut off") << dataUrl(png.left(40));
    QTest::newRow("claims a huge size") << dataUrl(hugeHeader);
    QTest::newRow("too wide") << dataUrl(pngBytes(maximumPictureSide + 1, 1));
}

void tst_DeckKey::refusesWhatIsNoPicture()
{
    QFETCH(QString, text);
    QVERIFY(decodeKeyPicture(text).isNull());
}

void tst_DeckKey::keepsTheLastValidPicture()
{
    DeckKey subject = key();
    const QString url = dataUrl(pngBytes(5, 5));
    QVERIFY(subject.takePicture(url, 100));
    QVERIFY(!subject.takePicture(QStringLiteral("nonsense"), 200));
    QCOMPARE(subject.picture().size(), QSize(5, 5));
    QCOMPARE(subject.pictureBytes(), url.size());
    QCOMPARE(subject.pictures(), quint64(1));
    QCOMPARE(subject.brokenPictures(), quint64(1));
    QCOMPARE(subject.lastUpdate().value_or(-1), qint64(100));
}

void tst_DeckKey::clearsThePictureOnAnEmptyText()
{
    DeckKey subject = key();
    for (const QString &empty : {QString(), dataUrl({})}) {
        QVERIFY(subject.takePicture(dataUrl(pngBytes(5, 5)), 100));
        QVERIFY(subject.takePicture(empty, 200));
        QVERIFY(subject.picture().isNull());
        QCOMPARE(subject.pictureBytes(), 0);
        QCOMPARE(subject.brokenPictures(), quint64(0));
    }
}

void tst_DeckKey::keepsTitlesAndSettings()
{
    DeckKey subject = key();
    QVERIFY(!subject.lastUpdate().has_value());
    QCOMPARE(subject.settings().value(QLatin1String("a")).toInt(), 1);
    subject.takeTitle(QStringLiteral("CPU: 5%"), 7);
    subject.takeSettings({{QStringLiteral("a"), 2}});
    QCOMPARE(subject.title(), QStringLiteral("CPU: 5%"));
    QCOMPARE(subject.lastUpdate().value_or(-1), qint64(7));
    QCOMPARE(subject.settings().value(QLatin1String("a")).toInt(), 2);
    QCOMPARE(subject.settingsReplies(), quint64(1));
}

void tst_DeckKey::tellsGauges()
{
    DeckKey shown = key();
    QVERIFY(!shown.showsGauge());
    const QJsonObject ring{{QStringLiteral("style"), QStringLiteral("ring")}};
    shown.changeSettings({{QStringLiteral("display"), ring}});
    QVERIFY(!shown.showsGauge()); // nothing was painted yet
    QVERIFY(shown.takePicture(dataUrl(pngBytes(20, 20)), 1));
    QVERIFY(shown.showsGauge());
    QVERIFY(shown.takePicture(dataUrl(pngBytes(50, 20)), 2));
    QVERIFY(!shown.showsGauge());
    QVERIFY(shown.takePicture(dataUrl(pngBytes(40, 20)), 3));
    QVERIFY(shown.showsGauge());
    shown.changeSettings({{QStringLiteral("display"), QStringLiteral("ring")}});
    QVERIFY(!shown.showsGauge());
}

QTEST_GUILESS_MAIN(tst_DeckKey)
#include "tst_DeckKey.moc"
