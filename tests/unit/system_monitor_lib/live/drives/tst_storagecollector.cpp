#include "system_monitor_lib/live/drives/StorageCollector.h"
#include "tests/unit/system_monitor_lib/labels.h"

#include <QtTest>

namespace {

constexpr qint64 second = 1'000'000'000;
const QString temperature = QStringLiteral("Drive Temperature");

} // namespace

class StorageCollectorTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void namesAndRounds();
    void firstThatTellsKeepsThePlainLabel();
    void asksRarely();
    void noDrivesAreNoSource();
    void showsWhatDrivesDo();

private:
    SensorTrees collect(qint64 nowNs)
    {
        SensorTrees trees;
        m_collected = m_collector->collect(nowNs, trees);
        return trees;
    }

    std::vector<StorageDrive> m_drives;
    int m_lists = 0;
    /// The places that were asked.
    QStringList m_asked;
    QHash<QString, DriveCounters> m_counters;
    bool m_collected = false;
    std::unique_ptr<StorageCollector> m_collector;
};

void StorageCollectorTest::init()
{
    m_lists = 0;
    m_drives = {{QStringLiteral("PhysicalDrive0"), QStringLiteral("Disk A"), 38.5},
                {QStringLiteral("PhysicalDrive1"), QStringLiteral("Disk B"), 41.0},
                {QStringLiteral("PhysicalDrive2"), QStringLiteral("Disk B"), {}},
                {QStringLiteral("PhysicalDrive7"), QString(), 29.0}};
    m_asked.clear();
    m_counters.clear();
    const auto drives = [this](qint64 /*nowNs*/) {
        ++m_lists;
        return m_drives;
    };
    const auto counters = [this](const QString &place) {
        m_asked += place;
        return m_counters.contains(place) ? std::optional(m_counters.value(place)) : std::nullopt;
    };
    m_collector = std::make_unique<StorageCollector>(drives, counters);
}

void StorageCollectorTest::namesAndRounds()
{
    const SensorTrees trees = collect(0);
    QVERIFY(m_collected);
    const QJsonObject &drives = trees.tree(Query::SmartInfo);
    QCOMPARE(
        drives.keys(),
        (QStringList{QStringLiteral("Disk A"), QStringLiteral("Disk B (PhysicalDrive1)"),
                     QStringLiteral("Disk B (PhysicalDrive2)"), QStringLiteral("PhysicalDrive7")}));
    const QJsonObject first = drives.value(QStringLiteral("Disk A")).toObject();
    QCOMPARE(value(first, temperature), 39.0);
    QCOMPARE(units(first, temperature), QStringLiteral("°C"));
    QVERIFY(drives.value(QStringLiteral("Disk B (PhysicalDrive2)")).toObject().isEmpty());
    QCOMPARE(
        trees.tree(Query::AllSensorsData).value(QStringLiteral("Drive: PhysicalDrive7")).toObject(),
        drives.value(QStringLiteral("PhysicalDrive7")).toObject());
}

void StorageCollectorTest::firstThatTellsKeepsThePlainLabel()
{
    const auto labelsOf = [](const SensorTrees &trees, const QString &drive) {
        return trees.allSensors().value(QStringLiteral("Drive: ") + drive).toObject().keys();
    };
    const QString other = QStringLiteral("Disk B (PhysicalDrive1)");
    m_drives[0].celsius.reset();
    QCOMPARE(labelsOf(collect(0), other), QStringList{temperature});
    m_drives[0].celsius = 38.5;
    const SensorTrees trees = collect(60'000'000'000);
    QCOMPARE(labelsOf(trees, other), QStringList{temperature});
    QCOMPARE(labelsOf(trees, QStringLiteral("Disk A")),
             QStringList{QStringLiteral("Disk A Drive Temperature")});
}

void StorageCollectorTest::asksRarely()
{
    collect(0);
    m_drives.front().celsius = 45.0;
    const auto celsius = [this](qint64 nowNs) {
        return value(
            collect(nowNs).tree(Query::SmartInfo).value(QStringLiteral("Disk A")).toObject(),
            temperature);
    };
    QCOMPARE(celsius(29 * second), 39.0);
    QCOMPARE(m_lists, 1);
    QCOMPARE(celsius(30 * second), 45.0);
    QCOMPARE(m_lists, 2);
}

void StorageCollectorTest::noDrivesAreNoSource()
{
    m_drives.clear();
    const SensorTrees trees = collect(0);
    QVERIFY(!m_collected);
    QVERIFY(trees.tree(Query::SmartInfo).isEmpty());
}

void StorageCollectorTest::showsWhatDrivesDo()
{
    const QString readRate = QStringLiteral("Drive Read Rate");
    // The first one never tells a temperature, but its counters.
    m_drives[0].celsius.reset();
    m_drives[2].sleeps = true;
    m_counters[m_drives[0].place] = {};
    m_counters[m_drives[1].place] = {};
    collect(0);
    m_counters[m_drives[0].place].readBytes = 1024 * 1024;
    const SensorTrees trees = collect(second);
    const QJsonObject sensors = trees.allSensors();
    QCOMPARE(value(sensors.value(QStringLiteral("Drive activity: Disk A")).toObject(), readRate),
             1.0);
    QCOMPARE(
        value(sensors.value(QStringLiteral("Drive activity: Disk B (PhysicalDrive1)")).toObject(),
              QStringLiteral("Disk B Drive Read Rate")),
        0.0);
    QVERIFY(!m_asked.contains(m_drives[2].place));
    QCOMPARE(trees.tree(Query::SmartInfo).size(), 4);
    for (const QJsonValue drive : trees.tree(Query::SmartInfo))
        QVERIFY(!drive.toObject().contains(readRate));
}

QTEST_APPLESS_MAIN(StorageCollectorTest)
#include "tst_storagecollector.moc"
