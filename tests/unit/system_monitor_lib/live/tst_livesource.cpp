#include "system_monitor_lib/live/LiveSource.h"
#include "tests/unit/system_monitor_lib/files.h"
#include "tests/unit/system_monitor_lib/labels.h"

#include <QTemporaryDir>
#include <QtTest>

namespace {

constexpr qint64 second = 1'000'000'000;
constexpr qint64 millisecond = 1'000'000;

const QString usage = QStringLiteral("Total CPU Usage");
const QString memoryLoad = QStringLiteral("Physical Memory Load");
const QString upRate = QStringLiteral("Current UP rate");
const QString downRate = QStringLiteral("Current DL rate");
/// The group of a processor whose name and cores are unknown.
const QString nameless = QStringLiteral("CPU [#0]: ") + QSysInfo::currentCpuArchitecture();
const QString eth0 = QStringLiteral("eth0");
const QString groupOfEth0 = QStringLiteral("Network: eth0");
const QString linkSpeed = QStringLiteral("Adapter Link Speed");

/// A machine whose /proc and /sys are folders, and whose clock only advances when it is told to.
class Machine
{
public:
    const QTemporaryDir directory;
    qint64 now = 5 * second;

    [[nodiscard]] MachineRoots roots() const
    {
        return {path(QStringLiteral("proc")), path(QStringLiteral("sys"))};
    }

    [[nodiscard]] QString path(const QString &name) const { return directory.filePath(name); }

    [[nodiscard]] bool setCpu(quint64 busy, quint64 idle) const
    {
        return writeFile(
            path(QStringLiteral("proc/stat")),
            QStringLiteral("cpu  %1 0 0 %2 0 0 0 0 0 0\n").arg(busy).arg(idle).toLatin1());
    }

    [[nodiscard]] bool setMemory(quint64 total, quint64 available) const
    {
        return writeFile(path(QStringLiteral("proc/meminfo")),
                         QStringLiteral("MemTotal: %1 kB\nMemAvailable: %2 kB\n")
                             .arg(total)
                             .arg(available)
                             .toLatin1());
    }

    [[nodiscard]] QString adapter(const QString &name) const
    {
        return path(QStringLiteral("sys/class/net/") + name);
    }

    [[nodiscard]] bool setCounters(const QString &name, quint64 received, quint64 sent) const
    {
        const QString statistics = adapter(name) + QStringLiteral("/statistics");
        return writeFile(statistics + QStringLiteral("/rx_bytes"),
                         QByteArray::number(received) + '\n') &&
               writeFile(statistics + QStringLiteral("/tx_bytes"), QByteArray::number(sent) + '\n');
    }

    [[nodiscard]] bool addAdapter(const QString &name, quint64 received, quint64 sent) const
    {
        return QDir().mkpath(adapter(name) + QStringLiteral("/device")) &&
               setCounters(name, received, sent);
    }

    [[nodiscard]] bool setLinkSpeed(const QString &name, const QByteArray &megabits) const
    {
        return writeFile(adapter(name) + QStringLiteral("/speed"), megabits);
    }

    [[nodiscard]] bool removeAdapter(const QString &name) const
    {
        return QDir(adapter(name)).removeRecursively();
    }

    /// A usual machine: a processor, memory and one adapter.
    [[nodiscard]] bool setUp() const
    {
        return setCpu(1000, 9000) && setMemory(8192000, 6144000) && addAdapter(eth0, 1000, 2000);
    }
};

} // namespace

class LiveSourceTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void opensWhatCanBeRead_data();
    void opensWhatCanBeRead();
    void capturedMachineHasItsGroups();
    void processorWithoutANameIsDescribed();
    void firstSampleHasNoRates();
    void secondSampleHasRates();
    void groupsHoldTheSameLabels();
    void otherQueriesAreEmpty();

    void queriesOfOneTickShareASample();
    void slowSampleIsSharedToo();
    void sampleIsRenewedByAnyQuery();
    void clockGoingBackRenewsTheSample();

    void slowReadingsAreNotAskedForAgainAtOnce();

    void brokenFileGivesNoLabel_data();
    void brokenFileGivesNoLabel();
    void vanishedFilesComeBack();
    void sleepGivesNoRates();
    void countersGoingBackGiveNoRates();
    void zeroTrafficIsAReading();

    void virtualAdaptersAreLeftOut();
    void adapterComesAndGoes();
    void adapterReplacedBetweenSamples();
    void listingOfAdaptersComesAndGoes();
    void adapterWithUnreadableCountersIsLeftOut_data();
    void adapterWithUnreadableCountersIsLeftOut();
    void jumpAboveTheLinkSpeedIsDropped_data();
    void jumpAboveTheLinkSpeedIsDropped();
    void linkThatBecameFasterIsAskedAgain();
    void emulatedAdapterMayBeFasterThanItSays();
    void adapterHasItsOtherFigures();
    void linkSpeedIsNotAskedForInVain_data();
    void linkSpeedIsNotAskedForInVain();
    void linkSpeedIsAskedForNowAndThen();
    void coresHaveTheirLoads();

