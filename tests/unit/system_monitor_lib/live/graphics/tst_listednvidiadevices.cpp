#include "system_monitor_lib/live/graphics/AdapterGpus.h"
#include "system_monitor_lib/live/graphics/ListedNvidiaDevices.h"
#include "system_monitor_lib/live/graphics/NvidiaGpus.h"
#include "tests/unit/system_monitor_lib/live/graphics/FakeGraphics.h"

#include <QLibrary>
#include <QtTest>

namespace {

constexpr qint64 second = 1'000'000'000;

const QString library = QStringLiteral(NVIDIA_LIBRARY);
const QString small = QStringLiteral("0000:07:00.0");
const QString smallInstance = QStringLiteral(R"(PCI\VEN_10DE&DEV_1D01&SUBSYS_1\1)");

/// How many users the library has initialised.
int inUse()
{
    const auto function = reinterpret_cast<int (*)()>(QLibrary::resolve(library, "fakeNvmlInUse"));
    return function ? function() : -1;
}

} // namespace

/// The devices of a laptop with graphics in its processor and an NVIDIA GPU that has nothing to do.
class ListedNvidiaDevicesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void treeIsNotReadWithoutLibrary_data();
    void treeIsNotReadWithoutLibrary();
    void treeIsReadRarely();
    void tellsWhatItKnows();
    void withoutDevicesTheLibraryListsThem();
    void idleGpuOfALaptopIsLetGo();
    void gpuThatStaysAwakeIsNotLetGo();
    void sleepingGpuHasAName();
    void driverIsLeftAloneWithTheLibrary();
    void countersAreReadRarelyBesideTheLibrary();

private:
    [[nodiscard]] std::unique_ptr<NvidiaDevices> devices(const QString &file) const
    {
        return std::make_unique<ListedNvidiaDevices>(file, m_power, m_cards);
    }
    [[nodiscard]] std::unique_ptr<NvidiaGpus> gpus() const
    {
        MachineRoots roots;
        roots.nvidiaLibrary = library;
        return std::make_unique<NvidiaGpus>(roots, devices(library));
    }

    FakeGraphics *m_system = nullptr;
    FakeDevices *m_tree = nullptr;
    std::shared_ptr<GraphicsCards> m_cards;
    std::shared_ptr<DisplayPower> m_power;
};

void ListedNvidiaDevicesTest::init()
{
    for (const char *const name : {"FAKE_NVML_FAIL", "FAKE_NVML_CODE", "FAKE_NVML_LOST"})
        qunsetenv(name);
    auto system = std::make_unique<FakeGraphics>();
    auto tree = std::make_unique<FakeDevices>();
    m_system = system.get();
    m_tree = tree.get();
    m_system->present = {{1, QStringLiteral("Intel"), 0x8086, 0, false},
                         {2, QStringLiteral("NVIDIA"), 0x10de, 2, false}};
    m_system->answers = {{2,
                          {{FakeGraphics::Topic::Address, addressAnswer(7, 0, 0)},
                           {FakeGraphics::Topic::Type, bytes(hybridDiscrete)}}}};
    m_tree->present = {{QStringLiteral(R"(PCI\VEN_8086&DEV_9A49\1)"), QStringLiteral("Intel"),
                        QStringLiteral("0000:00:02.0")},
                       {smallInstance, QStringLiteral("NVIDIA Small Laptop GPU"), small}};
    m_cards = std::make_shared<GraphicsCards>(std::move(system));
    m_power = std::make_shared<DisplayPower>(std::move(tree));
    QCOMPARE(inUse(), 0);
}

void ListedNvidiaDevicesTest::treeIsNotReadWithoutLibrary_data()
{
    QTest::addColumn<QString>("file");
    QTest::newRow("none") << QString();
    QTest::newRow("missing") << QStringLiteral("nothing-of-the-kind.dll");
    QTest::newRow("no library") << QStringLiteral(FIXTURES_DIRECTORY "/machines/pci.ids");
}

void ListedNvidiaDevicesTest::treeIsNotReadWithoutLibrary()
{
    QFETCH(const QString, file);
    const auto listed = devices(file);
    for (qint64 time = 0; time < 60; ++time) {
        const std::vector<NvidiaDevice> found = listed->look(time * second);
        QCOMPARE(found.size(), std::size_t{1});
        QVERIFY(found.front().address.isEmpty());
        QVERIFY(!found.front().sleeps);
    }
    QCOMPARE(m_tree->listed, 0);
    QCOMPARE(m_system->listed, 0);
}

void ListedNvidiaDevicesTest::treeIsReadRarely()
{
    const auto listed = devices(library);
    for (qint64 time = 0; time < 30; ++time)
        QCOMPARE(listed->look(time * second).front().address, small);
    QCOMPARE(m_tree->listed, 3);
    // Its power is what it is now.
    m_tree->sleeping = QStringList{smallInstance};
    QVERIFY(listed->look(29 * second).front().sleeps);
    QCOMPARE(m_tree->listed, 3);
    QCOMPARE(inUse(), 0);
}

