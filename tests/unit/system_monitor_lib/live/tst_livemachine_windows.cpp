#include "system_monitor_lib/live/LiveSource.h"
#include "system_monitor_lib/live/drives/StorageDrives.h"
#include "system_monitor_lib/live/graphics/NvidiaDevices.h"
#include "system_monitor_lib/live/processor/CoreClockCollector.h"
#include "system_monitor_lib/live/processor/CpuModel.h"
#include "tests/unit/system_monitor_lib/labels.h"

#include <QDir>
#include <QFileInfo>
#include <QThread>
#include <QtTest>

/// The readings of the machine that the test runs on.
class LiveMachineTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsEverySource();
    void clocksEveryCore();
    void groupBearsTheProcessorsName();
    void drivesHaveNamesOfTheirOwn();
    void nvidiaLibraryIsTheSystems();
    void nothingSleepsThatIsNotThere();
};

void LiveMachineTest::readsEverySource()
{
    LiveSource source;
    QVERIFY(source.open());
    const QString load = QStringLiteral("Total CPU Usage");
    QTRY_VERIFY(source.tree(Query::CpuInfo).contains(load));
    QVERIFY(value(source.tree(Query::CpuInfo), load) >= 0);
    QVERIFY(value(source.tree(Query::CpuInfo), load) <= 100);
    QVERIFY(value(source.tree(Query::SystemInfo), QStringLiteral("Physical Memory Used")) > 0);
}

void LiveMachineTest::clocksEveryCore()
{
    CoreClockCollector collector(QStringLiteral("CPU"));
    SensorTrees trees;
    QVERIFY(collector.collect(0, trees));
    const QJsonObject clocks = trees.tree(Query::CpuInfo);
    QVERIFY(!clocks.isEmpty() && clocks.size() <= QThread::idealThreadCount());
    for (int core = 0; core < clocks.size(); ++core) {
        const double megahertz = value(clocks, QStringLiteral("Core %1 Clock").arg(core));
        QVERIFY2(megahertz >= 100 && megahertz <= 10000, qPrintable(QString::number(megahertz)));
    }
    QCOMPARE(trees.tree(Query::AllSensorsData).value(QStringLiteral("CPU")).toObject(), clocks);
}

void LiveMachineTest::groupBearsTheProcessorsName()
{
    LiveSource source;
    QVERIFY(source.open());
    const QString model = cpuModel({});
    QVERIFY(!model.isEmpty());
    QCOMPARE(model, model.simplified());
    QVERIFY(source.tree(Query::AllSensorsData).contains(QStringLiteral("CPU [#0]: ") + model));
}

void LiveMachineTest::drivesHaveNamesOfTheirOwn()
{
    QStringList places;
    for (const StorageDrive &drive : storageDrives()) {
        QVERIFY(!places.contains(drive.place));
        QVERIFY(drive.place.startsWith(QStringLiteral("PhysicalDrive")));
        QVERIFY(drive.celsius.value_or(20) >= 0 && drive.celsius.value_or(20) <= 140);
        places += drive.place;
    }
    if (places.isEmpty())
        QSKIP("This machine shows no drives");
}

void LiveMachineTest::nvidiaLibraryIsTheSystems()
{
    const QFileInfo library(thisMachine().nvidiaLibrary);
    QCOMPARE(library.fileName(), QStringLiteral("nvml.dll"));
    QVERIFY(library.isAbsolute());
    QVERIFY(library.dir().exists(QStringLiteral("kernel32.dll")));
}

void LiveMachineTest::nothingSleepsThatIsNotThere()
{
    if (QFileInfo::exists(thisMachine().nvidiaLibrary))
        QSKIP("This machine may have an NVIDIA GPU");
    const std::vector<NvidiaDevice> devices = NvidiaDevices({}).look(0);
    QCOMPARE(devices.size(), std::size_t{1});
    QVERIFY(devices.front().address.isEmpty());
    QVERIFY(!devices.front().sleeps);
}

QTEST_GUILESS_MAIN(LiveMachineTest)
#include "tst_livemachine_windows.moc"