private:
    QJsonObject network(const QString &adapter = eth0)
    {
        return m_source->tree(Query::NetworkInfo).value(adapter).toObject();
    }

    QJsonObject group(const QString &name)
    {
        return m_source->tree(Query::AllSensorsData).value(name).toObject();
    }

    std::unique_ptr<Machine> m_machine;
    std::unique_ptr<LiveSource> m_source;
};

void LiveSourceTest::init()
{
    m_machine = std::make_unique<Machine>();
    QVERIFY(m_machine->directory.isValid());
    QVERIFY(m_machine->setUp());
    Machine *const machine = m_machine.get();
    m_source = std::make_unique<LiveSource>(machine->roots(), [machine] { return machine->now; });
}

void LiveSourceTest::cleanup()
{
    m_source.reset();
    m_machine.reset();
}

void LiveSourceTest::opensWhatCanBeRead_data()
{
    QTest::addColumn<QStringList>("removed");
    QTest::addColumn<bool>("opens");

    const QString stat = QStringLiteral("proc/stat");
    const QString meminfo = QStringLiteral("proc/meminfo");
    const QString adapters = QStringLiteral("sys/class/net");
    QTest::newRow("all") << QStringList() << true;
    QTest::newRow("no processor") << QStringList{stat} << true;
    QTest::newRow("no memory") << QStringList{meminfo} << true;
    QTest::newRow("no adapters") << QStringList{adapters} << true;
    QTest::newRow("processor only") << QStringList{meminfo, adapters} << true;
    QTest::newRow("nothing") << QStringList{stat, meminfo, adapters} << false;
}

void LiveSourceTest::opensWhatCanBeRead()
{
    QFETCH(const QStringList, removed);
    QFETCH(const bool, opens);
    for (const QString &name : removed) {
        const QString path = m_machine->path(name);
        QVERIFY(QFileInfo(path).isDir() ? QDir(path).removeRecursively() : QFile::remove(path));
    }
    if (!opens)
        QTest::ignoreMessage(QtWarningMsg, "No readings of this machine can be read");
    QCOMPARE(m_source->open(), opens);
}

void LiveSourceTest::capturedMachineHasItsGroups()
{
    const QString fixtures = QStringLiteral(FIXTURES_DIRECTORY);
    LiveSource source({fixtures + QStringLiteral("/proc/virtual-machine-epyc"),
                       fixtures + QStringLiteral("/sys/virtual-machine-virtio")},
                      [] { return second; });
    QVERIFY(source.open());
    const QStringList expected{QStringLiteral("CPU [#0]: AMD EPYC"),
                               QStringLiteral("Memory details"), QStringLiteral("Network: eth0"),
                               QStringLiteral("System: memory")};
    QCOMPARE(source.tree(Query::AllSensorsData).keys(), expected);
    QCOMPARE(source.tree(Query::NetworkInfo).keys(), QStringList{eth0});
    const QJsonObject memory = source.tree(Query::SystemInfo);
    QCOMPARE(value(memory, QStringLiteral("Physical Memory Used")), 574.0);
    QCOMPARE(value(memory, QStringLiteral("Physical Memory Available")), 23532.0);
}

void LiveSourceTest::processorWithoutANameIsDescribed()
{
    const QString start = QStringLiteral("CPU [#0]: %1").arg(QSysInfo::currentCpuArchitecture());
    QVERIFY(m_source->open());
    QCOMPARE(m_source->tree(Query::AllSensorsData).keys().constFirst(), start);
    const QString siblings = m_machine->path(
        QStringLiteral("sys/devices/system/cpu/cpu%1/topology/thread_siblings_list"));
    QVERIFY(writeFile(siblings.arg(0), "0-1\n"));
    QVERIFY(m_source->open());
    QCOMPARE(m_source->tree(Query::AllSensorsData).keys().constFirst(),
             start + QStringLiteral(", 1 core"));
    QVERIFY(writeFile(siblings.arg(1), "0-1\n"));
    QVERIFY(writeFile(siblings.arg(2), "2\n"));
    QVERIFY(m_source->open());
    QCOMPARE(m_source->tree(Query::AllSensorsData).keys().constFirst(),
             start + QStringLiteral(", 2 cores"));
}