void ListedNvidiaDevicesTest::tellsWhatItKnows()
{
    const QString other = QStringLiteral("0000:41:00.0");
    m_tree->present.push_back({QStringLiteral(R"(PCI\VEN_10DE&DEV_2504\1)"), QString(), other});
    const std::vector<NvidiaDevice> found = devices(library)->look(0);
    QCOMPARE(found.size(), std::size_t{2});
    QCOMPARE(found[0].address, small);
    QCOMPARE(found[0].pciId, QStringLiteral("10de:1d01"));
    QCOMPARE(found[0].name, QStringLiteral("NVIDIA Small Laptop GPU"));
    QVERIFY(!found[0].sleeps);
    QVERIFY(found[0].sleepsAfter.has_value());
    QCOMPARE(found[0].sleepsAfter->count(), 15 * second);
    QCOMPARE(found[1].address, other);
    QVERIFY(!found[1].sleepsAfter.has_value());
}

void ListedNvidiaDevicesTest::withoutDevicesTheLibraryListsThem()
{
    m_tree->present.clear();
    QCOMPARE(gpus()->read(0).size(), std::size_t{2});
}

void ListedNvidiaDevicesTest::idleGpuOfALaptopIsLetGo()
{
    const auto nvidia = gpus();
    const auto readAt = [&nvidia](qint64 time) { return nvidia->read(time * second).front(); };
    for (qint64 time = 0; time < 10; ++time) {
        QVERIFY(!readAt(time).isLeftAlone);
        QCOMPARE(inUse(), 1);
    }
    for (qint64 time = 10; time < 10 + 15 + 3; ++time) {
        const GpuState state = readAt(time);
        QVERIFY(state.isLeftAlone);
        QCOMPARE(state.labels.size(), 7);
        QCOMPARE(inUse(), 0);
    }
    m_tree->sleeping = QStringList{smallInstance};
    for (qint64 time = 28; time < 600; ++time) {
        QVERIFY(readAt(time).labels.isEmpty());
        QCOMPARE(inUse(), 0);
    }
    m_tree->sleeping.clear();
    QVERIFY(readAt(600).labels.isEmpty());
    QCOMPARE(readAt(602).labels.size(), 7);
    QCOMPARE(inUse(), 1);
}

void ListedNvidiaDevicesTest::gpuThatStaysAwakeIsNotLetGo()
{
    m_system->answers[2].remove(FakeGraphics::Topic::Type);
    const auto nvidia = gpus();
    for (qint64 time = 0; time < 60; ++time) {
        QVERIFY(!nvidia->read(time * second).front().isLeftAlone);
        QCOMPARE(inUse(), 1);
    }
}

void ListedNvidiaDevicesTest::sleepingGpuHasAName()
{
    m_tree->sleeping = QStringList{smallInstance};
    const std::vector<GpuState> states = gpus()->read(0);
    QCOMPARE(states.size(), std::size_t{1});
    QCOMPARE(states.front().name, QStringLiteral("NVIDIA Small Laptop GPU"));
    QCOMPARE(states.front().place, small);
    QVERIFY(states.front().isLeftAlone);
    QCOMPARE(inUse(), 0);
}

void ListedNvidiaDevicesTest::driverIsLeftAloneWithTheLibrary()
{
    m_system->answers[2][FakeGraphics::Topic::AdapterPerformance] =
        adapterPerformance(405'000'000, 0, 412);
    AdapterGpus all(gpus(), m_cards, m_power);
    for (qint64 time = 0; time < 10 + 15 + 3; ++time) {
        const GpuState state = all.read(time * second).front();
        QCOMPARE(state.place, small);
        // The library's, and the fan's speed.
        QCOMPARE(state.labels.size(), 8);
        QVERIFY(state.labels.contains(QStringLiteral("GPU Fan")));
        QCOMPARE(m_system->questions.value(2), 2 * static_cast<int>(qMin(time + 1, qint64{10})));
        QCOMPARE(inUse(), time < 10 ? 1 : 0);
    }
    m_tree->sleeping = QStringList{smallInstance};
    QVERIFY(all.read(28 * second).front().labels.isEmpty());
    QCOMPARE(m_system->questions.value(2), 20);
}

void ListedNvidiaDevicesTest::countersAreReadRarelyBesideTheLibrary()
{
    m_system->present.erase(m_system->present.begin());
    AdapterGpus all(gpus(), m_cards, m_power);
    for (qint64 time = 0; time < 5; ++time)
        QCOMPARE(all.read(time * second).size(), std::size_t{1});
    QCOMPARE(m_system->counted, 1);
    qputenv("FAKE_NVML_CODE", "3");
    qputenv("FAKE_NVML_FAIL", "Utilization");
    all.read(5 * second);
    all.read(6 * second);
    QCOMPARE(m_system->counted, 3);
    qputenv("FAKE_NVML_FAIL", "MemoryInfo");
    all.read(7 * second);
    QCOMPARE(m_system->counted, 4);
    m_tree->sleeping = QStringList{smallInstance};
    all.read(20 * second);
    QCOMPARE(m_system->counted, 4);
}

QTEST_GUILESS_MAIN(ListedNvidiaDevicesTest)
#include "tst_listednvidiadevices.moc"
