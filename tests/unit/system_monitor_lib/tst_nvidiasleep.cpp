#include "system_monitor_lib/live/NvidiaGpus.h"
#include "tests/unit/system_monitor_lib/files.h"

#include <QLibrary>
#include <QTemporaryDir>
#include <QtTest>

namespace {

constexpr qint64 second = 1'000'000'000;

const QString library = QStringLiteral(NVIDIA_LIBRARY);
const QString status =
    QStringLiteral("sys/bus/pci/drivers/nvidia/0000:09:00.0/power/runtime_status");

/// How many users the library has initialised.
int inUse()
{
    const auto function = reinterpret_cast<int (*)()>(QLibrary::resolve(library, "fakeNvmlInUse"));
    return function ? function() : -1;
}

} // namespace

/// A GPU whose sleep the files of the machine tell.
class NvidiaSleepTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sleepingGpuIsLetGo();
};

void NvidiaSleepTest::sleepingGpuIsLetGo()
{
    const QTemporaryDir directory;
    QVERIFY(directory.isValid());
    MachineRoots roots{directory.filePath(QStringLiteral("proc")),
                       directory.filePath(QStringLiteral("sys"))};
    roots.nvidiaLibrary = library;
    NvidiaGpus gpus(roots);
    const QString file = directory.filePath(status);
    QVERIFY(writeFile(file, "suspended\n"));
    QVERIFY(gpus.read(0).empty());
    QCOMPARE(inUse(), 0);
    QVERIFY(writeFile(file, "active\n"));
    QCOMPARE(gpus.read(second).size(), std::size_t{2});
    QVERIFY(writeFile(file, "suspended\n"));
    QVERIFY(gpus.read(2 * second).empty());
    QCOMPARE(inUse(), 0);
    QVERIFY(writeFile(file, "active\n"));
    QCOMPARE(gpus.read(3 * second).size(), std::size_t{2});
    QCOMPARE(inUse(), 1);
}

QTEST_GUILESS_MAIN(NvidiaSleepTest)
#include "tst_nvidiasleep.moc"