void LiveSourceTest::firstSampleHasNoRates()
{
    QVERIFY(m_source->open());
    QVERIFY(m_source->tree(Query::CpuInfo).isEmpty());
    QVERIFY(m_source->tree(Query::NetworkInfo).contains(eth0));
    QVERIFY(network().isEmpty());
    QCOMPARE(value(m_source->tree(Query::SystemInfo), memoryLoad), 25.0);
}

void LiveSourceTest::secondSampleHasRates()
{
    QVERIFY(m_source->open());
    m_machine->now += 2 * second;
    QVERIFY(m_machine->setCpu(1050, 9150));
    QVERIFY(m_machine->setCounters(eth0, 1000 + 4096, 2000 + 1024));

    const QJsonObject cpu = m_source->tree(Query::CpuInfo);
    QCOMPARE(cpu.keys(), QStringList{usage});
    QCOMPARE(value(cpu, usage), 25.0);
    QCOMPARE(units(cpu, usage), QStringLiteral("%"));
    QCOMPARE(value(network(), downRate), 2.0);
    QCOMPARE(value(network(), upRate), 0.5);
    QCOMPARE(units(network(), downRate), QStringLiteral("KB/s"));
    QCOMPARE(units(network(), upRate), QStringLiteral("KB/s"));
}

void LiveSourceTest::groupsHoldTheSameLabels()
{
    QVERIFY(m_source->open());
    m_machine->now += second;
    QVERIFY(m_machine->setCpu(1100, 9100));
    const QJsonObject all = m_source->tree(Query::AllSensorsData);
    QCOMPARE(all.value(nameless).toObject(), m_source->tree(Query::CpuInfo));
    QCOMPARE(all.value(QStringLiteral("System: memory")).toObject(),
             m_source->tree(Query::SystemInfo));
    const QJsonObject adapter = all.value(QStringLiteral("Network: eth0")).toObject();
    for (const QString &label : {upRate, downRate})
        QCOMPARE(adapter.value(label), network().value(label));
    QCOMPARE(network().keys(), (QStringList{downRate, upRate}));
    QCOMPARE(value(m_source->tree(Query::CpuInfo), usage), 50.0);
}

void LiveSourceTest::otherQueriesAreEmpty()
{
    QVERIFY(m_source->open());
    m_machine->now += second;
    for (const Query query : {Query::MemoryTimingsInfo, Query::CpuDtsInfo, Query::CpuEnhancedInfo,
                              Query::GpuInfo, Query::SmartInfo, Query::PresentMon})
        QVERIFY(m_source->tree(query).isEmpty());
}

void LiveSourceTest::queriesOfOneTickShareASample()
{
    QVERIFY(m_source->open());
    QVERIFY(m_machine->setMemory(8192000, 2048000));
    m_machine->now += 250 * millisecond;
    QCOMPARE(value(m_source->tree(Query::SystemInfo), memoryLoad), 25.0);
    m_machine->now += 1;
    QCOMPARE(value(m_source->tree(Query::SystemInfo), memoryLoad), 75.0);
}

void LiveSourceTest::slowSampleIsSharedToo()
{
    // The clock advances by 15 ms with each query, so all collectors together look slow.
    LiveSource source(m_machine->roots(), [this] { return m_machine->now += 15 * millisecond; });
    QVERIFY(source.open());
    m_machine->now += second;
    QVERIFY(m_machine->setMemory(8192000, 2048000));
    const qint64 before = m_machine->now;
    QCOMPARE(value(source.tree(Query::SystemInfo), memoryLoad), 75.0);
    QVERIFY(m_machine->now - before > LiveSource::freshness.count());
    QVERIFY(m_machine->setMemory(8192000, 4096000));
    QCOMPARE(value(source.tree(Query::SystemInfo), memoryLoad), 75.0);
    m_machine->now += second;
    QCOMPARE(value(source.tree(Query::SystemInfo), memoryLoad), 50.0);
}

