#include "system_monitor_lib/live/graphics/NvidiaGpus.h"
#include "tests/unit/system_monitor_lib/files.h"

#include <QLibrary>
#include <QTemporaryDir>
#include <QtTest>

namespace {

constexpr qint64 second = 1'000'000'000;

const QString library = QStringLiteral(NVIDIA_LIBRARY);
const QString small = QStringLiteral("0000:07:00.0");
const QString large = QStringLiteral("0000:09:00.0");

int ask(const char *function)
{
    const auto answer = reinterpret_cast<int (*)()>(QLibrary::resolve(library, function));
    return answer ? answer() : -1;
}

/// How many users the library has initialised.
int inUse()
{
    return ask("fakeNvmlInUse");
}

/// The GPUs that cannot go to sleep, one bit for each.
int held()
{
    return ask("fakeNvmlHeld");
}

} // namespace

/// GPUs whose sleep the files of the machine show. The small one is always idle.
class NvidiaSleepTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void sleepingGpuIsLetGo();
    void gpuThatSleepsFromTheStartHasAName();
    void sleepingGpuIsNotAskedBesideOneThatIsAwake();
    void idleGpuIsLetGoForAsLongAsItNeeds();
    void idleGpuFallsAsleep();
    void idleGpuThatStaysAwakeIsAskedForMinutes();
    void busyGpuGoesOnBesideAnIdleOne();
    void isNotLetGo_data();
    void isNotLetGo();

private:
    bool put(const QString &device, const char *file, const QByteArray &content) const
    {
        return writeFile(
            m_directory->filePath(QStringLiteral("sys/bus/pci/drivers/nvidia/%1/power/%2")
                                      .arg(device, QString::fromLatin1(file))),
            content);
    }
    [[nodiscard]] bool add(const QString &device, const QByteArray &status,
                           const QByteArray &control = "auto\n") const
    {
        return put(device, "runtime_status", status) && put(device, "control", control) &&
               put(device, "autosuspend_delay_ms", "5000\n");
    }
    /// The numbers of labels of the GPUs, refreshed each second up to \a time.
    QList<int> labelsAt(qint64 time)
    {
        QList<int> labels;
        for (; m_now <= time * second; m_now += second) {
            labels.clear();
            for (const GpuState &state : m_gpus->read(m_now))
                labels += static_cast<int>(state.labels.size());
        }
        return labels;
    }

    std::unique_ptr<QTemporaryDir> m_directory;
    std::unique_ptr<NvidiaGpus> m_gpus;
    qint64 m_now = 0;
};

void NvidiaSleepTest::init()
{
    for (const char *const name : {"FAKE_NVML_FAIL", "FAKE_NVML_CODE"})
        qunsetenv(name);
    m_directory = std::make_unique<QTemporaryDir>();
    QVERIFY(m_directory->isValid());
    MachineRoots roots{m_directory->filePath(QStringLiteral("proc")),
                       m_directory->filePath(QStringLiteral("sys"))};
    roots.nvidiaLibrary = library;
    m_gpus = std::make_unique<NvidiaGpus>(roots);
    m_now = 0;
}

void NvidiaSleepTest::cleanup()
{
    m_gpus.reset();
    m_directory.reset();
}

void NvidiaSleepTest::sleepingGpuIsLetGo()
{
    QVERIFY(add(large, "suspended\n"));
    QCOMPARE(labelsAt(0), QList<int>());
    QCOMPARE(inUse(), 0);
    QVERIFY(put(large, "runtime_status", "active\n"));
    QCOMPARE(labelsAt(1), QList<int>());
    QCOMPARE(inUse(), 0);
    QCOMPARE(labelsAt(2), QList<int>{8});
    QCOMPARE(inUse(), 1);
    for (const char *const status : {"suspending\n", "suspended\n", "resuming\n"}) {
        QVERIFY(put(large, "runtime_status", status));
        QCOMPARE(labelsAt(m_now / second), QList<int>{0});
        QCOMPARE(inUse(), 0);
    }
    QVERIFY(put(large, "runtime_status", "active\n"));
    QCOMPARE(labelsAt(6), QList<int>{0});
    QCOMPARE(labelsAt(7), QList<int>{8});
}

void NvidiaSleepTest::gpuThatSleepsFromTheStartHasAName()
{
    MachineRoots roots{m_directory->filePath(QStringLiteral("proc")),
                       m_directory->filePath(QStringLiteral("sys"))};
    roots.nvidiaLibrary = library;
    roots.pciIds = m_directory->filePath(QStringLiteral("pci.ids"));
    QVERIFY(
        writeFile(roots.pciIds, "10de  NVIDIA Corporation\n\t2504  GA106 [GeForce RTX 3060]\n"));
    const QString folder = m_directory->filePath(QStringLiteral("sys/bus/pci/drivers/nvidia/%1/"));
    QVERIFY(add(large, "suspended\n"));
    QVERIFY(writeFile(folder.arg(large) + QStringLiteral("vendor"), "0x10de\n"));
    QVERIFY(writeFile(folder.arg(large) + QStringLiteral("device"), "0x2504\n"));
    QVERIFY(add(small, "suspended\n"));
    QVERIFY(writeFile(folder.arg(small) + QStringLiteral("vendor"), "0x10de\n"));
    QVERIFY(writeFile(folder.arg(small) + QStringLiteral("device"), "0x1d01\n"));
    NvidiaGpus gpus(roots);
    const std::vector<GpuState> states = gpus.read(0);
    QCOMPARE(states.size(), std::size_t{2});
    QCOMPARE(states[0].name, QStringLiteral("NVIDIA GPU 10DE:1D01"));
    QCOMPARE(states[1].name, QStringLiteral("NVIDIA GeForce RTX 3060"));
    QVERIFY(states[1].labels.isEmpty());
    QVERIFY(states[1].mayHave.contains(QStringLiteral("GPU Temperature")));
    QCOMPARE(inUse(), 0);
    QVERIFY(put(large, "runtime_status", "active\n"));
    gpus.read(second);
    QCOMPARE(gpus.read(4 * second).at(1).labels.size(), 8);
}

