#include "sensors/VqSystemMonitorLib.h"
#include "tests/support/Waits.h"
#include "tests/unit/system_monitor_lib/files.h"
#include "tests/unit/system_monitor_lib/labels.h"

#include <QTemporaryDir>
#include <QtTest>

#include <cmath>

namespace {

constexpr char recordingVariable[] = "SYSTEM_MONITOR_RECORDING";

QList<QJsonObject> allTrees(VqSystemMonitorLib &library)
{
    return {library.getSystemInfo(),    library.getMemoryTimingsInfo(), library.getCPUInfo(),
            library.getCPUDTSInfo(),    library.getCPUEnhancedInfo(),   library.getGPUInfo(),
            library.getNetworkInfo(),   library.getSMARTInfo(),         library.getPresentMon(),
            library.getAllSensorsData()};
}

bool areEmpty(const QList<QJsonObject> &trees)
{
    return std::all_of(trees.begin(), trees.end(),
                       [](const QJsonObject &tree) { return tree.isEmpty(); });
}

bool isWhole(double number)
{
    return number == std::floor(number);
}

} // namespace

/// The shared library as the program sees it.
class VqSystemMonitorLibTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void emptyWithoutInit();
    void memoryOfThisMachine();
    void loadOfThisMachine();
    void adaptersOfThisMachine();
    void groupsOfThisMachine();
    void emptyAfterDeinit();
    void canBeInitialisedAgain();
    void servesARecording();
    void emptyVariableMeansThisMachine();
    void missingRecordingFailsInit();
    void roundOfQueries();
};

void VqSystemMonitorLibTest::init()
{
    qunsetenv(recordingVariable);
}

void VqSystemMonitorLibTest::cleanup()
{
    qunsetenv(recordingVariable);
}

void VqSystemMonitorLibTest::emptyWithoutInit()
{
    VqSystemMonitorLib library(false, nullptr);
    QVERIFY(areEmpty(allTrees(library)));
    library.deinitSystemMonitorLib();
    QVERIFY(areEmpty(allTrees(library)));
}

void VqSystemMonitorLibTest::memoryOfThisMachine()
{
    VqSystemMonitorLib library(false, nullptr);
    QVERIFY(library.initSystemMonitorLib(true));
    library.getNumberOfDetectedSensors();
    const QJsonObject tree = library.getSystemInfo();
    const double load = value(tree, QStringLiteral("Physical Memory Load"));
    const double used = value(tree, QStringLiteral("Physical Memory Used"));
    const double available = value(tree, QStringLiteral("Physical Memory Available"));
    QVERIFY(load > 0 && load < 100);
    QVERIFY(used > 0 && isWhole(used));
    QVERIFY(available > 0 && isWhole(available));
    QVERIFY(std::abs(load - 100 * used / (used + available)) < 1);
}

void VqSystemMonitorLibTest::loadOfThisMachine()
{
    VqSystemMonitorLib library(false, nullptr);
    QVERIFY(library.initSystemMonitorLib(true));
    const QString usage = QStringLiteral("Total CPU Usage");
    QVERIFY(!library.getCPUInfo().contains(usage));
    QTRY_VERIFY(library.getCPUInfo().contains(usage));
    const QJsonObject tree = library.getCPUInfo();
    QVERIFY(value(tree, usage) >= 0 && value(tree, usage) <= 100);
    QCOMPARE(units(tree, usage), QStringLiteral("%"));
}

void VqSystemMonitorLibTest::adaptersOfThisMachine()
{
    VqSystemMonitorLib library(false, nullptr);
    QVERIFY(library.initSystemMonitorLib(true));
    const QStringList adapters = library.getNetworkInfo().keys();
    if (adapters.isEmpty())
        QSKIP("this machine has no physical network adapter");
    QVERIFY(!adapters.contains(QStringLiteral("lo")));
    const QString download = QStringLiteral("Current DL rate");
    const auto tree = [&] { return library.getNetworkInfo().value(adapters.first()).toObject(); };
    QTRY_VERIFY(tree().contains(download));
    QVERIFY(value(tree(), download) >= 0);
    QCOMPARE(units(tree(), download), QStringLiteral("KB/s"));
    QVERIFY(value(tree(), QStringLiteral("Current UP rate")) >= 0);
}