void LiveSourceTest::sampleIsRenewedByAnyQuery()
{
    QVERIFY(m_source->open());
    QVERIFY(m_machine->setMemory(8192000, 2048000));
    m_machine->now += second;
    QVERIFY(m_source->tree(Query::PresentMon).isEmpty());
    QVERIFY(m_machine->setMemory(8192000, 4096000));
    QCOMPARE(value(m_source->tree(Query::SystemInfo), memoryLoad), 75.0);
}

void LiveSourceTest::clockGoingBackRenewsTheSample()
{
    QVERIFY(m_source->open());
    QVERIFY(m_machine->setMemory(8192000, 2048000));
    m_machine->now -= second;
    QCOMPARE(value(m_source->tree(Query::SystemInfo), memoryLoad), 75.0);
    QVERIFY(m_source->tree(Query::CpuInfo).isEmpty());
    QVERIFY(network().isEmpty());
}

void LiveSourceTest::slowReadingsAreNotAskedForAgainAtOnce()
{
    // The clock advances by 100 ms with each query, so every collector looks slow.
    LiveSource source(m_machine->roots(), [this] { return m_machine->now += 100 * millisecond; });
    QVERIFY(source.open());
    m_machine->now += second;
    source.tree(Query::SystemInfo);
    QVERIFY(m_machine->setMemory(8192000, 2048000));
    m_machine->now += second;
    QCOMPARE(value(source.tree(Query::SystemInfo), memoryLoad), 25.0);
    m_machine->now += 10 * second;
    QCOMPARE(value(source.tree(Query::SystemInfo), memoryLoad), 75.0);
}

void LiveSourceTest::brokenFileGivesNoLabel_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("cut") << QByteArray("cpu  10");
    QTest::newRow("letters") << QByteArray("cpu  a b c d\nMemTotal: e kB\nMemAvailable: f kB\n");
    QTest::newRow("zero bytes") << QByteArray(4000, '\0');
    QTest::newRow("huge") << QByteArray(1024 * 1024, '9');
}

void LiveSourceTest::brokenFileGivesNoLabel()
{
    QFETCH(const QByteArray, content);
    QVERIFY(m_source->open());
    QVERIFY(writeFile(m_machine->path(QStringLiteral("proc/stat")), content));
    QVERIFY(writeFile(m_machine->path(QStringLiteral("proc/meminfo")), content));
    QVERIFY(writeFile(m_machine->adapter(eth0) + QStringLiteral("/statistics/rx_bytes"), content));
    m_machine->now += second;
    QVERIFY(m_source->tree(Query::CpuInfo).isEmpty());
    QVERIFY(m_source->tree(Query::SystemInfo).isEmpty());
    QVERIFY(m_source->tree(Query::NetworkInfo).isEmpty());
    QCOMPARE(m_source->tree(Query::AllSensorsData).keys(), QStringList{nameless});
}

void LiveSourceTest::vanishedFilesComeBack()
{
    QVERIFY(m_source->open());
    QVERIFY(QFile::remove(m_machine->path(QStringLiteral("proc/stat"))));
    QVERIFY(QFile::remove(m_machine->path(QStringLiteral("proc/meminfo"))));
    m_machine->now += second;
    QVERIFY(m_source->tree(Query::CpuInfo).isEmpty());
    QVERIFY(m_source->tree(Query::SystemInfo).isEmpty());

    QVERIFY(m_machine->setUp());
    QVERIFY(m_machine->setCpu(1100, 9100));
    m_machine->now += second;
    QVERIFY2(m_source->tree(Query::CpuInfo).isEmpty(), "a first sample again");
    QCOMPARE(value(m_source->tree(Query::SystemInfo), memoryLoad), 25.0);

    QVERIFY(m_machine->setCpu(1200, 9200));
    m_machine->now += second;
    QCOMPARE(value(m_source->tree(Query::CpuInfo), usage), 50.0);
}

void LiveSourceTest::sleepGivesNoRates()
{
    QVERIFY(m_source->open());
    m_machine->now += 3600 * second;
    QVERIFY(m_machine->setCpu(1100, 9100));
    QVERIFY(m_machine->setCounters(eth0, 500000, 500000));
    QVERIFY(m_source->tree(Query::CpuInfo).isEmpty());
    QVERIFY(network().isEmpty());

    m_machine->now += second;
    QVERIFY(m_machine->setCpu(1110, 9190));
    QVERIFY(m_machine->setCounters(eth0, 501024, 500000));
    QCOMPARE(value(m_source->tree(Query::CpuInfo), usage), 10.0);
    QCOMPARE(value(network(), downRate), 1.0);
}

