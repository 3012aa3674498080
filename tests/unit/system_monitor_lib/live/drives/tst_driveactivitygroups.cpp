#include "system_monitor_lib/live/drives/DriveActivityGroups.h"
#include "tests/unit/system_monitor_lib/labels.h"

#include <QtTest>

namespace {

constexpr qint64 second = 1'000'000'000;
const QString readRate = QStringLiteral("Drive Read Rate");
const DriveCounters before;

/// After a second with 3 MB read.
DriveCounters after()
{
    DriveCounters counters;
    counters.readBytes = 3 * 1024 * 1024;
    return counters;
}

DriveActivityGroups::Sample drive(const QString &place, std::optional<DriveCounters> counters)
{
    return {{place, QStringLiteral("Disk"), place}, counters};
}

} // namespace

class DriveActivityGroupsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rateNeedsTwoSamples();
    void driveThatDoesNotCountHasNoLabels();
    void sleepingDriveKeepsItsLabels();
    void anotherDriveInThePlaceBeginsAnew();
};

void DriveActivityGroupsTest::rateNeedsTwoSamples()
{
    DriveActivityGroups activity;
    const QString group = QStringLiteral("Drive activity: A");
    SensorTrees first;
    activity.add({drive(QStringLiteral("A"), before)}, 0, first);
    QVERIFY(first.allSensors().contains(group));
    QVERIFY(first.allSensors().value(group).toObject().isEmpty());
    SensorTrees later;
    activity.add({drive(QStringLiteral("A"), after())}, second, later);
    QCOMPARE(value(later.allSensors().value(group).toObject(), readRate), 3.0);
    QVERIFY(later.tree(Query::SmartInfo).isEmpty());
}

void DriveActivityGroupsTest::driveThatDoesNotCountHasNoLabels()
{
    DriveActivityGroups activity;
    SensorTrees trees;
    activity.add({drive(QStringLiteral("A"), {}), drive(QStringLiteral("B"), before)}, 0, trees);
    SensorTrees later;
    activity.add({drive(QStringLiteral("A"), {}), drive(QStringLiteral("B"), after())}, second,
                 later);
    QCOMPARE(later.allSensors().keys(), QStringList{QStringLiteral("Drive activity: B")});
    // The plain labels are not kept for the one that has none.
    QVERIFY(later.allSensors().constBegin()->toObject().contains(readRate));
}

void DriveActivityGroupsTest::sleepingDriveKeepsItsLabels()
{
    DriveActivityGroups activity;
    for (const qint64 nowNs : {0 * second, second, 2 * second}) {
        SensorTrees trees;
        const bool sleeps = nowNs > 0;
        activity.add({drive(QStringLiteral("A"), sleeps ? std::nullopt : std::optional(before)),
                      drive(QStringLiteral("B"), nowNs < second ? before : after())},
                     nowNs, trees);
        if (nowNs != second)
            continue;
        const QJsonObject other =
            trees.allSensors().value(QStringLiteral("Drive activity: B")).toObject();
        QVERIFY(other.contains(QStringLiteral("Disk (B) Drive Read Rate")));
        QVERIFY(trees.allSensors().value(QStringLiteral("Drive activity: A")).toObject().isEmpty());
    }
}

void DriveActivityGroupsTest::anotherDriveInThePlaceBeginsAnew()
{
    DriveActivityGroups activity;
    SensorTrees trees;
    activity.add({drive(QStringLiteral("A"), before)}, 0, trees);
    DriveActivityGroups::Sample other = drive(QStringLiteral("A"), after());
    other.name.model = QStringLiteral("Other");
    SensorTrees later;
    activity.add({other}, second, later);
    QVERIFY(later.allSensors().constBegin()->toObject().isEmpty());
}

QTEST_APPLESS_MAIN(DriveActivityGroupsTest)
#include "tst_driveactivitygroups.moc"