void VqSystemMonitorLibTest::groupsOfThisMachine()
{
    VqSystemMonitorLib library(false, nullptr);
    QVERIFY(library.initSystemMonitorLib(true));
    const QJsonObject groups = library.getAllSensorsData();
    QCOMPARE(groups.value(QStringLiteral("System: memory")).toObject(), library.getSystemInfo());
    QCOMPARE(groups.keys().filter(QStringLiteral("CPU [#0]")).size(), 1);
    QCOMPARE(groups.keys().filter(QStringLiteral("Network: ")).size(),
             library.getNetworkInfo().size());
}

void VqSystemMonitorLibTest::emptyAfterDeinit()
{
    VqSystemMonitorLib library(false, nullptr);
    QVERIFY(library.initSystemMonitorLib(true));
    QVERIFY(!areEmpty(allTrees(library)));
    library.deinitSystemMonitorLib();
    QVERIFY(areEmpty(allTrees(library)));
    library.deinitSystemMonitorLib();
}

void VqSystemMonitorLibTest::canBeInitialisedAgain()
{
    VqSystemMonitorLib library(false, nullptr);
    QVERIFY(library.initSystemMonitorLib(true));
    library.deinitSystemMonitorLib();
    QVERIFY(library.initSystemMonitorLib(false));
    QVERIFY(!library.getSystemInfo().isEmpty());
}

void VqSystemMonitorLibTest::servesARecording()
{
    const QTemporaryDir directory;
    const QString path = directory.filePath(QStringLiteral("recording.json"));
    QVERIFY(writeFile(path,
                      R"({"getGPUInfo":{"GPU [#0]: A":{"GPU Clock":[{"value":1500,"units":"MHz"}]}},
                                "getCPUDTSInfo":{"CPU Package":[{"value":51.5,"units":"C"}]}})"));
    QVERIFY(qputenv(recordingVariable, QFile::encodeName(path)));
    VqSystemMonitorLib library(false, nullptr);
    QVERIFY(library.initSystemMonitorLib(true));
    const QJsonObject gpu = library.getGPUInfo().value(QStringLiteral("GPU [#0]: A")).toObject();
    QCOMPARE(value(gpu, QStringLiteral("GPU Clock")), 1500.0);
    QCOMPARE(value(library.getCPUDTSInfo(), QStringLiteral("CPU Package")), 51.5);
    QVERIFY2(library.getSystemInfo().isEmpty(), "nothing of this machine is mixed in");

    QVERIFY(writeFile(path, R"({"getCPUDTSInfo":{"CPU Package":[{"value":60,"units":"C"}]}})"));
    QCOMPARE(value(library.getCPUDTSInfo(), QStringLiteral("CPU Package")), 60.0);
    QVERIFY(library.getGPUInfo().isEmpty());
}

void VqSystemMonitorLibTest::emptyVariableMeansThisMachine()
{
    QVERIFY(qputenv(recordingVariable, QByteArray()));
    VqSystemMonitorLib library(false, nullptr);
    QVERIFY(library.initSystemMonitorLib(true));
    QVERIFY(!library.getSystemInfo().isEmpty());
}

void VqSystemMonitorLibTest::missingRecordingFailsInit()
{
    const QTemporaryDir directory;
    const QString path = directory.filePath(QStringLiteral("recording.json"));
    QVERIFY(qputenv(recordingVariable, QFile::encodeName(path)));
    const QString line = QStringLiteral("The recording %1 cannot be read: it is missing").arg(path);
    QTest::ignoreMessage(QtWarningMsg, qUtf8Printable(line));
    VqSystemMonitorLib library(false, nullptr);
    QVERIFY(!library.initSystemMonitorLib(true));
    QVERIFY(areEmpty(allTrees(library)));
}

void VqSystemMonitorLibTest::roundOfQueries()
{
    VqSystemMonitorLib library(false, nullptr);
    QVERIFY(library.initSystemMonitorLib(true));
    QBENCHMARK
    {
        QVERIFY(!areEmpty(allTrees(library)));
    }
}

QTEST_GUILESS_MAIN(VqSystemMonitorLibTest)
#include "tst_vqsystemmonitorlib.moc"