void LiveSourceTest::countersGoingBackGiveNoRates()
{
    QVERIFY(m_source->open());
    m_machine->now += second;
    QVERIFY(m_machine->setCpu(10, 90));
    QVERIFY(m_machine->setCounters(eth0, 10, 2000 + 1024));
    QVERIFY(m_source->tree(Query::CpuInfo).isEmpty());
    QCOMPARE(network().keys(), QStringList{upRate});

    m_machine->now += second;
    QVERIFY(m_machine->setCpu(20, 180));
    QVERIFY(m_machine->setCounters(eth0, 10 + 1024, 2000 + 1024));
    QCOMPARE(value(m_source->tree(Query::CpuInfo), usage), 10.0);
    QCOMPARE(value(network(), downRate), 1.0);
}

void LiveSourceTest::zeroTrafficIsAReading()
{
    QVERIFY(m_source->open());
    m_machine->now += second;
    QCOMPARE(value(network(), downRate), 0.0);
    QCOMPARE(value(network(), upRate), 0.0);
}

void LiveSourceTest::virtualAdaptersAreLeftOut()
{
    QVERIFY(m_machine->setCounters(QStringLiteral("lo"), 5, 5));
    QVERIFY(m_machine->addAdapter(QStringLiteral("wlan0"), 5, 5));
    QVERIFY(writeFile(m_machine->path(QStringLiteral("sys/class/net/bonding_masters")), "\n"));
    QVERIFY(m_source->open());
    const QStringList expected{eth0, QStringLiteral("wlan0")};
    QCOMPARE(m_source->tree(Query::NetworkInfo).keys(), expected);
    m_machine->now += second;
    QCOMPARE(m_source->tree(Query::NetworkInfo).keys(), expected);
}

void LiveSourceTest::adapterComesAndGoes()
{
    const QString usb0 = QStringLiteral("usb0");
    QVERIFY(m_source->open());
    QVERIFY(m_machine->addAdapter(usb0, 1024, 0));
    m_machine->now += second;
    QVERIFY(m_source->tree(Query::NetworkInfo).contains(usb0));
    QVERIFY(network(usb0).isEmpty());
    QCOMPARE(value(network(), downRate), 0.0);

    QVERIFY(m_machine->setCounters(usb0, 2048, 0));
    m_machine->now += second;
    QCOMPARE(value(network(usb0), downRate), 1.0);

    QVERIFY(m_machine->removeAdapter(usb0));
    m_machine->now += second;
    QCOMPARE(m_source->tree(Query::NetworkInfo).keys(), QStringList{eth0});

    QVERIFY(m_machine->addAdapter(usb0, 900000, 0));
    m_machine->now += second;
    QVERIFY2(network(usb0).isEmpty(), "the old counters left with the adapter");
    QVERIFY(m_machine->setCounters(usb0, 900000 + 3072, 0));
    m_machine->now += second;
    QCOMPARE(value(network(usb0), downRate), 3.0);
}

void LiveSourceTest::adapterReplacedBetweenSamples()
{
    QVERIFY(m_source->open());
    // Both exist for a moment, so that the new folder cannot get the old one's inode.
    QVERIFY(m_machine->addAdapter(QStringLiteral("next"), 900000, 900000));
    QVERIFY(m_machine->removeAdapter(eth0));
    QVERIFY(QDir().rename(m_machine->adapter(QStringLiteral("next")), m_machine->adapter(eth0)));
    m_machine->now += second;
    QVERIFY(m_source->tree(Query::NetworkInfo).contains(eth0));
    QVERIFY(network().isEmpty());

    QVERIFY(m_machine->setCounters(eth0, 900000 + 1024, 900000));
    m_machine->now += second;
    QCOMPARE(value(network(), downRate), 1.0);
}

void LiveSourceTest::listingOfAdaptersComesAndGoes()
{
    QVERIFY(m_source->open());
    QVERIFY(QDir(m_machine->path(QStringLiteral("sys/class"))).removeRecursively());
    m_machine->now += second;
    QCOMPARE(network(), QJsonObject());
    const QString wlan0 = QStringLiteral("wlan0");
    QVERIFY(m_machine->addAdapter(wlan0, 5, 5));
    m_machine->now += second;
    QCOMPARE(m_source->tree(Query::NetworkInfo).keys(), QStringList{wlan0});
}

