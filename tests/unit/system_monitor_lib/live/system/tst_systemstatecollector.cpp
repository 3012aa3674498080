#include "system_monitor_lib/live/system/PressureCollector.h"
#include "system_monitor_lib/live/system/SystemStateCollector.h"
#include "tests/unit/system_monitor_lib/files.h"
#include "tests/unit/system_monitor_lib/labels.h"

#include <QTemporaryDir>
#include <QtTest>

namespace {

constexpr qint64 second = 1'000'000'000;

} // namespace

class SystemStateCollectorTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void givesWhatThereIs();
    void countsNowAndThen();
    void givesNothingWithoutFiles();
    void givesPressure();

private:
    [[nodiscard]] bool write(const QString &name, const QByteArray &content) const
    {
        return writeFile(m_directory->filePath(name), content);
    }
    [[nodiscard]] MachineRoots roots() const
    {
        MachineRoots roots{m_directory->filePath(QStringLiteral("proc")),
                           m_directory->filePath(QStringLiteral("sys"))};
        roots.run = m_directory->filePath(QStringLiteral("run"));
        return roots;
    }
    static QStringList lines(Collector &collector, qint64 nowNs)
    {
        SensorTrees trees;
        collector.collect(nowNs, trees);
        QStringList all;
        describe(QStringLiteral("t"), trees.allSensors(), all);
        return all;
    }

    std::unique_ptr<QTemporaryDir> m_directory;
};

void SystemStateCollectorTest::init()
{
    m_directory = std::make_unique<QTemporaryDir>();
    QVERIFY(m_directory->isValid());
}

void SystemStateCollectorTest::givesWhatThereIs()
{
    QVERIFY(write(QStringLiteral("proc/uptime"), "7200.50 100.00\n"));
    QVERIFY(write(QStringLiteral("proc/loadavg"), "0.50 0.25 0.125 1/300 4711\n"));
    for (const char *const name : {"1", "25", "4711", "self", "irq", "25x"})
        QVERIFY(write(QStringLiteral("proc/%1/stat").arg(QString::fromLatin1(name)), "x\n"));
    QVERIFY(write(QStringLiteral("run/systemd/sessions/1"), "STATE=active\nCLASS=user\n"));
    QVERIFY(write(QStringLiteral("run/systemd/sessions/c1"), "STATE=active\nCLASS=greeter\n"));
    SystemStateCollector collector(roots());
    QCOMPARE(lines(collector, second),
             texts({"t | Machine | Load Average 1 min = 0.5 ",
                    "t | Machine | Load Average 15 min = 0.125 ",
                    "t | Machine | Load Average 5 min = 0.25 ", "t | Machine | Processes = 3 ",
                    "t | Machine | Uptime = 2 h", "t | Machine | User Sessions = 1 "}));
}

void SystemStateCollectorTest::countsNowAndThen()
{
    QVERIFY(write(QStringLiteral("proc/1/stat"), "x\n"));
    SystemStateCollector collector(roots());
    QCOMPARE(lines(collector, second), texts({"t | Machine | Processes = 1 "}));
    QVERIFY(write(QStringLiteral("proc/2/stat"), "x\n"));
    QCOMPARE(lines(collector, 2 * second), texts({"t | Machine | Processes = 1 "}));
    QCOMPARE(lines(collector, 11 * second), texts({"t | Machine | Processes = 2 "}));
}

void SystemStateCollectorTest::givesNothingWithoutFiles()
{
    SystemStateCollector state(roots());
    QCOMPARE(lines(state, second), texts({"t"}));
    PressureCollector pressure(roots());
    QCOMPARE(lines(pressure, second), texts({"t"}));
}

void SystemStateCollectorTest::givesPressure()
{
    QVERIFY(write(QStringLiteral("proc/pressure/cpu"), "some avg10=1.00 avg60=0\n"));
    QVERIFY(write(QStringLiteral("proc/pressure/memory"), "some avg10=2.00 avg60=0\n"));
    QVERIFY(write(QStringLiteral("proc/pressure/io"), "some avg10=3.00 avg60=0\n"));
    PressureCollector collector(roots());
    QCOMPARE(lines(collector, second),
             texts({"t | Pressure | Disk Pressure = 3 %", "t | Pressure | Memory Pressure = 2 %",
                    "t | Pressure | Processor Pressure = 1 %"}));
    QVERIFY(write(QStringLiteral("proc/pressure/memory"), ""));
    QCOMPARE(lines(collector, 2 * second).size(), 3);
    QCOMPARE(lines(collector, 3 * second), texts({"t | Pressure | Disk Pressure = 3 %",
                                                  "t | Pressure | Processor Pressure = 1 %"}));
}

QTEST_APPLESS_MAIN(SystemStateCollectorTest)
#include "tst_systemstatecollector.moc"
