#include "render/Base64.h"

#include <QRandomGenerator>
#include <QtTest>

class tst_Base64 : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isQts_data();
    void isQts();
    void everyPairOfDigits();
    void keepsThePrefix();
};

void tst_Base64::isQts_data()
{
    QTest::addColumn<int>("size");
    for (const int size : {0, 1, 2, 3, 4, 5, 6, 7, 100, 4000, 4001, 4002})
        QTest::addRow("%d", size) << size;
}

void tst_Base64::isQts()
{
    QFETCH(int, size);
    QRandomGenerator random(static_cast<quint32>(size));
    QByteArray bytes;
    while (bytes.size() < size)
        bytes.append(static_cast<char>(random.bounded(256)));
    QCOMPARE(withBase64(QLatin1String("before,"), bytes),
             QStringLiteral("before,") + QString::fromLatin1(bytes.toBase64()));
    QCOMPARE(withBase64(QLatin1String(), bytes), QString::fromLatin1(bytes.toBase64()));
}

void tst_Base64::everyPairOfDigits()
{
    QByteArray bytes;
    for (unsigned value = 0; value < 4096; ++value) {
        // The pair and then its complement, in three bytes.
        const unsigned both = value << 12U | (~value & 0xfffU);
        for (const unsigned shift : {16U, 8U, 0U})
            bytes.append(static_cast<char>(both >> shift & 0xffU));
    }
    QCOMPARE(withBase64(QLatin1String(), bytes), QString::fromLatin1(bytes.toBase64()));
}

void tst_Base64::keepsThePrefix()
{
    QByteArray all;
    for (int character = 1; character < 0x100; ++character)
        all.append(static_cast<char>(character));
    const QLatin1String prefix(all.constData(), all.size());
    QCOMPARE(withBase64(prefix, "abc"), QString(prefix) + QStringLiteral("YWJj"));
    QCOMPARE(withBase64(prefix, {}), QString(prefix));
}

QTEST_APPLESS_MAIN(tst_Base64)
#include "tst_base64.moc"