void LiveSourceTest::adapterWithUnreadableCountersIsLeftOut_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("letters") << QByteArray("none\n");
    QTest::newRow("absurdly large") << QByteArray("99999999999999999999\n");
}

void LiveSourceTest::adapterWithUnreadableCountersIsLeftOut()
{
    QFETCH(const QByteArray, content);
    QVERIFY(m_source->open());
    QVERIFY(writeFile(m_machine->adapter(eth0) + QStringLiteral("/statistics/tx_bytes"), content));
    m_machine->now += second;
    QVERIFY(m_source->tree(Query::NetworkInfo).isEmpty());
    QVERIFY(m_machine->setCounters(eth0, 1000, 2000));
    m_machine->now += second;
    QVERIFY(network().isEmpty());
    m_machine->now += second;
    QCOMPARE(value(network(), downRate), 0.0);
}

void LiveSourceTest::jumpAboveTheLinkSpeedIsDropped_data()
{
    QTest::addColumn<QByteArray>("megabits");
    QTest::addColumn<quint64>("step");
    QTest::addColumn<bool>("shown");

    constexpr quint64 hundredMegabit = 12'500'000;
    QTest::newRow("at the link's speed") << QByteArray("100\n") << hundredMegabit << true;
    QTest::newRow("two seconds' worth") << QByteArray("100\n") << 2 * hundredMegabit << true;
    QTest::newRow("impossible") << QByteArray("100\n") << 2 * hundredMegabit + 1 << false;
    QTest::newRow("absurd") << QByteArray("1000\n") << (quint64{1} << 59U) << false;
    QTest::newRow("speed unknown") << QByteArray("-1\n") << 100 * hundredMegabit << true;
    QTest::newRow("speed unreadable") << QByteArray() << 100 * hundredMegabit << true;
    QTest::newRow("a link of 10 Mbit/s") << QByteArray("10\n") << hundredMegabit << false;
}

void LiveSourceTest::jumpAboveTheLinkSpeedIsDropped()
{
    QFETCH(const QByteArray, megabits);
    QFETCH(const quint64, step);
    QFETCH(const bool, shown);
    QVERIFY(m_machine->setLinkSpeed(eth0, megabits));
    QVERIFY(m_source->open());
    QVERIFY(m_machine->setCounters(eth0, 1000 + step, 2000));
    m_machine->now += second;
    QCOMPARE(network().contains(downRate), shown);
    QVERIFY(network().contains(upRate));
    if (shown)
        QCOMPARE(value(network(), downRate), static_cast<double>(step) / 1024);

    QVERIFY(m_machine->setCounters(eth0, 1000 + step + 1024, 2000));
    m_machine->now += second;
    QCOMPARE(value(network(), downRate), 1.0);
}

void LiveSourceTest::linkThatBecameFasterIsAskedAgain()
{
    constexpr quint64 gigabit = 125'000'000;
    QVERIFY(m_machine->setLinkSpeed(eth0, "100\n"));
    QVERIFY(m_source->open());
    QVERIFY(m_machine->setCounters(eth0, gigabit, 2000));
    m_machine->now += second;
    QVERIFY(!network().contains(downRate));

    QVERIFY(m_machine->setLinkSpeed(eth0, "1000\n"));
    QVERIFY(m_machine->setCounters(eth0, 2 * gigabit, 2000));
    m_machine->now += second;
    QCOMPARE(value(network(), downRate), static_cast<double>(gigabit) / 1024);
}

void LiveSourceTest::emulatedAdapterMayBeFasterThanItSays()
{
    constexpr quint64 step = 500'000'000;
    QVERIFY(m_machine->setLinkSpeed(eth0, "1000\n"));
    QVERIFY(m_source->open());
    const auto rateAfter = [this](quint64 received) {
        const bool written = m_machine->setCounters(eth0, received, 2000);
        m_machine->now += second;
        return written ? value(network(), downRate) : -2;
    };
    QCOMPARE(rateAfter(step), -1.0);
    QCOMPARE(rateAfter(2 * step), static_cast<double>(step) / 1024);
    QCOMPARE(rateAfter(2 * step + 1024), 1.0);
    QCOMPARE(rateAfter(3 * step + 1024), static_cast<double>(step) / 1024);
    QCOMPARE(rateAfter(quint64{1} << 59U), -1.0);
}

