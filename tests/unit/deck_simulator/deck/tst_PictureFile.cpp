#include "deck_simulator/deck/PictureFile.h"

#include <QFile>
#include <QImageReader>
#include <QImageWriter>
#include <QTemporaryDir>
#include <QtTest>

using namespace deck;

class tst_PictureFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void writesTheFormatOfTheSuffix_data();
    void writesTheFormatOfTheSuffix();
    void tellsWhyItCannotWrite();
};

void tst_PictureFile::writesTheFormatOfTheSuffix_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("format");
    QTest::newRow("png") << QStringLiteral("a.png") << QByteArray("png");
    QTest::newRow("jpg") << QStringLiteral("a.jpg") << QByteArray("jpeg");
    QTest::newRow("capital letters") << QStringLiteral("a.b.JPEG") << QByteArray("jpeg");
    QTest::newRow("none") << QStringLiteral("picture") << QByteArray("png");
    QTest::newRow("unknown") << QStringLiteral("a.picture") << QByteArray("png");
}

void tst_PictureFile::writesTheFormatOfTheSuffix()
{
    QFETCH(const QString, name);
    QFETCH(const QByteArray, format);
    if (!QImageWriter::supportedImageFormats().contains(format))
        QSKIP("Qt has no plugin here that writes this format.");
    const QTemporaryDir folder;
    QImage picture(20, 10, QImage::Format_RGB32);
    picture.fill(Qt::red);
    const QString file = folder.filePath(name);
    QCOMPARE(writePicture(picture, file), QString());
    QFile content(file);
    QVERIFY(content.open(QIODevice::ReadOnly)); // without a name, the content alone tells
    QCOMPARE(QImageReader::imageFormat(&content), format);
    QCOMPARE(QImage(file).size(), picture.size());
}

void tst_PictureFile::tellsWhyItCannotWrite()
{
    const QTemporaryDir folder;
    QVERIFY(!writePicture(QImage(2, 2, QImage::Format_RGB32),
                          folder.filePath(QStringLiteral("missing/a.png")))
                 .isEmpty());
}

QTEST_GUILESS_MAIN(tst_PictureFile)
#include "tst_PictureFile.moc"
