#include "system_monitor_lib/live/graphics/AdapterGpus.h"
#include "system_monitor_lib/live/graphics/GpuCollector.h"
#include "tests/unit/system_monitor_lib/labels.h"
#include "tests/unit/system_monitor_lib/live/graphics/FakeGraphics.h"

#include <QtTest>

namespace {

using Topic = FakeGraphics::Topic;

constexpr qint64 second = 1'000'000'000;
constexpr quint64 megabyte = 1024 * 1024;
constexpr quint64 large = 0x1000d;
constexpr quint64 built = 0x2000e;
const QString drawing = QStringLiteral("Graphics 3D Load");
const QString largePlace = QStringLiteral("0000:03:00.0");
const QString largeInstance = QStringLiteral(R"(PCI\VEN_1002&DEV_73BF\1)");

/// A maker's library.
class FakeLibrary : public GpuSource
{
public:
    std::vector<GpuState> read(qint64 /*nowNs*/) override { return states; }

    std::vector<GpuState> states;
};

CounterValue usedMemory(quint64 luid, double megabytes)
{
    return {QStringLiteral("luid_0x00000000_0x%1_phys_0").arg(luid, 8, 16, QLatin1Char('0')),
            megabytes * megabyte};
}

CounterValue load(quint64 luid, double percent)
{
    return {QStringLiteral("pid_42_luid_0x00000000_0x%1_phys_0_eng_0_engtype_3D")
                .arg(luid, 8, 16, QLatin1Char('0')),
            percent};
}

QStringList sorted(QStringList labels)
{
    labels.sort();
    return labels;
}

} // namespace

/// Two cards on a system that the test plays: a large one with its own driver's answers, and one
/// that is part of the processor.
class AdapterGpusTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void readsEverything();
    void missingSourceCostsItsLabels_data();
    void missingSourceCostsItsLabels();
    void asksTheNodeThatDraws();
    void libraryComesFirst_data();
    void libraryComesFirst();
    void libraryOfAnotherCard();
    void libraryWithTwoEqualCards();
    void cardThatMayNotSleepIsAlwaysAsked();
    void idleCardIsLeftAlone();
    void cardIsNotLeftAlone_data();
    void cardIsNotLeftAlone();
    void sleepingCardIsNotAsked();
    void cardThatSleepsFromTheStartKeepsItsLabels();
    void cardThatTheLibraryLeavesAloneIsNotAsked();
    void engineThatNobodyUsesAnyMoreIsIdle();
    void idleEnginesAreListed();
    void enginesAreUnknownWithoutCounters();
    void libraryKnowsItsEnginesBest();
    void enginesAloneAreCountedRarely();
    void cardIsRemoved();
    void mostMemoryIsTheMainCard();
    void systemWithoutCards();

private:
    GpuState stateOf(const QString &name, qint64 seconds)
    {
        for (const GpuState &state : m_gpus->read(seconds * second)) {
            if (state.name == name)
                return state;
        }
        return {};
    }
    GpuState largeAt(qint64 seconds) { return stateOf(QStringLiteral("AMD Large"), seconds); }
    void makeLaptop()
    {
        m_system->answers[large][Topic::Type] = bytes(hybridDiscrete);
        m_system->engines = {load(built, 3)};
    }

    FakeGraphics *m_system = nullptr;
    FakeDevices *m_devices = nullptr;
    FakeLibrary *m_library = nullptr;
    std::unique_ptr<AdapterGpus> m_gpus;
};

