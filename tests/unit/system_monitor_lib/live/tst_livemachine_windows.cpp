#include "system_monitor_lib/live/LiveSource.h"
#include "system_monitor_lib/live/PerformanceCounter.h"
#include "system_monitor_lib/live/drives/StorageDrives.h"
#include "system_monitor_lib/live/graphics/AdapterAnswers.h"
#include "system_monitor_lib/live/graphics/DisplayDevices.h"
#include "system_monitor_lib/live/graphics/GraphicsSystem.h"
#include "system_monitor_lib/live/graphics/NvidiaDevices.h"
#include "system_monitor_lib/live/memory/MemoryPages.h"
#include "system_monitor_lib/live/network/WirelessLinks.h"
#include "system_monitor_lib/live/power/BatterySystem.h"
#include "system_monitor_lib/live/processor/CoreClockCollector.h"
#include "system_monitor_lib/live/processor/CpuModel.h"
#include "system_monitor_lib/live/processor/CpuTimesReader.h"
#include "system_monitor_lib/live/system/SystemStateReader.h"
#include "tests/support/Waits.h"
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
    void listKeepsItsRules();
    void clocksEveryCore();
    void groupBearsTheProcessorsName();
    void processorTimesAdvance();
    void everyProcessorIsTimed();
    void counterGivesAValue();
    void counterThatDoesNotExistGivesNothing_data();
    void counterThatDoesNotExistGivesNothing();
    void adaptersHaveNumbersOfTheirOwn();
    void adapterThatDoesNotExistAnswersNothing();
    void graphicsDevicesHaveAddressesOfTheirOwn();
    void drivesHaveNamesOfTheirOwn();
    void driveThatDoesNotExistIsNotOpened();
    void nvidiaLibraryIsTheSystems();
    void nothingSleepsThatIsNotThere();
    void batteriesAnswer();
    void memoryIsCountedInPages();
    void systemTellsItsState();
    void wirelessAdaptersHaveNames();
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

void LiveMachineTest::listKeepsItsRules()
{
    LiveSource source;
    QVERIFY(source.open());
    const QString processor = QStringLiteral("Processor");
    QTRY_VERIFY(source.tree(Query::AllSensorsData).contains(processor));
    const QJsonObject groups = source.tree(Query::AllSensorsData);
    QVERIFY(groups.value(processor).toObject().contains(QStringLiteral("Core #0 Load")));
    QVERIFY(groups.contains(QStringLiteral("Machine")));
    QVERIFY(groups.contains(QStringLiteral("Memory details")));
    // What a key without a choice shows: the first sensor of the last group.
    QCOMPARE(groups.keys().constLast(), QStringLiteral("System: memory"));
    QCOMPARE(groups.value(groups.keys().constLast()).toObject().keys().constFirst(),
             QStringLiteral("Physical Memory Available"));
    QSet<QString> labels;
    for (const QString &group : groups.keys()) {
        // The models are looked for by these words.
        const bool isModel = group.startsWith(QStringLiteral("CPU [#")) ||
                             group.startsWith(QStringLiteral("GPU [#"));
        QVERIFY2(isModel || !group.contains(QStringLiteral("CPU")), qPrintable(group));
        QVERIFY2(isModel || !group.contains(QStringLiteral("GPU")), qPrintable(group));
        for (const QString &label : groups.value(group).toObject().keys()) {
            QVERIFY2(!labels.contains(label), qPrintable(label));
            QVERIFY2(!label.contains(QStringLiteral("AIO Pump")), qPrintable(label));
            labels += label;
        }
    }
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

void LiveMachineTest::processorTimesAdvance()
{
    CpuTimesReader reader({});
    const std::optional<CpuTimes> first = reader.read();
    QVERIFY(first.has_value());
    QTRY_VERIFY(reader.read().value_or(*first).idle + reader.read().value_or(*first).busy >
                first->idle + first->busy);
}

void LiveMachineTest::everyProcessorIsTimed()
{
    CpuTimesReader reader({});
    QVERIFY(reader.details().cores.empty());
    reader.read();
    const CpuDetails first = reader.details();
    QVERIFY(first.modes.has_value());
    QCOMPARE(static_cast<int>(first.cores.size()), QThread::idealThreadCount());
    const auto total = [&reader] {
        reader.read();
        return reader.details().modes.value_or(CpuModes()).total;
    };
    QTRY_VERIFY(total() > first.modes->total);
}

void LiveMachineTest::counterGivesAValue()
{
    PerformanceCounter counter(QStringLiteral("\\System\\System Up Time"));
    const std::optional<double> seconds = counter.value(0);
    if (!seconds)
        QSKIP("This system has no such counter");
    QVERIFY(*seconds > 0);
}

void LiveMachineTest::counterThatDoesNotExistGivesNothing_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("set") << R"(\Nothing of the kind(_Total)\% Load)";
    QTest::newRow("counter") << R"(\System\Nothing of the kind)";
    QTest::newRow("all instances") << R"(\Nothing of the kind(*)\% Load)";
    QTest::newRow("no path") << "% Load";
    QTest::newRow("nothing") << "";
}

