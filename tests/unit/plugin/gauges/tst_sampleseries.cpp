#include "plugin/gauges/SampleSeries.h"

#include <QtTest>

/// The samples of one reading: means, and what a graph shows.
class tst_SampleSeries : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tracesSamplesByTheirAge();
    void breaksAtGaps_data();
    void breaksAtGaps();
    void beginsBeforeTheGraph();
    void leavesOutWhatIsTooOld();
    void keepsOneSampleOfATime();
    void keepsAnHour();
    void keepsFewWhenTimeStandsStill();
    void takesTheMean_data();
    void takesTheMean();
};

namespace {

const ScaleRange percent{0, 100};

/// Ages and shares, runs apart.
QString told(const gauge::Trace &trace)
{
    QStringList runs;
    for (const auto &run : trace) {
        QStringList points;
        for (const gauge::Point &point : run)
            points.append(QStringLiteral("%1:%2").arg(point.age).arg(point.share));
        runs.append(points.join(QLatin1Char(' ')));
    }
    return runs.join(QStringLiteral(" | "));
}

int countOf(const gauge::Trace &trace)
{
    int count = 0;
    for (const auto &run : trace)
        count += static_cast<int>(run.size());
    return count;
}

} // namespace

void tst_SampleSeries::tracesSamplesByTheirAge()
{
    SampleSeries series;
    QCOMPARE(told(series.trace(60, 0, percent)), QString());
    series.add(1000, 10);
    QCOMPARE(told(series.trace(60, 1000, percent)), QStringLiteral("0:0.1"));
    series.add(2010, 200);
    series.add(3000, -5);
    QCOMPARE(told(series.trace(60, 3500, percent)), QStringLiteral("2.5:0.1 1.49:1 0.5:0"));
    QCOMPARE(told(series.trace(60, 3000, {100, 300})), QStringLiteral("2:0 0.99:0.5 0:0"));
}

void tst_SampleSeries::breaksAtGaps_data()
{
    QTest::addColumn<qint64>("pause");
    QTest::addColumn<QString>("trace");
    QTest::newRow("one pass is missing") << qint64(2500) << QStringLiteral("2.5:0.1 0:0.2");
    QTest::newRow("a pause") << qint64(2501) << QStringLiteral("2.501:0.1 | 0:0.2");
    QTest::newRow("sleep") << qint64(30000) << QStringLiteral("30:0.1 | 0:0.2");
}

void tst_SampleSeries::breaksAtGaps()
{
    QFETCH(qint64, pause);
    SampleSeries series;
    series.add(0, 10);
    series.add(pause, 20);
    QTEST(told(series.trace(60, pause, percent)), "trace");
}

void tst_SampleSeries::beginsBeforeTheGraph()
{
    SampleSeries series;
    for (qint64 second = 0; second <= 20; ++second)
        series.add(second * 1000 + 300, static_cast<double>(second));
    const gauge::Trace trace = series.trace(10, 20300 + 500, percent);
    QCOMPARE(trace.size(), 1);
    QCOMPARE(trace.first().first().age, 10.5);
    QCOMPARE(trace.first().size(), 11);
}

void tst_SampleSeries::leavesOutWhatIsTooOld()
{
    SampleSeries series;
    series.add(0, 10);
    series.add(1000, 10);
    series.add(5000, 20);
    QCOMPARE(told(series.trace(10, 14000, percent)), QStringLiteral("9:0.2"));
    QCOMPARE(told(series.trace(10, 16000, percent)), QString());
    // A sample after the moment of the picture.
    QCOMPARE(told(series.trace(10, 2000, percent)), QStringLiteral("2:0.1 1:0.1"));
}

void tst_SampleSeries::keepsOneSampleOfATime()
{
    SampleSeries series;
    series.add(1000, 10);
    series.add(1000, 20);
    series.add(500, 30);
    QCOMPARE(told(series.trace(60, 1000, percent)), QStringLiteral("0:0.1"));
}

void tst_SampleSeries::keepsAnHour()
{
    SampleSeries series;
    constexpr qint64 seconds = 10000;
    for (qint64 second = 0; second <= seconds; ++second)
        series.add(second * 1000, 1);
    QCOMPARE(countOf(series.trace(1e6, seconds * 1000, percent)), 3602);
    QCOMPARE(countOf(series.trace(3600, seconds * 1000, percent)), 3602);
    QCOMPARE(series.trace(3600, seconds * 1000, percent).first().first().age, 3601.0);
}

/// Passes that come faster than once a second do not add up.
void tst_SampleSeries::keepsFewWhenTimeStandsStill()
{
    SampleSeries series;
    constexpr int passes = 20000;
    for (int pass = 0; pass < passes; ++pass)
        series.add(pass, 1);
    QCOMPARE(countOf(series.trace(3600, passes, percent)), 3602);
}

void tst_SampleSeries::takesTheMean_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<qint64>("now");
    QTest::addColumn<double>("mean"); // -1: none.
    QTest::newRow("the last one") << 1 << qint64(12000) << 60.0;
    QTest::newRow("two") << 2 << qint64(12000) << 50.0;
    QTest::newRow("as many as there are without a gap") << 60 << qint64(12000) << 45.0;
    QTest::newRow("a little later") << 3 << qint64(14500) << 45.0;
    QTest::newRow("after a gap") << 3 << qint64(14501) << -1.0;
}

void tst_SampleSeries::takesTheMean()
{
    QFETCH(int, count);
    QFETCH(qint64, now);
    SampleSeries series;
    QVERIFY(!series.mean(count, now));
    series.add(0, 1000);
    series.add(1000, 1000);
    series.add(10000, 35);
    series.add(11000, 40);
    series.add(12000, 60);
    QTEST(series.mean(count, now).value_or(-1), "mean");
}

QTEST_APPLESS_MAIN(tst_SampleSeries)
#include "tst_sampleseries.moc"