void AdapterGpusTest::init()
{
    auto system = std::make_unique<FakeGraphics>();
    auto devices = std::make_unique<FakeDevices>();
    auto library = std::make_unique<FakeLibrary>();
    m_system = system.get();
    m_devices = devices.get();
    m_library = library.get();
    m_system->present = {{built, QStringLiteral("Intel Built-in"), 0x8086, 128 * megabyte, false},
                         {large, QStringLiteral("AMD Large"), 0x1002, 8192 * megabyte, false}};
    m_system->answers = {
        {built, {{Topic::Address, addressAnswer(0, 2, 0)}}},
        {large,
         {{Topic::Address, addressAnswer(3, 0, 0)},
          {Topic::NodeMetadata, nodeAnswer(1)},
          {Topic::NodePerformance, nodePerformance(2'105'000'000, 987)},
          {Topic::AdapterPerformance, adapterPerformance(1'990'000'000, 0, 555)}}}};
    m_system->engines = {load(large, 37.5), load(built, 3)};
    m_system->memory = {usedMemory(large, 2048), usedMemory(built, 0)};
    m_devices->present = {{largeInstance, QStringLiteral("AMD Large"), largePlace}};
    m_gpus = std::make_unique<AdapterGpus>(std::move(library),
                                           std::make_shared<GraphicsCards>(std::move(system)),
                                           std::make_shared<DisplayPower>(std::move(devices)));
}

void AdapterGpusTest::readsEverything()
{
    const GpuState state = largeAt(0);
    QStringList lines;
    describe(QString(), state.labels, lines);
    QCOMPARE(lines, (QStringList{QStringLiteral(" | GPU Clock = 2105 MHz"),
                                 QStringLiteral(" | GPU Core Load = 37.5 %"),
                                 QStringLiteral(" | GPU Core Voltage = 0.987 V"),
                                 QStringLiteral(" | GPU Fan = 0 RPM"),
                                 QStringLiteral(" | GPU Memory Allocated = 2048 MB"),
                                 QStringLiteral(" | GPU Memory Clock = 1990 MHz"),
                                 QStringLiteral(" | GPU Memory Total = 8192 MB"),
                                 QStringLiteral(" | GPU Memory Usage = 25 %"),
                                 QStringLiteral(" | GPU Temperature = 55.5 °C")}));
    QCOMPARE(state.place, largePlace);
    QCOMPARE(state.memory, 8192.0);
    QVERIFY(!state.isLeftAlone);
    const GpuState other = stateOf(QStringLiteral("Intel Built-in"), 0);
    QCOMPARE(other.labels.keys(),
             (QStringList{QStringLiteral("GPU Core Load"), QStringLiteral("GPU Memory Allocated"),
                          QStringLiteral("GPU Memory Total"), QStringLiteral("GPU Memory Usage")}));
    QCOMPARE(sorted(other.mayHave), other.labels.keys() + other.listed.keys());
    QCOMPARE(value(other.listed, drawing), 3.0);
    QCOMPARE(value(state.listed, drawing), 37.5);
}

void AdapterGpusTest::missingSourceCostsItsLabels_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<QStringList>("lost");
    QTest::newRow("adapter") << "adapter"
                             << QStringList{QStringLiteral("GPU Fan"),
                                            QStringLiteral("GPU Memory Clock"),
                                            QStringLiteral("GPU Temperature")};
    QTest::newRow("node") << "node"
                          << QStringList{QStringLiteral("GPU Clock"),
                                         QStringLiteral("GPU Core Voltage")};
    QTest::newRow("engines") << "engines" << QStringList{QStringLiteral("GPU Core Load")};
    QTest::newRow("memory counter")
        << "memory"
        << QStringList{QStringLiteral("GPU Memory Allocated"), QStringLiteral("GPU Memory Usage")};
    QTest::newRow("memory") << "size"
                            << QStringList{QStringLiteral("GPU Memory Allocated"),
                                           QStringLiteral("GPU Memory Total"),
                                           QStringLiteral("GPU Memory Usage")};
    QTest::newRow("node's kind") << "kind" << QStringList{};
    QTest::newRow("address") << "address" << QStringList{};
}

void AdapterGpusTest::missingSourceCostsItsLabels()
{
    QFETCH(const QString, source);
    QFETCH(const QStringList, lost);
    const QMap<QString, Topic> topics{{QStringLiteral("adapter"), Topic::AdapterPerformance},
                                      {QStringLiteral("node"), Topic::NodePerformance},
                                      {QStringLiteral("kind"), Topic::NodeMetadata},
                                      {QStringLiteral("address"), Topic::Address}};
    if (topics.contains(source))
        m_system->answers[large].remove(topics.value(source));
    else if (source == QLatin1String("engines"))
        m_system->engines.clear();
    else if (source == QLatin1String("memory"))
        m_system->memory.clear();
    else
        m_system->present[1].memoryBytes = 0;
    const QStringList labels = largeAt(0).labels.keys();
    QCOMPARE(labels.size(), 9 - lost.size());
    for (const QString &label : lost)
        QVERIFY2(!labels.contains(label), qPrintable(label));
}

void AdapterGpusTest::asksTheNodeThatDraws()
{
    m_system->firstDrawingNode = 2;
    QCOMPARE(value(largeAt(0).labels, QStringLiteral("GPU Clock")), 2105.0);
    m_system->answers[built].clear();
    m_system->present.erase(m_system->present.begin());
    m_system->lastNode = 99;
    largeAt(10);
    QCOMPARE(m_system->lastNode, 2U);
}

void AdapterGpusTest::libraryComesFirst_data()
{
    QTest::addColumn<QString>("place");
    QTest::addColumn<QString>("name");
    QTest::newRow("by address") << "0000:03:00.0"
                                << "Its own name";
    QTest::newRow("in a domain") << "0001:03:00.0"
                                 << "Its own name";
    QTest::newRow("by name") << "0"
                             << "AMD Large";
    QTest::newRow("by the end of its name") << "0"
                                            << "Large";
}

void AdapterGpusTest::libraryComesFirst()
{
    QFETCH(const QString, place);
    QFETCH(const QString, name);
    GpuState known;
    known.name = name;
    known.place = place;
    known.labels = {
        {QStringLiteral("GPU Temperature"), reading(61, QStringLiteral("°C"))},
        {QStringLiteral("GPU Core Load"), reading(12, QStringLiteral("%"))},
        {QStringLiteral("GPU Power"), reading(88.5, QStringLiteral("W"))},
    };
    known.mayHave = known.labels.keys();
    m_library->states = {known};
    const std::vector<GpuState> states = m_gpus->read(0);
    QCOMPARE(states.size(), std::size_t{2});
    const GpuState &state = states.front();
    QCOMPARE(state.name, name);
    QCOMPARE(state.place, place);
    QCOMPARE(state.labels.size(), 10);
    QCOMPARE(value(state.labels, QStringLiteral("GPU Temperature")), 61.0);
    QCOMPARE(value(state.labels, QStringLiteral("GPU Core Load")), 12.0);
    QCOMPARE(value(state.labels, QStringLiteral("GPU Power")), 88.5);
    QCOMPARE(value(state.labels, QStringLiteral("GPU Fan")), 0.0);
    QCOMPARE(value(state.labels, QStringLiteral("GPU Core Voltage")), 0.987);
    QCOMPARE(state.memory, 8192.0);
    QCOMPARE(sorted(state.mayHave), state.labels.keys() + state.listed.keys());
    QCOMPARE(value(state.listed, drawing), 37.5);
    QCOMPARE(states[1].name, QStringLiteral("Intel Built-in"));
}

void AdapterGpusTest::libraryOfAnotherCard()
{
    GpuState known;
    known.name = QStringLiteral("AMD Large");
    known.place = QStringLiteral("0000:04:00.0");
    known.labels = {{QStringLiteral("GPU Power"), reading(88.5, QStringLiteral("W"))}};
    m_library->states = {known};
    const std::vector<GpuState> states = m_gpus->read(0);
    QCOMPARE(states.size(), std::size_t{3});
    QCOMPARE(states.front().labels, known.labels);
    QCOMPARE(states[2].place, largePlace);
    QCOMPARE(states[2].labels.size(), 9);
}

void AdapterGpusTest::libraryWithTwoEqualCards()
{
    m_system->present[0].name = m_system->present[1].name;
    GpuState known;
    known.name = QStringLiteral("AMD Large");
    known.labels = {{QStringLiteral("GPU Power"), reading(88.5, QStringLiteral("W"))}};
    known.place = QStringLiteral("0");
    m_library->states = {known, known};
    m_library->states.back().place = QStringLiteral("1");
    const std::vector<GpuState> states = m_gpus->read(0);
    QCOMPARE(states.size(), std::size_t{2});
    QCOMPARE(states[0].labels.size(), 5);
    QCOMPARE(states[1].labels.size(), 10);
}

void AdapterGpusTest::cardThatMayNotSleepIsAlwaysAsked()
{
    m_system->engines = {load(large, 0)};
    for (qint64 time = 0; time < 60; ++time)
        QCOMPARE(largeAt(time).labels.size(), 9);
    QCOMPARE(m_system->questions.value(large), 2 * 60);
    QCOMPARE(m_devices->listed, 0);
    QCOMPARE(m_system->listed, 6);
}

void AdapterGpusTest::idleCardIsLeftAlone()
{
    makeLaptop();
    for (qint64 time = 0; time < 10; ++time)
        QVERIFY(!largeAt(time).isLeftAlone);
    QCOMPARE(m_system->questions.value(large), 2 * 10);
    m_system->answers[large][Topic::AdapterPerformance] = adapterPerformance(1, 1, 900);
    // As long as such a card needs to fall asleep, and the margin.
    for (qint64 time = 10; time < 10 + 15 + 3; ++time) {
        const GpuState state = largeAt(time);
        QVERIFY(state.isLeftAlone);
        QCOMPARE(value(state.labels, QStringLiteral("GPU Temperature")), 55.5);
        QCOMPARE(value(state.labels, QStringLiteral("GPU Core Load")), 0.0);
    }
    QCOMPARE(m_system->questions.value(large), 2 * 10);
    QCOMPARE(value(largeAt(28).labels, QStringLiteral("GPU Temperature")), 90.0);
    QCOMPARE(m_devices->listed, 3);
}

void AdapterGpusTest::cardIsNotLeftAlone_data()
{
    QTest::addColumn<bool>("isCounted");
    QTest::addColumn<double>("percent");
    QTest::newRow("busy") << true << 1.0;
    QTest::newRow("load unknown") << false << 0.0;
}

void AdapterGpusTest::cardIsNotLeftAlone()
{
    QFETCH(const bool, isCounted);
    QFETCH(const double, percent);
    makeLaptop();
    m_system->engines = {load(large, percent)};
    if (!isCounted)
        m_system->engines.clear();
    for (qint64 time = 0; time < 60; ++time)
        QVERIFY(!largeAt(time).isLeftAlone);
}

void AdapterGpusTest::sleepingCardIsNotAsked()
{
    makeLaptop();
    QCOMPARE(largeAt(0).labels.size(), 9);
    m_devices->sleeping = QStringList{largeInstance};
    for (qint64 time = 1; time < 30; ++time) {
        const GpuState state = largeAt(time);
        QVERIFY(state.labels.isEmpty());
        QVERIFY(state.listed.isEmpty());
        QCOMPARE(state.mayHave.size(), 10);
        QCOMPARE(state.memory, 8192.0);
    }
    QCOMPARE(m_system->questions.value(large), 2);
    m_devices->sleeping.clear();
    QVERIFY(largeAt(30).labels.isEmpty());
    QCOMPARE(m_system->questions.value(large), 2);
    QCOMPARE(largeAt(32).labels.size(), 9);
}

void AdapterGpusTest::cardThatSleepsFromTheStartKeepsItsLabels()
{
    makeLaptop();
    m_devices->sleeping = QStringList{largeInstance};
    const GpuState state = largeAt(0);
    QVERIFY(state.labels.isEmpty());
    QVERIFY(state.mayHave.contains(QStringLiteral("GPU Temperature")));
    QVERIFY(state.mayHave.contains(QStringLiteral("GPU Memory Total")));
    QVERIFY(state.mayHave.contains(QStringLiteral("Graphics Video Encode Load")));
    QVERIFY(!state.mayHave.contains(QStringLiteral("Graphics Link Width")));
    QCOMPARE(m_system->questions.value(large), 0);
}

void AdapterGpusTest::cardThatTheLibraryLeavesAloneIsNotAsked()
{
    GpuState known;
    known.name = QStringLiteral("AMD Large");
    known.place = largePlace;
    known.labels = {{QStringLiteral("GPU Power"), reading(88.5, QStringLiteral("W"))}};
    m_library->states = {known};
    QCOMPARE(largeAt(0).labels.size(), 10);
    m_library->states.front().isLeftAlone = true;
    QCOMPARE(largeAt(1).labels.size(), 10);
    QCOMPARE(m_system->questions.value(large), 2);
    m_library->states.front().labels = {};
    QVERIFY(largeAt(2).labels.isEmpty());
    QCOMPARE(m_system->questions.value(large), 2);
    m_library->states.front() = known;
    QCOMPARE(largeAt(3).labels.size(), 10);
    QCOMPARE(m_system->questions.value(large), 4);
}

void AdapterGpusTest::engineThatNobodyUsesAnyMoreIsIdle()
{
    const QString decoding = QStringLiteral("Graphics Video Decode Load");
    CounterValue decoder = load(large, 20);
    decoder.instance.replace(QStringLiteral("eng_0_engtype_3D"),
                             QStringLiteral("eng_1_engtype_VideoDecode"));
    QVERIFY(!largeAt(0).listed.contains(decoding));
    m_system->engines.push_back(decoder);
    QCOMPARE(value(largeAt(1).listed, decoding), 20.0);
    m_system->engines.pop_back();
    const GpuState state = largeAt(2);
    QCOMPARE(value(state.listed, decoding), 0.0);
    QCOMPARE(value(state.listed, drawing), 37.5);
    QVERIFY(!state.listed.contains(QStringLiteral("Graphics Video Encode Load")));
}

void AdapterGpusTest::idleEnginesAreListed()
{
    m_system->kinds = {6, 1, 2, 4, 1};
    m_system->engines = {load(built, 3)};
    const GpuState state = largeAt(0);
    QStringList lines;
    describe(QStringLiteral("g"), state.listed, lines);
    QCOMPARE(lines, texts({"g | Graphics 3D Load = 0 %", "g | Graphics Copy Load = 0 %",
                           "g | Graphics Video Decode Load = 0 %"}));
    QCOMPARE(sorted(state.mayHave), state.labels.keys() + state.listed.keys());
}

void AdapterGpusTest::enginesAreUnknownWithoutCounters()
{
    QVERIFY(largeAt(0).listed.contains(drawing));
    m_system->engines.clear();
    const GpuState state = largeAt(1);
    QVERIFY(state.listed.isEmpty());
    QVERIFY(state.mayHave.contains(drawing));
}

void AdapterGpusTest::libraryKnowsItsEnginesBest()
{
    GpuState known;
    known.name = QStringLiteral("AMD Large");
    known.place = largePlace;
    known.listed = {{drawing, reading(5, QStringLiteral("%"))}};
    known.labels = {{QStringLiteral("GPU Power"), reading(88.5, QStringLiteral("W"))}};
    m_library->states = {known};
    QCOMPARE(value(largeAt(0).listed, drawing), 5.0);
    m_library->states.front().listed = {};
    QCOMPARE(value(largeAt(1).listed, drawing), 37.5);
}

void AdapterGpusTest::enginesAloneAreCountedRarely()
{
    m_system->present.erase(m_system->present.begin());
    GpuState known;
    known.name = QStringLiteral("AMD Large");
    known.place = largePlace;
    for (const char *const label : {"GPU Core Load", "GPU Memory Allocated"})
        known.labels.insert(QString::fromLatin1(label), reading(1, QString()));
    m_library->states = {known};
    for (qint64 time = 0; time < 10; ++time)
        QCOMPARE(value(largeAt(time).listed, drawing), 37.5);
    QCOMPARE(m_system->counted, 2);
    // Not even that while it sleeps.
    m_library->states.front().labels = {};
    m_library->states.front().isLeftAlone = true;
    for (qint64 time = 10; time < 20; ++time)
        QVERIFY(largeAt(time).listed.isEmpty());
    QCOMPARE(m_system->counted, 2);
}

void AdapterGpusTest::cardIsRemoved()
{
    QCOMPARE(m_gpus->read(0).size(), std::size_t{2});
    m_system->present.pop_back();
    QCOMPARE(m_gpus->read(10 * second).size(), std::size_t{1});
}

void AdapterGpusTest::mostMemoryIsTheMainCard()
{
    std::vector<std::unique_ptr<GpuSource>> sources;
    sources.push_back(std::move(m_gpus));
    GpuCollector collector(std::move(sources));
    SensorTrees trees;
    QVERIFY(collector.collect(0, trees));
    QCOMPARE(trees.tree(Query::GpuInfo).keys(),
             (QStringList{QStringLiteral("AMD Large"), QStringLiteral("Intel Built-in")}));
    const QJsonObject sensors = trees.allSensors();
    QCOMPARE(sensors.keys(), (QStringList{QStringLiteral("GPU [#0]: AMD Large"),
                                          QStringLiteral("GPU [#1]: Intel Built-in")}));
    QVERIFY(sensors.value(QStringLiteral("GPU [#0]: AMD Large"))
                .toObject()
                .contains(QStringLiteral("GPU Core Load")));
    QVERIFY(sensors.value(QStringLiteral("GPU [#1]: Intel Built-in"))
                .toObject()
                .contains(QStringLiteral("Intel Built-in GPU Core Load")));
}

void AdapterGpusTest::systemWithoutCards()
{
    m_system->present.clear();
    QVERIFY(m_gpus->read(0).empty());
    GpuState known;
    known.name = QStringLiteral("Computing card");
    m_library->states = {known};
    QCOMPARE(m_gpus->read(second).size(), std::size_t{1});
}

QTEST_APPLESS_MAIN(AdapterGpusTest)
#include "tst_adaptergpus.moc"
