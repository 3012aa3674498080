#include "plugin/gauges/ScaleRange.h"

#include <QtTest>

Q_DECLARE_METATYPE(std::optional<double>)

/// The ends of a scale, and places on it.
class tst_ScaleRange : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void placesValues_data();
    void placesValues();
    void takesTheEndsThatTheUserWishes_data();
    void takesTheEndsThatTheUserWishes();
};

void tst_ScaleRange::placesValues_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("share");
    QTest::addColumn<bool>("inside");
    QTest::newRow("lowest") << 20.0 << 0.0 << true;
    QTest::newRow("quarter") << 40.0 << 0.25 << true;
    QTest::newRow("highest") << 100.0 << 1.0 << true;
    QTest::newRow("above") << 100.1 << 1.0 << false;
    QTest::newRow("below") << -5.0 << 0.0 << false;
}

void tst_ScaleRange::placesValues()
{
    QFETCH(double, value);
    const ScaleRange range{20, 100};
    QTEST(range.shareOf(value), "share");
    QTEST(range.contains(value), "inside");
    const ScaleRange empty{20, 20};
    QCOMPARE(empty.shareOf(value), 0.0);
}

void tst_ScaleRange::takesTheEndsThatTheUserWishes_data()
{
    using End = std::optional<double>;
    QTest::addColumn<std::optional<double>>("minimum");
    QTest::addColumn<std::optional<double>>("maximum");
    QTest::addColumn<double>("lowest");
    QTest::addColumn<double>("highest");
    QTest::newRow("none") << End() << End() << 20.0 << 100.0;
    QTest::newRow("minimum") << End(30) << End() << 30.0 << 100.0;
    QTest::newRow("maximum") << End() << End(90) << 20.0 << 90.0;
    QTest::newRow("both") << End(-10) << End(110) << -10.0 << 110.0;
    QTest::newRow("both outside its own") << End(200) << End(300) << 200.0 << 300.0;
    QTest::newRow("minimum at its highest") << End(100) << End() << 20.0 << 100.0;
    QTest::newRow("maximum below its lowest") << End() << End(10) << 20.0 << 100.0;
    QTest::newRow("exchanged") << End(90) << End(30) << 20.0 << 100.0;
    QTest::newRow("equal") << End(50) << End(50) << 20.0 << 100.0;
}

void tst_ScaleRange::takesTheEndsThatTheUserWishes()
{
    QFETCH(std::optional<double>, minimum);
    QFETCH(std::optional<double>, maximum);
    const ScaleRange range = withEnds({20, 100}, minimum, maximum);
    QTEST(range.lowest, "lowest");
    QTEST(range.highest, "highest");
}

QTEST_APPLESS_MAIN(tst_ScaleRange)
#include "tst_scalerange.moc"
