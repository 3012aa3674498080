#include "deck_simulator/host/TrafficMeter.h"

#include <QtTest>

using namespace deck;

class tst_TrafficMeter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void needsTwoSamples();
    void measuresRates();
    void forgetsOldSamples();
    void survivesAClockThatStandsStill();
    void beginsAnewWhenTotalsFall();
};

void tst_TrafficMeter::needsTwoSamples()
{
    TrafficMeter meter;
    QCOMPARE(meter.framesPerSecond(), 0.0);
    meter.add(1000, 10, 100);
    QCOMPARE(meter.framesPerSecond(), 0.0);
    QCOMPARE(meter.bytesPerSecond(), 0.0);
}

void tst_TrafficMeter::measuresRates()
{
    TrafficMeter meter;
    meter.add(1000, 10, 100);
    meter.add(1500, 15, 1100);
    QCOMPARE(meter.framesPerSecond(), 10.0);
    QCOMPARE(meter.bytesPerSecond(), 2000.0);
}

void tst_TrafficMeter::forgetsOldSamples()
{
    TrafficMeter meter;
    meter.add(0, 0, 0);
    for (qint64 second = 1; second <= 10; ++second)
        meter.add(second * 1000, 1000, 1000);
    QCOMPARE(meter.framesPerSecond(), 0.0);
    // Two samples are kept, however long the time between them is.
    meter.add(60000, 1500, 1000);
    QCOMPARE(meter.framesPerSecond(), 10.0);
}

void tst_TrafficMeter::survivesAClockThatStandsStill()
{
    TrafficMeter meter;
    meter.add(1000, 10, 100);
    meter.add(1000, 20, 200);
    QCOMPARE(meter.framesPerSecond(), 0.0);
    meter.add(500, 20, 200);
    QCOMPARE(meter.framesPerSecond(), 0.0);
    meter.add(2000, 20, 200);
    QCOMPARE(meter.framesPerSecond(), 10.0);
}

void tst_TrafficMeter::beginsAnewWhenTotalsFall()
{
    TrafficMeter meter;
    meter.add(1000, 1000, 1000);
    meter.add(2000, 5, 50);
    QCOMPARE(meter.framesPerSecond(), 0.0);
    meter.add(3000, 15, 150);
    QCOMPARE(meter.framesPerSecond(), 10.0);
}

QTEST_GUILESS_MAIN(tst_TrafficMeter)
#include "tst_TrafficMeter.moc"
