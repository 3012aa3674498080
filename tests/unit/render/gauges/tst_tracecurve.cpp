#include "render/gauges/TraceCurve.h"

#include <QtTest>

#include <cmath>
#include <limits>

using gauge::curvesOf;
using gauge::Point;
using gauge::Trace;

Q_DECLARE_METATYPE(gauge::Trace)

/// From samples to lines.
class tst_TraceCurve : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void samplesStandAtTheirTimes();
    void theNewestStandsAtTheRightEdge();
    void columnsOfSeveralSamplesShowTheirMean();
    void entersFromBeforeTheSpan();
    void aGapParts();
    void aRunOfOneSampleIsAPoint();
    void whatLiesBeforeTheSpanIsLeftOut();
    void holdsSharesToTheScale();
    void leavesOutWhatIsNotFiniteOrInOrder_data();
    void leavesOutWhatIsNotFiniteOrInOrder();
    void hasNoMorePointsThanColumns_data();
    void hasNoMorePointsThanColumns();
    void drawsThresholdsWithinTheScale_data();
    void drawsThresholdsWithinTheScale();
};

namespace {

/// 60 wide, 100 high; a second is a pixel in a span of 60 seconds.
const QRectF area(10, 20, 60, 100);
constexpr double span = 60;
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinite = std::numeric_limits<double>::infinity();

QPolygonF line(const QVector<QPointF> &points)
{
    return QPolygonF(points);
}

} // namespace

void tst_TraceCurve::samplesStandAtTheirTimes()
{
    const QVector<QPolygonF> curves = curvesOf({{{30, 0.25}, {10.5, 0.75}}}, span, area);
    QCOMPARE(curves, (QVector<QPolygonF>{line({{40, 95}, {59.5, 45}})}));
}

void tst_TraceCurve::theNewestStandsAtTheRightEdge()
{
    const QVector<QPolygonF> curves = curvesOf({{{5, 0}, {0, 1}}}, span, area);
    QCOMPARE(curves.value(0).last(), QPointF(70, 20));
    // What is said to come is taken for the present.
    QCOMPARE(curvesOf({{{5, 0}, {-3, 1}}}, span, area), curves);
}

void tst_TraceCurve::columnsOfSeveralSamplesShowTheirMean()
{
    const Trace trace{{{30.9, 0.1}, {30.6, 0.2}, {30.3, 0.6}, {20.5, 0.5}}};
    const QPolygonF curve = curvesOf(trace, span, area).value(0);
    QCOMPARE(curve.size(), 2);
    QCOMPARE(curve.first(), QPointF(70 - 30.6, 120 - 30));
    QCOMPARE(curve.last(), QPointF(49.5, 70));
}

void tst_TraceCurve::entersFromBeforeTheSpan()
{
    // Half way between the two is the left edge.
    const QPolygonF curve = curvesOf({{{65, 0.9}, {61, 0.2}, {59, 0.4}}}, span, area).value(0);
    QCOMPARE(curve, line({{10, 90}, {11, 80}}));
    const QPolygonF fromEdge = curvesOf({{{61, 0.2}, {60, 0.4}, {50, 0.4}}}, span, area).value(0);
    QCOMPARE(fromEdge, line({{10, 80}, {20, 80}}));
}

void tst_TraceCurve::aGapParts()
{
    const Trace trace{{{40, 0}, {30, 0}}, {{20, 1}, {10, 1}}};
    const QVector<QPolygonF> curves = curvesOf(trace, span, area);
    QCOMPARE(curves.size(), 2);
    QCOMPARE(curves.at(0), line({{30, 120}, {40, 120}}));
    QCOMPARE(curves.at(1), line({{50, 20}, {60, 20}}));
}

void tst_TraceCurve::aRunOfOneSampleIsAPoint()
{
    QCOMPARE(curvesOf({{{30, 0.5}}}, span, area), QVector<QPolygonF>{line({{40, 70}})});
}

void tst_TraceCurve::whatLiesBeforeTheSpanIsLeftOut()
{
    QCOMPARE(curvesOf({{{100, 0.5}, {61, 0.5}}}, span, area), QVector<QPolygonF>());
    QCOMPARE(curvesOf({}, span, area), QVector<QPolygonF>());
    QCOMPARE(curvesOf({{}}, span, area), QVector<QPolygonF>());
}

void tst_TraceCurve::holdsSharesToTheScale()
{
    const QPolygonF curve = curvesOf({{{30, -5}, {20, 1e300}}}, span, area).value(0);
    QCOMPARE(curve, line({{40, 120}, {50, 20}}));
}