void LiveSourceTest::adapterHasItsOtherFigures()
{
    constexpr quint64 gigabyte = quint64{1} << 30U;
    QVERIFY(m_machine->setLinkSpeed(eth0, "1000\n"));
    QVERIFY(m_machine->setCounters(eth0, 2 * gigabyte, gigabyte));
    QVERIFY(m_source->open());
    QVERIFY(!group(groupOfEth0).contains(QStringLiteral("Adapter Upload Rate")));
    QVERIFY(m_machine->setCounters(eth0, 2 * gigabyte + 250'000, gigabyte + 125'000));
    m_machine->now += 2 * second;

    const QJsonObject adapter = group(groupOfEth0);
    QCOMPARE(value(adapter, QStringLiteral("Adapter Upload Rate")), 0.5);
    QCOMPARE(value(adapter, QStringLiteral("Adapter Download Rate")), 1.0);
    QCOMPARE(value(adapter, linkSpeed), 1000.0);
    QCOMPARE(qRound(value(adapter, QStringLiteral("Adapter Uploaded")) * 1000), 1000);
    QCOMPARE(qRound(value(adapter, QStringLiteral("Adapter Downloaded")) * 1000), 2000);
    QCOMPARE(network().size(), 2);
}

void LiveSourceTest::linkSpeedIsNotAskedForInVain_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<bool>("listed");
    QTest::newRow("without a link")
        << QStringLiteral("/operstate") << QByteArray("down\n") << false;
    QTest::newRow("asleep") << QStringLiteral("/device/power/runtime_status")
                            << QByteArray("suspended\n") << false;
    QTest::newRow("awake with a link")
        << QStringLiteral("/operstate") << QByteArray("up\n") << true;
}

void LiveSourceTest::linkSpeedIsNotAskedForInVain()
{
    QFETCH(const QString, file);
    QFETCH(const QByteArray, content);
    QVERIFY(m_machine->setLinkSpeed(eth0, "1000\n"));
    QVERIFY(writeFile(m_machine->adapter(eth0) + file, content));
    QVERIFY(m_source->open());
    QTEST(group(groupOfEth0).contains(linkSpeed), "listed");
}

void LiveSourceTest::linkSpeedIsAskedForNowAndThen()
{
    QVERIFY(m_machine->setLinkSpeed(eth0, "1000\n"));
    QVERIFY(m_source->open());
    QVERIFY(m_machine->setLinkSpeed(eth0, "100\n"));
    m_machine->now += second;
    QCOMPARE(value(group(groupOfEth0), linkSpeed), 1000.0);
    m_machine->now += 9 * second;
    QCOMPARE(value(group(groupOfEth0), linkSpeed), 100.0);
}

void LiveSourceTest::coresHaveTheirLoads()
{
    const QString stat = m_machine->path(QStringLiteral("proc/stat"));
    const QString processor = QStringLiteral("Processor");
    QVERIFY(writeFile(stat, "cpu  10 0 10 80 0 0 0 0\ncpu0 5 0 5 40\ncpu1 5 0 5 40\n"));
    QVERIFY(m_source->open());
    QVERIFY(!m_source->tree(Query::AllSensorsData).contains(processor));
    QVERIFY(writeFile(stat, "cpu  60 0 20 110 10 0 0 0\ncpu0 50 0 10 40\ncpu1 10 0 10 80\n"));
    m_machine->now += second;
    QStringList lines;
    describe(processor, group(processor), lines);
    QCOMPARE(lines,
             texts({"Processor | Busiest Core Load = 100 %", "Processor | Core #0 Load = 100 %",
                    "Processor | Core #1 Load = 20 %", "Processor | System Load = 10 %",
                    "Processor | User Load = 50 %", "Processor | Waiting for Disks = 10 %"}));
    QCOMPARE(m_source->tree(Query::CpuInfo).keys(), QStringList{usage});

    m_machine->now += 60 * second;
    QVERIFY(writeFile(stat, "cpu  90 0 20 180 10 0 0 0\ncpu0 60 0 10 80\ncpu1 30 0 10 100\n"));
    QVERIFY2(!m_source->tree(Query::AllSensorsData).contains(processor), "was asleep");
}

QTEST_GUILESS_MAIN(LiveSourceTest)
#include "tst_livesource.moc"