void NvidiaSleepTest::sleepingGpuIsNotAskedBesideOneThatIsAwake()
{
    QVERIFY(add(small, "suspended\n"));
    QVERIFY(add(large, "active\n"));
    QCOMPARE(labelsAt(30), QList<int>{8});
    QCOMPARE(held(), 2);
    QVERIFY(put(small, "runtime_status", "active\n"));
    QCOMPARE(labelsAt(32), (QList<int>{7, 8}));
    QCOMPARE(held(), 3);
    QVERIFY(put(small, "runtime_status", "suspended\n"));
    QCOMPARE(labelsAt(33), (QList<int>{0, 8}));
    QCOMPARE(held(), 2);
}

void NvidiaSleepTest::idleGpuIsLetGoForAsLongAsItNeeds()
{
    QVERIFY(add(small, "active\n"));
    QCOMPARE(labelsAt(9), QList<int>{7});
    QCOMPARE(inUse(), 1);
    QCOMPARE(labelsAt(10), QList<int>{7});
    QCOMPARE(inUse(), 0);
    // Five seconds of its own, and the margin.
    QCOMPARE(labelsAt(17), QList<int>{7});
    QCOMPARE(inUse(), 0);
    QCOMPARE(labelsAt(18), QList<int>{7});
    QCOMPARE(inUse(), 1);
}

void NvidiaSleepTest::idleGpuFallsAsleep()
{
    QVERIFY(add(small, "active\n"));
    labelsAt(15);
    QVERIFY(!m_gpus->read(15 * second).front().listed.isEmpty());
    QVERIFY(put(small, "runtime_status", "suspended\n"));
    QCOMPARE(labelsAt(16), QList<int>{0});
    QVERIFY(m_gpus->read(16 * second).front().listed.isEmpty());
    QCOMPARE(labelsAt(600), QList<int>{0});
    QCOMPARE(inUse(), 0);
    QVERIFY(put(small, "runtime_status", "active\n"));
    QCOMPARE(labelsAt(602), QList<int>{7});
    QCOMPARE(inUse(), 1);
    labelsAt(611);
    QCOMPARE(inUse(), 1);
    labelsAt(612);
    QCOMPARE(inUse(), 0);
}

void NvidiaSleepTest::idleGpuThatStaysAwakeIsAskedForMinutes()
{
    QVERIFY(add(small, "active\n"));
    labelsAt(18);
    for (qint64 time = 19; time < 18 + 300; ++time) {
        QCOMPARE(labelsAt(time), QList<int>{7});
        QCOMPARE(inUse(), 1);
    }
    QCOMPARE(labelsAt(18 + 300), QList<int>{7});
    QCOMPARE(inUse(), 0);
}

void NvidiaSleepTest::busyGpuGoesOnBesideAnIdleOne()
{
    QVERIFY(add(small, "active\n"));
    QVERIFY(add(large, "active\n"));
    QCOMPARE(labelsAt(9), (QList<int>{7, 8}));
    QCOMPARE(held(), 3);
    for (qint64 time = 10; time < 18; ++time) {
        QCOMPARE(labelsAt(time), (QList<int>{7, 8}));
        QCOMPARE(held(), 2);
    }
}

void NvidiaSleepTest::isNotLetGo_data()
{
    QTest::addColumn<QString>("device");
    QTest::addColumn<QByteArray>("control");
    QTest::addColumn<QByteArray>("delay");
    QTest::addColumn<QByteArray>("unsupported");
    const QByteArray automatic = "auto\n";
    const QByteArray delay = "5000\n";
    QTest::newRow("busy") << large << automatic << delay << QByteArray();
    QTest::newRow("must stay awake") << small << QByteArray("on\n") << delay << QByteArray();
    QTest::newRow("stays awake for ever")
        << small << automatic << QByteArray("-1\n") << QByteArray();
    QTest::newRow("stays awake for minutes")
        << small << automatic << QByteArray("60001\n") << QByteArray();
    QTest::newRow("does not tell its load")
        << small << automatic << delay << QByteArray("Utilization");
}

void NvidiaSleepTest::isNotLetGo()
{
    QFETCH(const QString, device);
    QFETCH(const QByteArray, control);
    QFETCH(const QByteArray, delay);
    QFETCH(const QByteArray, unsupported);
    qputenv("FAKE_NVML_CODE", "3");
    if (!unsupported.isEmpty())
        qputenv("FAKE_NVML_FAIL", unsupported);
    QVERIFY(add(device, "active\n", control));
    QVERIFY(put(device, "autosuspend_delay_ms", delay));
    for (qint64 time = 0; time < 60; ++time) {
        labelsAt(time);
        QCOMPARE(inUse(), 1);
    }
}

QTEST_GUILESS_MAIN(NvidiaSleepTest)
#include "tst_nvidiasleep.moc"
