#include "system_monitor_lib/live/LiveSource.h"
#include "tests/support/CapturedMachine.h"
#include "tests/unit/system_monitor_lib/labels.h"

#include <QTemporaryDir>
#include <QtTest>

#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

namespace {

constexpr qint64 second = 1'000'000'000;

struct Operation
{
    const char *name;
    Query query;
};

constexpr Operation operations[] = {
    {"getSystemInfo", Query::SystemInfo},
    {"getMemoryTimingsInfo", Query::MemoryTimingsInfo},
    {"getCPUInfo", Query::CpuInfo},
    {"getCPUDTSInfo", Query::CpuDtsInfo},
    {"getCPUEnhancedInfo", Query::CpuEnhancedInfo},
    {"getGPUInfo", Query::GpuInfo},
    {"getNetworkInfo", Query::NetworkInfo},
    {"getSMARTInfo", Query::SmartInfo},
    {"getPresentMon", Query::PresentMon},
    {"getAllSensorsData", Query::AllSensorsData},
};

QStringList describe(LiveSource &source)
{
    QStringList lines;
    for (const Operation &operation : operations) {
        const QJsonObject tree = source.tree(operation.query);
        if (!tree.isEmpty())
            describe(QString::fromLatin1(operation.name), tree, lines);
    }
    for (const QString &group : source.tree(Query::AllSensorsData).keys())
        lines += QStringLiteral("group %1").arg(group);
    return lines;
}

MachineRoots rootsOf(const QString &machine, const QTemporaryDir &directory)
{
    MachineRoots roots{directory.filePath(QStringLiteral("proc")),
                       directory.filePath(QStringLiteral("sys"))};
    roots.run = directory.filePath(QStringLiteral("run"));
    roots.pciIds = QStringLiteral(FIXTURES_DIRECTORY "/machines/pci.ids");
    roots.amdIds = QStringLiteral(FIXTURES_DIRECTORY "/machines/amdgpu.ids");
    if (machine == QLatin1String("nvidia-desktop"))
        roots.nvidiaLibrary = QStringLiteral(NVIDIA_LIBRARY);
    return roots;
}

/// While it exists, this process cannot open any file.
class NoMoreFiles
{
public:
    NoMoreFiles()
    {
        ::getrlimit(RLIMIT_NOFILE, &m_before);
        // The limit is the lowest free number, so there is no free number below it.
        const int next = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
        ::close(next);
        rlimit none = m_before;
        none.rlim_cur = static_cast<rlim_t>(next);
        ::setrlimit(RLIMIT_NOFILE, &none);
    }
    ~NoMoreFiles() { ::setrlimit(RLIMIT_NOFILE, &m_before); }
    Q_DISABLE_COPY(NoMoreFiles)

    static bool isInForce() { return ::open("/dev/null", O_RDONLY | O_CLOEXEC) < 0; }

private:
    rlimit m_before = {};
};

} // namespace

class CapturedMachinesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void givesItsReadings_data();
    void givesItsReadings();
    void samplesWithoutOpeningFiles_data();
    void samplesWithoutOpeningFiles();
};

void CapturedMachinesTest::givesItsReadings_data()
{
    QTest::addColumn<QString>("machine");
    for (const char *const name : {"intel-desktop",
                                   "amd-desktop",
                                   "hybrid-laptop",
                                   "nvidia-desktop",
                                   "headless-server",
                                   "arm-board",
                                   "two-cards-desktop",
                                   "intel-and-arc-desktop",
                                   "amd-and-arc-desktop",
                                   "arm-board-two-kinds-of-cores",
                                   "old-amd-desktop",
                                   "old-intel-laptop",
                                   "intel-laptop",
                                   "old-radeon-desktop",
                                   "riscv-board",
                                   "desktop-before-linux-5.12",
                                   "container",
                                   "container-host",
                                   "hyper-v-guest",
                                   "bond-of-two",
                                   "xen-host",
                                   "router-board",
                                   "power-server",
                                   "loongarch-desktop",
                                   "zfs-server"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void CapturedMachinesTest::givesItsReadings()
{
    QFETCH(const QString, machine);
    const QTemporaryDir directory;
    QVERIFY(directory.isValid());
    QVERIFY(unpackMachine(machine, QString(), directory.path()));

    qint64 now = second;
    LiveSource source(rootsOf(machine, directory), [&now] { return now; });
    QVERIFY(source.open());
    QVERIFY(unpackMachine(machine, QStringLiteral("then"), directory.path()));
    now += 30 * second;
    source.tree(Query::SystemInfo);
    QVERIFY(unpackMachine(machine, QStringLiteral("later"), directory.path()));
    now += second;

    QCOMPARE(describe(source), readingsOf(machine, false));
}

void CapturedMachinesTest::samplesWithoutOpeningFiles_data()
{
    givesItsReadings_data();
}

void CapturedMachinesTest::samplesWithoutOpeningFiles()
{
    QFETCH(const QString, machine);
    const QTemporaryDir directory;
    QVERIFY(directory.isValid());
    QVERIFY(unpackMachine(machine, QString(), directory.path()));

    qint64 now = second;
    LiveSource source(rootsOf(machine, directory), [&now] { return now; });
    QVERIFY(source.open());
    now += second;
    source.tree(Query::SystemInfo);
    now += second;
    const QStringList before = describe(source);
    QVERIFY(before.size() > 5);

    const NoMoreFiles noMoreFiles;
    QVERIFY(NoMoreFiles::isInForce());
    // If its sleep were no longer visible, a GPU would count as awake for long enough by now.
    now += 3 * second;
    QCOMPARE(describe(source), before);
}

QTEST_GUILESS_MAIN(CapturedMachinesTest)
#include "tst_capturedmachines.moc"
