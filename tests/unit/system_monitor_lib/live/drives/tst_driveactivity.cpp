#include "system_monitor_lib/live/drives/DriveActivity.h"
#include "tests/unit/system_monitor_lib/labels.h"

#include <QtTest>

namespace {

constexpr qint64 second = 1'000'000'000;
constexpr quint64 millisecond = 1'000'000;
constexpr quint64 megabyte = 1024 * 1024;
/// Where the kernel's 32-bit milliseconds wrap around.
constexpr quint64 wrapAt = (quint64{1} << 32U) * millisecond;

} // namespace

Q_DECLARE_METATYPE(DriveCounters)

class DriveActivityTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void computesTheActivity_data();
    void computesTheActivity();
    void givesNothingAfterARestart_data();
    void givesNothingAfterARestart();
    void hasAUnitForEachLabel();
};

void DriveActivityTest::computesTheActivity_data()
{
    QTest::addColumn<DriveCounters>("previous");
    QTest::addColumn<DriveCounters>("current");
    QTest::addColumn<qint64>("interval");
    QTest::addColumn<QList<double>>("expected"); // read, written, busy, time of a request

    const DriveCounters start{megabyte,          megabyte, 10,    100 * millisecond,
                              100 * millisecond, 0,        wrapAt};
    const auto later = [](quint64 read, quint64 written, quint64 requests, quint64 readMs,
                          quint64 writeMs, quint64 busyMs) {
        return DriveCounters{(1 + read) * megabyte,
                             (1 + written) * megabyte,
                             10 + requests,
                             (100 + readMs) * millisecond,
                             (100 + writeMs) * millisecond,
                             busyMs * millisecond,
                             wrapAt};
    };
    QTest::newRow("idle") << start << start << second << QList<double>{0, 0, 0, 0};
    QTest::newRow("reads and writes")
        << start << later(3, 5, 20, 40, 60, 250) << second << QList<double>{3, 5, 25, 5};
    QTest::newRow("half a second")
        << start << later(3, 5, 20, 40, 60, 250) << second / 2 << QList<double>{6, 10, 50, 5};
    QTest::newRow("busy for longer than the interval")
        << start << later(1, 0, 1, 3000, 0, 1010) << second << QList<double>{1, 0, 100, 3000};
    QTest::newRow("in progress, nothing finished")
        << start << later(0, 0, 0, 0, 0, 1000) << second << QList<double>{0, 0, 100, 0};

    DriveCounters before = start;
    before.busyNs = wrapAt - 100 * millisecond;
    before.readNs = wrapAt - 30 * millisecond;
    DriveCounters after = later(0, 0, 10, 0, 0, 150);
    after.readNs = 20 * millisecond;
    QTest::newRow("times that wrapped") << before << after << second << QList<double>{0, 0, 25, 5};
    before.timesWrapAtNs = 0;
    after.timesWrapAtNs = 0;
    QTest::newRow("times that went back and never wrap")
        << before << after << second << QList<double>{0, 0, 0, 0};
}

void DriveActivityTest::computesTheActivity()
{
    QFETCH(const DriveCounters, previous);
    QFETCH(const DriveCounters, current);
    QFETCH(const qint64, interval);
    const std::optional<DriveActivity> activity = driveActivity(previous, current, interval);
    QVERIFY(activity);
    const QJsonObject labels = driveActivityLabels(*activity);
    QList<double> values;
    for (const QString &label : driveActivityLabelNames())
        values += value(labels, label);
    QTEST(values, "expected");
}

void DriveActivityTest::givesNothingAfterARestart_data()
{
    QTest::addColumn<DriveCounters>("current");
    QTest::addColumn<qint64>("interval");
    QTest::newRow("fewer bytes read") << DriveCounters{9, 20, 30} << second;
    QTest::newRow("fewer bytes written") << DriveCounters{10, 19, 30} << second;
    QTest::newRow("fewer requests") << DriveCounters{10, 20, 29} << second;
    QTest::newRow("no time passed") << DriveCounters{10, 20, 30} << qint64{0};
    QTest::newRow("asleep in between") << DriveCounters{10, 20, 30} << 60 * second;
}

void DriveActivityTest::givesNothingAfterARestart()
{
    QFETCH(const DriveCounters, current);
    QFETCH(const qint64, interval);
    QVERIFY(!driveActivity({10, 20, 30}, current, interval));
}

void DriveActivityTest::hasAUnitForEachLabel()
{
    const QJsonObject labels = driveActivityLabels({});
    QStringList all;
    for (const QString &label : driveActivityLabelNames())
        all += units(labels, label);
    QCOMPARE(all, (texts({"MB/s", "MB/s", "%", "ms"})));
}

QTEST_APPLESS_MAIN(DriveActivityTest)
#include "tst_driveactivity.moc"