void LiveMachineTest::counterThatDoesNotExistGivesNothing()
{
    QFETCH(const QString, path);
    PerformanceCounter counter(path);
    for (const qint64 seconds : {0, 1, 61}) {
        QVERIFY(!counter.value(seconds * 1'000'000'000).has_value());
        QVERIFY(counter.values(seconds * 1'000'000'000).empty());
    }
}

void LiveMachineTest::adaptersHaveNumbersOfTheirOwn()
{
    const std::unique_ptr<GraphicsSystem> graphics = graphicsSystem();
    QList<quint64> luids;
    for (int pass = 0; pass < 2; ++pass) {
        luids.clear();
        for (const DisplayAdapter &adapter : graphics->adapters()) {
            QVERIFY(!luids.contains(adapter.luid));
            QCOMPARE(adapter.name, adapter.name.simplified());
            luids += adapter.luid;
        }
    }
    for (const CounterValue &load : graphics->engineLoads(0))
        QVERIFY(load.instance.contains(QStringLiteral("luid")));
    for (const CounterValue &used : graphics->memoryInUse(0))
        QVERIFY(used.instance.contains(QStringLiteral("luid")));
    if (luids.isEmpty())
        QSKIP("This machine shows no graphics adapters");
}

void LiveMachineTest::adapterThatDoesNotExistAnswersNothing()
{
    using namespace adapter_answers;
    const std::unique_ptr<GraphicsSystem> graphics = graphicsSystem();
    for (const Topic topic : {Topic::Address, Topic::Type, Topic::NodeMetadata,
                              Topic::NodePerformance, Topic::AdapterPerformance})
        QVERIFY(graphics->ask(0xffff'ffff'ffff, static_cast<quint32>(topic), question(topic))
                    .isEmpty());
}

void LiveMachineTest::graphicsDevicesHaveAddressesOfTheirOwn()
{
    const std::unique_ptr<DisplayDevices> tree = displayDevices();
    QStringList addresses;
    for (const DisplayDevice &device : tree->list()) {
        QVERIFY(!addresses.contains(device.address));
        QVERIFY(!pciIdOfInstance(device.instance).isEmpty());
        tree->sleeps(device.instance);
        addresses += device.address;
    }
    QVERIFY(!tree->sleeps(QStringLiteral("nothing of the kind")));
    if (addresses.isEmpty())
        QSKIP("This machine shows no graphics devices");
}

void LiveMachineTest::driveThatDoesNotExistIsNotOpened()
{
    QVERIFY(!storageSystem()->open(QStringLiteral("PhysicalDrive4711")));
}

void LiveMachineTest::drivesHaveNamesOfTheirOwn()
{
    QStringList places;
    StorageDrives drives(storageSystem());
    for (const StorageDrive &drive : drives.read(0)) {
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
    const std::vector<NvidiaDevice> devices = nvidiaDevices({})->look(0);
    QCOMPARE(devices.size(), std::size_t{1});
    QVERIFY(devices.front().address.isEmpty());
    QVERIFY(!devices.front().sleeps);
}

void LiveMachineTest::batteriesAnswer()
{
    const std::unique_ptr<BatterySystem> system = batterySystem();
    QCOMPARE(system->powerStatus().size(), 12);
    const std::vector<BatteryAnswers> batteries = system->batteries();
    for (const BatteryAnswers &battery : batteries) {
        const double percent = parseBattery(battery).percent.value_or(0);
        QVERIFY(percent >= 0 && percent <= 100);
    }
    if (batteries.empty())
        QSKIP("This machine shows no batteries");
}

void LiveMachineTest::memoryIsCountedInPages()
{
    const MemoryPages pages = memoryPages()(0);
    QVERIFY(pages.bytesPerPage >= 4096);
    QVERIFY(pages.cached.has_value());
    for (const MemoryPages::File &file : pages.files)
        QVERIFY(file.used <= file.total);
}

void LiveMachineTest::systemTellsItsState()
{
    const SystemState state = systemStateReader()();
    QVERIFY(state.uptimeSeconds.value_or(0) > 0);
    QVERIFY(state.processes.value_or(0) > 0);
    if (!state.sessions)
        QSKIP("This machine does not tell its sessions");
    QVERIFY(*state.sessions <= 1000);
}

void LiveMachineTest::wirelessAdaptersHaveNames()
{
    const std::unique_ptr<WirelessLinks> links = wirelessLinks();
    std::vector<WirelessLink> found;
    for (const qint64 seconds : {0, 1, 61})
        found = links->read(seconds * 1'000'000'000);
    for (const WirelessLink &link : found) {
        QVERIFY(!link.adapter.isEmpty());
        QVERIFY(link.isConnected || !link.dbm);
    }
    if (found.empty())
        QSKIP("This machine shows no wireless adapters");
}

QTEST_GUILESS_MAIN(LiveMachineTest)
#include "tst_livemachine_windows.moc"