void tst_TraceCurve::leavesOutWhatIsNotFiniteOrInOrder_data()
{
    QTest::addColumn<Trace>("trace");
    const auto row = [](const char *name, const Point &between) {
        QTest::newRow(name) << Trace{{{30, 0.25}, between, {10.5, 0.75}}};
    };
    row("share is no number", {20, notANumber});
    row("share is infinite", {20, -infinite});
    row("age is no number", {notANumber, 0.5});
    row("age is infinite", {infinite, 0.5});
    row("older than the one before", {35, 0.5});
    QTest::newRow("run before the last one")
        << Trace{{{30, 0.25}, {10.5, 0.75}}, {{29, 0.5}, {11, 0.5}}};
}

void tst_TraceCurve::leavesOutWhatIsNotFiniteOrInOrder()
{
    QFETCH(Trace, trace);
    QCOMPARE(curvesOf(trace, span, area), (QVector<QPolygonF>{line({{40, 95}, {59.5, 45}})}));
}

void tst_TraceCurve::hasNoMorePointsThanColumns_data()
{
    QTest::addColumn<Trace>("trace");
    QTest::addColumn<double>("seconds");
    constexpr int count = 1000000;
    QVector<Point> run;
    QVector<Point> disordered;
    Trace single;
    for (int i = count; i > 0; --i) {
        run.append({i * span / count, (i % 100) / 100.0});
        disordered.append({std::fmod(i * 7.3, span), (i % 100) / 100.0});
        single.append(QVector<Point>{{i * span / count, 0.5}});
    }
    QTest::newRow("one run") << Trace{run} << span;
    QTest::newRow("in disorder") << Trace{disordered} << span;
    QTest::newRow("runs of one") << single << span;
    for (const double seconds : {0.0, -1.0, 1e-300, 1e300, infinite, notANumber})
        QTest::addRow("span %g", seconds) << Trace{run.mid(0, 10000)} << seconds;
}

void tst_TraceCurve::hasNoMorePointsThanColumns()
{
    QFETCH(Trace, trace);
    QFETCH(double, seconds);
    const QVector<QPolygonF> curves = curvesOf(trace, seconds, area);
    int points = 0;
    for (const QPolygonF &curve : curves) {
        for (int i = 0; i < curve.size(); ++i) {
            QVERIFY(area.adjusted(0, 0, 1e-6, 1e-6).contains(curve.at(i)));
            QVERIFY(i == 0 || curve.at(i).x() > curve.at(i - 1).x());
        }
        points += static_cast<int>(curve.size());
    }
    QVERIFY2(points <= 61, qPrintable(QString::number(points)));
}

void tst_TraceCurve::drawsThresholdsWithinTheScale_data()
{
    QTest::addColumn<double>("threshold");
    QTest::addColumn<int>("rows");
    QTest::newRow("start") << 0.0 << 1;
    QTest::newRow("half") << 0.5 << 1;
    QTest::newRow("end") << 1.0 << 1;
    QTest::newRow("below") << -0.1 << 0;
    QTest::newRow("above") << 1.1 << 0;
    QTest::newRow("no number") << notANumber << 0;
    QTest::newRow("infinite") << infinite << 0;
}

void tst_TraceCurve::drawsThresholdsWithinTheScale()
{
    QFETCH(double, threshold);
    QFETCH(int, rows);
    gauge::InkCanvas canvas({72, 72}, {QColor(Qt::white), QColor(Qt::blue), QColor(Qt::red)});
    gauge::drawTrace(canvas, {0, 40, 72, 32}, {}, span, gauge::Ink::Gauge, {threshold});
    const QImage picture = canvas.finished(QColor(), 1);
    int painted = 0;
    for (int y = 0; y < picture.height(); ++y) {
        int dots = 0;
        for (int x = 0; x < picture.width(); ++x) {
            const QRgb pixel = picture.pixel(x, y);
            QVERIFY(pixel == 0 || (qAlpha(pixel) == 66 && qRed(pixel) == 255));
            dots += pixel == 0 ? 0 : 1;
        }
        QVERIFY(dots == 0 || dots == 36);
        QVERIFY(dots == 0 || y >= 40);
        painted += dots > 0 ? 1 : 0;
    }
    QCOMPARE(painted, rows);
}

QTEST_GUILESS_MAIN(tst_TraceCurve)
#include "tst_tracecurve.moc"
