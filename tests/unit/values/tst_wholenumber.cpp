#include "values/WholeNumber.h"

#include <QtTest>

#include <climits>
#include <cmath>

class tst_WholeNumber : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void truncates_data();
    void truncates();
    void caps_data();
    void caps();
};

void tst_WholeNumber::truncates_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("integer");
    QTest::newRow("down") << 99.99 << 99;
    QTest::newRow("toward zero") << -3.9 << -3;
    QTest::newRow("huge") << 1e300 << INT_MAX;
    QTest::newRow("hugely negative") << -1e300 << INT_MIN;
    QTest::newRow("largest") << 2147483647.0 << INT_MAX;
    QTest::newRow("infinite") << HUGE_VAL << INT_MAX;
    QTest::newRow("no number") << std::nan("") << 0;
}

void tst_WholeNumber::truncates()
{
    QFETCH(double, value);
    QFETCH(int, integer);
    QCOMPARE(wholenumber::truncated(value), integer);
}

void tst_WholeNumber::caps_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("capped");
    QTest::newRow("below") << 99 << 99;
    QTest::newRow("at the cap") << 100 << 100;
    QTest::newRow("above") << 101 << 100;
    QTest::newRow("zero") << 0 << 0;
    QTest::newRow("negative becomes the cap") << -1 << 100;
    QTest::newRow("most negative") << INT_MIN << 100;
}

void tst_WholeNumber::caps()
{
    QFETCH(int, value);
    QTEST(wholenumber::capped(value, 100), "capped");
}

QTEST_APPLESS_MAIN(tst_WholeNumber)
#include "tst_wholenumber.moc"
