#include "system_monitor_lib/live/Rates.h"

#include <QtTest>

#include <limits>

namespace {

constexpr qint64 second = 1'000'000'000;
/// Stands for "no sample".
constexpr double none = -1;

} // namespace

class RatesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ratePerSecond_data();
    void ratePerSecond();
    void cpuLoad_data();
    void cpuLoad();
};

void RatesTest::ratePerSecond_data()
{
    QTest::addColumn<quint64>("previous");
    QTest::addColumn<quint64>("current");
    QTest::addColumn<qint64>("interval");
    QTest::addColumn<double>("rate");

    constexpr quint64 largest = std::numeric_limits<quint64>::max();
    QTest::newRow("a second") << quint64{1000} << quint64{3048} << second << 2048.0;
    QTest::newRow("a quarter") << quint64{0} << quint64{1000} << second / 4 << 4000.0;
    QTest::newRow("nothing moved") << quint64{7} << quint64{7} << second << 0.0;
    QTest::newRow("longest pause") << quint64{0} << quint64{1000} << 10 * second << 100.0;
    QTest::newRow("slept") << quint64{0} << quint64{1000} << 10 * second + 1 << none;
    QTest::newRow("no time passed") << quint64{0} << quint64{1000} << qint64{0} << none;
    QTest::newRow("time went back") << quint64{0} << quint64{1000} << -second << none;
    QTest::newRow("reset") << quint64{1000} << quint64{10} << second << none;
    QTest::newRow("wrapped at 32 bits") << quint64{4294967290} << quint64{100} << second << none;
    QTest::newRow("wrapped at 64 bits") << largest << quint64{0} << second << none;
    QTest::newRow("largest step") << quint64{0} << largest << second
                                  << static_cast<double>(largest);
}

void RatesTest::ratePerSecond()
{
    QFETCH(const quint64, previous);
    QFETCH(const quint64, current);
    QFETCH(const qint64, interval);
    QTEST(::ratePerSecond(previous, current, interval).value_or(none), "rate");
}

void RatesTest::cpuLoad_data()
{
    QTest::addColumn<quint64>("previousBusy");
    QTest::addColumn<quint64>("previousIdle");
    QTest::addColumn<quint64>("busy");
    QTest::addColumn<quint64>("idle");
    QTest::addColumn<double>("load");

    QTest::newRow("a quarter") << quint64{100} << quint64{100} << quint64{150} << quint64{250}
                               << 25.0;
    QTest::newRow("idle") << quint64{100} << quint64{100} << quint64{100} << quint64{200} << 0.0;
    QTest::newRow("busy") << quint64{100} << quint64{100} << quint64{200} << quint64{100} << 100.0;
    QTest::newRow("waiting time went back a little")
        << quint64{100} << quint64{100} << quint64{200} << quint64{98} << 100.0;
    QTest::newRow("nothing moved")
        << quint64{100} << quint64{100} << quint64{100} << quint64{100} << none;
    QTest::newRow("busy went back")
        << quint64{100} << quint64{100} << quint64{99} << quint64{200} << none;
    QTest::newRow("both went back")
        << quint64{100} << quint64{100} << quint64{1} << quint64{1} << none;
    QTest::newRow("idle went back by more than busy gained")
        << quint64{100} << quint64{100} << quint64{110} << quint64{50} << none;
}

void RatesTest::cpuLoad()
{
    QFETCH(const quint64, previousBusy);
    QFETCH(const quint64, previousIdle);
    QFETCH(const quint64, busy);
    QFETCH(const quint64, idle);
    const auto load = cpuLoadPercent({previousBusy, previousIdle}, {busy, idle});
    QTEST(load.value_or(none), "load");
}

QTEST_APPLESS_MAIN(RatesTest)
#include "tst_rates.moc"
