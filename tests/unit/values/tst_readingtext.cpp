#include "values/ReadingText.h"

#include <QtTest>

class ReadingTextTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void generalHasSixDigits_data();
    void generalHasSixDigits();
};

void ReadingTextTest::generalHasSixDigits_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("text");
    const auto row = [](double value, const char *text) {
        QTest::newRow(text) << value << QString::fromLatin1(text);
    };
    row(0, "0W");
    row(7, "7W");
    row(-7, "-7W");
    row(7.5, "7.5W");
    row(-0.25, "-0.25W");
    row(1234.56789, "1234.57W");
    row(0.00001234, "1.234e-05W");
    row(999'999, "999999W");
    row(-999'999, "-999999W");
    row(1e6, "1e+06W");
    row(-1e6, "-1e+06W");
    row(999'999.6, "1e+06W");
    row(1'234'567, "1.23457e+06W");
    row(1e300, "1e+300W");
    row(qInf(), "infW");
    row(qQNaN(), "nanW");
}

void ReadingTextTest::generalHasSixDigits()
{
    QFETCH(double, value);
    QTEST(readingtext::general(value, QStringLiteral("W")), "text");
}

QTEST_APPLESS_MAIN(ReadingTextTest)
#include "tst_readingtext.moc"
