#include "plugin/gauges/RoundNumber.h"

#include <QtTest>

#include <cmath>

/// The ends that a scale may have.
class tst_RoundNumber : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void stepsByOneTwoFive_data();
    void stepsByOneTwoFive();
    void stepsByTheUnitsOfBytes_data();
    void stepsByTheUnitsOfBytes();
    void stepsByTheUnitsOfBits_data();
    void stepsByTheUnitsOfBits();
    void staysFinite_data();
    void staysFinite();
};

namespace {

constexpr double megabyte = 1024;
constexpr double gigabyte = 1024 * 1024;

} // namespace

void tst_RoundNumber::stepsByOneTwoFive_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("round");
    QTest::newRow("below one") << 0.9 << 1.0;
    QTest::newRow("one itself") << 1.0 << 2.0;
    QTest::newRow("1.3") << 1.3 << 2.0;
    QTest::newRow("two itself") << 2.0 << 5.0;
    QTest::newRow("4.99") << 4.99 << 5.0;
    QTest::newRow("five itself") << 5.0 << 10.0;
    QTest::newRow("a thousand") << 1000.0 << 2000.0;
    QTest::newRow("just below a thousand") << 999.999 << 1000.0;
    QTest::newRow("millivolts") << 0.013 << 0.02;
    QTest::newRow("millions") << 2.6e6 << 5e6;
}

void tst_RoundNumber::stepsByOneTwoFive()
{
    QFETCH(double, value);
    QTEST(roundNumberAbove(value), "round");
}

void tst_RoundNumber::stepsByTheUnitsOfBytes_data()
{
    QTest::addColumn<double>("kilobytes");
    QTest::addColumn<double>("round");
    QTest::newRow("13 KB/s") << 13.0 << 20.0;
    QTest::newRow("499 KB/s") << 499.0 << 500.0;
    QTest::newRow("500 KB/s") << 500.0 << 1 * megabyte;
    QTest::newRow("1000 KB/s") << 1000.0 << 1 * megabyte;
    QTest::newRow("1 MB/s") << megabyte << 2 * megabyte;
    QTest::newRow("130 MB/s") << 130 * megabyte << 200 * megabyte;
    QTest::newRow("510 MB/s") << 510 * megabyte << 1 * gigabyte;
    QTest::newRow("1 GB/s") << gigabyte << 2 * gigabyte;
    QTest::newRow("1300 GB/s") << 1300 * gigabyte << 2000 * gigabyte;
}

void tst_RoundNumber::stepsByTheUnitsOfBytes()
{
    QFETCH(double, kilobytes);
    QTEST(roundNumberAbove(kilobytes, RoundSteps::Bytes), "round");
}

void tst_RoundNumber::stepsByTheUnitsOfBits_data()
{
    QTest::addColumn<double>("kilobits");
    QTest::addColumn<double>("round");
    QTest::newRow("82 kbit/s") << 82.0 << 100.0;
    QTest::newRow("999 kbit/s") << 999.0 << 1000.0;
    QTest::newRow("1.3 Mbit/s") << 1300.0 << 2000.0;
}

void tst_RoundNumber::stepsByTheUnitsOfBits()
{
    QFETCH(double, kilobits);
    QFETCH(double, round);
    QCOMPARE(roundNumberAbove(kilobits * kilobytesPerKilobit, RoundSteps::Bits),
             round * kilobytesPerKilobit);
    QCOMPARE(kilobytesPerKilobit * 1024 * 8, 1000.0);
}

void tst_RoundNumber::staysFinite_data()
{
    QTest::addColumn<double>("value");
    QTest::newRow("zero") << 0.0;
    QTest::newRow("least") << 5e-324;
    QTest::newRow("most") << 1.7e308;
}

void tst_RoundNumber::staysFinite()
{
    QFETCH(double, value);
    for (const RoundSteps steps : {RoundSteps::Decimal, RoundSteps::Bytes, RoundSteps::Bits}) {
        const double round = roundNumberAbove(value, steps);
        QVERIFY(std::isfinite(round) && round > 0);
    }
}

QTEST_APPLESS_MAIN(tst_RoundNumber)
#include "tst_roundnumber.moc"
