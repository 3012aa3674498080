#include "render/FontTables.h"
#include "tests/support/TestFonts.h"

#include <QFile>
#include <QtTest>

class tst_FontTables : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void takesWholeFonts_data();
    void takesWholeFonts();
    void refusesAFontAtEveryCut();
    void refusesWhatLiesBehindTheEnd_data();
    void refusesWhatLiesBehindTheEnd();
};

namespace {

bool areWithin(const QByteArray &file)
{
    return fonttables::areWithin(reinterpret_cast<const uchar *>(file.constData()), file.size());
}

/// A font of one table, "name", with one name of three letters; in a collection or by itself.
QByteArray smallFont(bool inCollection = false)
{
    const QByteArray collection = QByteArray("ttcf") + QByteArray::fromHex("00010000") +
                                  QByteArray::fromHex("00000001"
                                                      "00000010");
    const char *const at = inCollection ? "0000002c" : "0000001c";
    return (inCollection ? collection : QByteArray()) +
           QByteArray::fromHex("00010000"
                               "0001"
                               "000000000000") +
           "name" + QByteArray::fromHex("00000000") + QByteArray::fromHex(at) +
           QByteArray::fromHex("00000015") +
           QByteArray::fromHex("0000"
                               "0001"
                               "0012"
                               "000300010409000100030000") +
           "abc";
}

} // namespace

void tst_FontTables::takesWholeFonts_data()
{
    QTest::addColumn<QByteArray>("font");
    QTest::newRow("a small one") << smallFont();
    QTest::newRow("a small one in a collection") << smallFont(true);
    for (const char *const name : {"DejaVuSans.ttf", "Roboto-Bold.ttf", "wqy-microhei.ttc"}) {
        QFile file(testfonts::find(QString::fromLatin1(name)));
        if (file.open(QIODevice::ReadOnly))
            QTest::newRow(name) << file.readAll();
    }
}

void tst_FontTables::takesWholeFonts()
{
    QFETCH(QByteArray, font);
    QVERIFY(areWithin(font));
}

void tst_FontTables::refusesAFontAtEveryCut()
{
    for (const QByteArray &font : {smallFont(), smallFont(true)}) {
        // With nothing in it, it has no tables to be elsewhere.
        for (int size = 13; size < font.size(); ++size)
            QVERIFY2(!areWithin(font.left(size)), qPrintable(QString::number(size)));
    }
}

void tst_FontTables::refusesWhatLiesBehindTheEnd_data()
{
    QTest::addColumn<int>("at");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("tables") << 4 << QByteArray::fromHex("ffff");
    QTest::newRow("table's place") << 20 << QByteArray::fromHex("ffffffff");
    QTest::newRow("table's length") << 24 << QByteArray::fromHex("ffffffff");
    QTest::newRow("names") << 30 << QByteArray::fromHex("ffff");
    QTest::newRow("place of the texts") << 32 << QByteArray::fromHex("0013");
    QTest::newRow("name's length") << 42 << QByteArray::fromHex("0004");
    QTest::newRow("name's place") << 44 << QByteArray::fromHex("ffff");
    QTest::newRow("fonts of a collection")
        << 0 << QByteArray("ttcf") + QByteArray::fromHex("00010000ffffffff");
}

void tst_FontTables::refusesWhatLiesBehindTheEnd()
{
    QFETCH(int, at);
    QFETCH(QByteArray, bytes);
    QVERIFY(!areWithin(smallFont().replace(at, bytes.size(), bytes)));
}

QTEST_GUILESS_MAIN(tst_FontTables)
#include "tst_fonttables.moc"
