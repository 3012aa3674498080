#include "plugin/gauges/Extremes.h"

#include <QtTest>

class tst_Extremes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void areNothingWithoutSamples();
    void followEachSample();
};

using gauge::Extreme;

void tst_Extremes::areNothingWithoutSamples()
{
    const Extremes none;
    for (const Extreme which : {Extreme::None, Extreme::Minimum, Extreme::Maximum, Extreme::Mean})
        QVERIFY(!none.valueOf(which));
}

void tst_Extremes::followEachSample()
{
    Extremes extremes;
    extremes.add(-3);
    QCOMPARE(extremes.valueOf(Extreme::Minimum).value(), -3.0);
    QCOMPARE(extremes.valueOf(Extreme::Maximum).value(), -3.0);
    QCOMPARE(extremes.valueOf(Extreme::Mean).value(), -3.0);
    extremes.add(-5);
    extremes.add(11);
    QCOMPARE(extremes.valueOf(Extreme::Minimum).value(), -5.0);
    QCOMPARE(extremes.valueOf(Extreme::Maximum).value(), 11.0);
    QCOMPARE(extremes.valueOf(Extreme::Mean).value(), 1.0);
    QVERIFY(!extremes.valueOf(Extreme::None));
}

QTEST_APPLESS_MAIN(tst_Extremes)
#include "tst_extremes.moc"
