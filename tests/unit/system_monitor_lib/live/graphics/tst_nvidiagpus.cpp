#include "system_monitor_lib/live/graphics/NvidiaGpus.h"
#include "tests/unit/system_monitor_lib/labels.h"

#include <QLibrary>
#include <QTemporaryDir>
#include <QtTest>

namespace {

constexpr qint64 second = 1'000'000'000;

const QString library = QStringLiteral(NVIDIA_LIBRARY);
/// How many users the library has initialised.
int inUse()
{
    const auto function = reinterpret_cast<int (*)()>(QLibrary::resolve(library, "fakeNvmlInUse"));
    return function ? function() : -1;
}

} // namespace

class NvidiaGpusTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void whatIsNotSupportedCostsOneLabel_data();
    void whatIsNotSupportedCostsOneLabel();
    void absurdValuesAreLeftOut();
    void failingStartIsTriedAgainRarely_data();
    void failingStartIsTriedAgainRarely();
    void libraryThatIsMissingOrIncomplete_data();
    void libraryThatIsMissingOrIncomplete();
    void lostGpuLeavesTheOther();
    void lostDriverIsShutDown();
    void isShutDownAtTheEnd();

private:
    std::unique_ptr<QTemporaryDir> m_directory;
    std::unique_ptr<NvidiaGpus> m_gpus;
};

void NvidiaGpusTest::init()
{
    for (const char *const name : {"FAKE_NVML_FAIL", "FAKE_NVML_CODE", "FAKE_NVML_LOST"})
        qunsetenv(name);
    m_directory = std::make_unique<QTemporaryDir>();
    QVERIFY(m_directory->isValid());
    MachineRoots roots{m_directory->filePath(QStringLiteral("proc")),
                       m_directory->filePath(QStringLiteral("sys"))};
    roots.nvidiaLibrary = library;
    m_gpus = std::make_unique<NvidiaGpus>(roots);
    QCOMPARE(inUse(), 0);
}

void NvidiaGpusTest::cleanup()
{
    m_gpus.reset();
    m_directory.reset();
}

void NvidiaGpusTest::whatIsNotSupportedCostsOneLabel_data()
{
    QTest::addColumn<QByteArray>("function");
    QTest::addColumn<QByteArray>("code");
    QTest::addColumn<QStringList>("lost");

    const QByteArray notSupported = "3";
    QTest::newRow("temperature") << QByteArray("Temperature") << notSupported
                                 << QStringList{QStringLiteral("GPU Temperature")};
    QTest::newRow("clock") << QByteArray("GraphicsClock") << notSupported
                           << QStringList{QStringLiteral("GPU Clock")};
    QTest::newRow("memory clock") << QByteArray("MemoryClock") << notSupported
                                  << QStringList{QStringLiteral("GPU Memory Clock")};
    QTest::newRow("load") << QByteArray("Utilization") << notSupported
                          << texts({"GPU Core Load", "Graphics Memory Controller Load"});
    QTest::newRow("decoder") << QByteArray("Decoder") << notSupported
                             << texts({"Graphics Video Decode Load"});
    QTest::newRow("encoder") << QByteArray("Encoder") << notSupported
                             << texts({"Graphics Video Encode Load"});
    QTest::newRow("fan") << QByteArray("Fan") << notSupported << texts({"Graphics Fan Speed"});
    QTest::newRow("width of the link")
        << QByteArray("LinkWidth") << notSupported << texts({"Graphics Link Width"});
    QTest::newRow("generation of the link")
        << QByteArray("LinkGeneration") << notSupported << texts({"Graphics Link Generation"});
    QTest::newRow("power") << QByteArray("Power") << notSupported
                           << QStringList{QStringLiteral("GPU Power")};
    QTest::newRow("memory") << QByteArray("MemoryInfo") << notSupported
                            << QStringList{QStringLiteral("GPU Memory Allocated"),
                                           QStringLiteral("GPU Memory Total"),
                                           QStringLiteral("GPU Memory Usage")};
    QTest::newRow("no permission")
        << QByteArray("Power") << QByteArray("4") << QStringList{QStringLiteral("GPU Power")};
    QTest::newRow("unknown error") << QByteArray("Temperature") << QByteArray("999")
                                   << QStringList{QStringLiteral("GPU Temperature")};
}

void NvidiaGpusTest::whatIsNotSupportedCostsOneLabel()
{
    QFETCH(const QByteArray, function);
    QFETCH(const QByteArray, code);
    QFETCH(const QStringList, lost);
    const auto labels = [this](qint64 nowNs) {
        const GpuState state = m_gpus->read(nowNs).at(1);
        return state.labels.keys() + state.listed.keys();
    };
    QStringList expected = labels(0);
    QCOMPARE(expected.size(), 8 + 6);
    for (const QString &label : lost)
        QCOMPARE(expected.removeAll(label), 1);
    qputenv("FAKE_NVML_CODE", code);
    qputenv("FAKE_NVML_FAIL", function);
    QCOMPARE(labels(second), expected);
}

