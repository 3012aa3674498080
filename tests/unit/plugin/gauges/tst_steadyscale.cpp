#include "plugin/gauges/SteadyScale.h"

#include <QtTest>

/// Scales that follow their samples.
class tst_SteadyScale : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void follows_data();
    void follows();
    void goesBelowZero_data();
    void goesBelowZero();
    void keepsRatesAboveTheLeast();
    void countsInARow();
};

namespace {

using Samples = QVector<double>;

Samples many(int count, double sample)
{
    return Samples(count, sample);
}

SteadyScale after(const Samples &samples)
{
    SteadyScale scale;
    for (const double sample : samples)
        scale.add(sample);
    return scale;
}

} // namespace

void tst_SteadyScale::follows_data()
{
    QTest::addColumn<Samples>("samples");
    QTest::addColumn<double>("highest");
    QTest::newRow("no sample") << Samples() << 1.0;
    QTest::newRow("first above 1.3 times the first") << Samples{1500} << 2000.0;
    QTest::newRow("just too much for that") << Samples{1540} << 5000.0;
    QTest::newRow("a fan that stands still") << many(9, 0) << 1.0;
    QTest::newRow("and begins to turn") << many(9, 0) + Samples{1200} << 2000.0;
    QTest::newRow("four above it") << Samples{1500} + many(4, 2100) << 2000.0;
    QTest::newRow("five above it") << Samples{1500} + many(5, 2100) << 5000.0;
    QTest::newRow("five up to it") << Samples{1500} + many(5, 2000) << 2000.0;
    QTest::newRow("the mean of the five counts")
        << Samples{1500} + Samples{2100, 2100, 2100, 2100, 90000} << 50000.0;
    QTest::newRow("four below a tenth") << Samples{1500} + many(4, 199) << 2000.0;
    QTest::newRow("five below a tenth") << Samples{1500} + many(5, 199) << 500.0;
    QTest::newRow("five at a tenth") << Samples{1500} + many(5, 200) << 2000.0;
    QTest::newRow("stopped after a while") << Samples{1500} + many(9, 0) << 2000.0;
    QTest::newRow("once more") << Samples{1500} + many(5, 2100) + many(5, 100) + many(5, 300)
                               << 500.0;
}

void tst_SteadyScale::follows()
{
    QFETCH(Samples, samples);
    const ScaleRange range = after(samples).range();
    QCOMPARE(range.lowest, 0.0);
    QTEST(range.highest, "highest");
}

void tst_SteadyScale::goesBelowZero_data()
{
    QTest::addColumn<Samples>("samples");
    QTest::addColumn<double>("lowest");
    QTest::addColumn<double>("highest");
    QTest::newRow("−12 V") << many(3, -12) << -20.0 << 0.0;
    QTest::newRow("at once") << Samples{15, -3} << -5.0 << 20.0;
    QTest::newRow("still lower") << Samples{-3, -30} << -50.0 << 0.0;
    QTest::newRow("five far above") << Samples{-30} + many(5, -2) << -5.0 << 0.0;
    QTest::newRow("four far above") << Samples{-30} + many(4, -2) << -50.0 << 0.0;
    QTest::newRow("no longer negative") << Samples{-30} + many(5, 2) << 0.0 << 5.0;
}

void tst_SteadyScale::goesBelowZero()
{
    QFETCH(Samples, samples);
    const ScaleRange range = after(samples).range();
    QTEST(range.lowest, "lowest");
    QTEST(range.highest, "highest");
    QVERIFY(range.length() > 0);
}

void tst_SteadyScale::keepsRatesAboveTheLeast()
{
    SteadyScale scale(RoundSteps::Bytes, 10);
    QCOMPARE(scale.range().highest, 10.0);
    scale.add(0);
    QCOMPARE(scale.range().highest, 10.0);
    for (int pass = 0; pass < 4; ++pass)
        scale.add(800);
    QCOMPARE(scale.range().highest, 10.0);
    scale.add(800);
    QCOMPARE(scale.range().highest, 2048.0);
    for (int pass = 0; pass < 5; ++pass)
        scale.add(0);
    QCOMPARE(scale.range().highest, 10.0);
}

/// One sample on the scale, and the count begins anew.
void tst_SteadyScale::countsInARow()
{
    QCOMPARE(after(Samples{1500} + many(4, 2100) + Samples{1900} + many(4, 2100)).range().highest,
             2000.0);
    QCOMPARE(after(Samples{1500} + many(4, 100) + Samples{1900} + many(4, 100)).range().highest,
             2000.0);
}

QTEST_APPLESS_MAIN(tst_SteadyScale)
#include "tst_steadyscale.moc"