void NvidiaGpusTest::absurdValuesAreLeftOut()
{
    NvidiaReadings readings;
    readings.celsius = 255;
    readings.clockMhz = 4294967295U;
    readings.memoryClockMhz = 20'001;
    readings.loadPercent = 101;
    readings.milliwatts = 5'000'001;
    readings.memoryPercent = readings.decodePercent = readings.encodePercent = 101;
    readings.fanPercent = 101;
    readings.linkLanes = 33;
    readings.linkGeneration = 0;
    readings.memory = NvidiaReadings::Memory{1, 0};
    readings.name = QStringLiteral("GPU");
    const GpuState state = nvidiaState(readings);
    QVERIFY(state.labels.isEmpty());
    QVERIFY(state.listed.isEmpty());
    QCOMPARE(state.memory, 0.0);
    QCOMPARE(state.name, QStringLiteral("GPU"));
}

void NvidiaGpusTest::failingStartIsTriedAgainRarely_data()
{
    QTest::addColumn<QByteArray>("function");
    QTest::addColumn<QByteArray>("code");
    QTest::newRow("driver and library differ") << QByteArray("Init") << QByteArray("18");
    QTest::newRow("no driver") << QByteArray("Init") << QByteArray("9");
    QTest::newRow("no count") << QByteArray("Count") << QByteArray("999");
    QTest::newRow("no handle") << QByteArray("Handle") << QByteArray("999");
    QTest::newRow("no name") << QByteArray("Name") << QByteArray("999");
}

void NvidiaGpusTest::failingStartIsTriedAgainRarely()
{
    QFETCH(const QByteArray, function);
    QFETCH(const QByteArray, code);
    qputenv("FAKE_NVML_CODE", code);
    qputenv("FAKE_NVML_FAIL", function);
    QVERIFY(m_gpus->read(0).empty());
    QCOMPARE(inUse(), 0);
    qunsetenv("FAKE_NVML_FAIL");
    QVERIFY(m_gpus->read(29 * second).empty());
    QCOMPARE(m_gpus->read(30 * second).size(), std::size_t{2});
    QCOMPARE(inUse(), 1);
}

void NvidiaGpusTest::libraryThatIsMissingOrIncomplete_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("none wanted") << QString();
    QTest::newRow("missing") << QStringLiteral("libnothing-of-the-kind.so.1");
    QTest::newRow("another library") << QStringLiteral(OTHER_LIBRARY);
    QTest::newRow("no library") << QStringLiteral(FIXTURES_DIRECTORY "/machines/pci.ids");
}

void NvidiaGpusTest::libraryThatIsMissingOrIncomplete()
{
    QFETCH(const QString, name);
    MachineRoots roots;
    roots.nvidiaLibrary = name;
    NvidiaGpus gpus(roots);
    QVERIFY(gpus.read(0).empty());
    QVERIFY(gpus.read(60 * second).empty());
}

void NvidiaGpusTest::lostGpuLeavesTheOther()
{
    QCOMPARE(m_gpus->read(0).size(), std::size_t{2});
    qputenv("FAKE_NVML_LOST", "1");
    const std::vector<GpuState> left = m_gpus->read(second);
    QCOMPARE(left.size(), std::size_t{1});
    QCOMPARE(left.front().name, QStringLiteral("NVIDIA GeForce GT 1030"));
    QCOMPARE(m_gpus->read(40 * second).size(), std::size_t{1});
    QCOMPARE(inUse(), 1);
    qunsetenv("FAKE_NVML_LOST");
    QCOMPARE(m_gpus->read(41 * second).size(), std::size_t{2});
}

void NvidiaGpusTest::lostDriverIsShutDown()
{
    QCOMPARE(m_gpus->read(0).size(), std::size_t{2});
    qputenv("FAKE_NVML_CODE", "15");
    qputenv("FAKE_NVML_FAIL", "Temperature");
    QVERIFY(m_gpus->read(10 * second).empty());
    QCOMPARE(inUse(), 0);
    qunsetenv("FAKE_NVML_FAIL");
    QVERIFY(m_gpus->read(11 * second).empty());
    QCOMPARE(m_gpus->read(30 * second).size(), std::size_t{2});
}

void NvidiaGpusTest::isShutDownAtTheEnd()
{
    QCOMPARE(m_gpus->read(0).size(), std::size_t{2});
    QCOMPARE(inUse(), 1);
    m_gpus.reset();
    QCOMPARE(inUse(), 0);
}

QTEST_GUILESS_MAIN(NvidiaGpusTest)
#include "tst_nvidiagpus.moc"
