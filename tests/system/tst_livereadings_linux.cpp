#include "tests/support/DataServerClient.h"
#include "tests/support/Json.h"
#include "tests/support/MountFolder.h"
#include "tests/support/RunningPlugin.h"
#include "tests/support/Waits.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTimer>
#include <QtTest>

#include <atomic>
#include <memory>
#include <thread>
#include <vector>

/// The readings of the machine that the plugin runs on, compared with those of the kernel.
class tst_LiveReadings_linux : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();

    void cpuUsageAgreesWithTheKernel_data();
    void cpuUsageAgreesWithTheKernel();
    void networkRatesAgreeWithTheCounters_data();
    void networkRatesAgreeWithTheCounters();

private:
    QString info(const QString &request)
    {
        return json(m_panel->ask(request).toUtf8()).value(QLatin1String("info")).toString();
    }
    bool waitForPass() const;

    std::unique_ptr<MountFolder> m_folder;
    std::unique_ptr<RunningPlugin> m_plugin;
    std::unique_ptr<DataServerClient> m_panel;
    QElapsedTimer m_clock;
    QTimer m_traffic;
};

namespace {

constexpr double receivedKilobytes = 300;
constexpr double sentKilobytes = 2048;

struct CpuTime
{
    double total = 0;
    double idle = 0;
};

CpuTime cpuTime()
{
    QFile file(QStringLiteral("/proc/stat"));
    CpuTime time;
    if (!file.open(QIODevice::ReadOnly))
        return time;
    const QStringList fields =
        QString::fromLatin1(file.readLine()).simplified().split(QLatin1Char(' '));
    // The time of guests is already included in the others.
    for (int field = 1; field <= 8; ++field)
        time.total += fields.value(field).toDouble();
    time.idle = fields.value(4).toDouble() + fields.value(5).toDouble();
    return time;
}

/// Keeps every processor busy while it exists.
class Load
{
public:
    Load()
    {
        for (unsigned each = 0; each < std::thread::hardware_concurrency(); ++each) {
            m_threads.emplace_back([this] {
                while (!m_isOver) {
                }
            });
        }
    }
    ~Load()
    {
        m_isOver = true;
        for (std::thread &thread : m_threads)
            thread.join();
    }
    Q_DISABLE_COPY(Load)

private:
    std::atomic<bool> m_isOver{false};
    std::vector<std::thread> m_threads;
};

/// Overwrites the file in place with one call, because the plugin may read it at any time.
bool writeCounter(const QString &path, qint64 value)
{
    QFile file(path);
    return file.open(QIODevice::ReadWrite | QIODevice::Unbuffered) &&
           file.write(QByteArray::number(value).rightJustified(15, '0') + '\n') == 16;
}

} // namespace

/// Replaces the machine's adapters by one with constant traffic.
void tst_LiveReadings_linux::initTestCase()
{
    m_folder = std::make_unique<MountFolder>();
    if (!m_folder->run(QStringLiteral("mkdir -p net/eth0/device net/eth0/statistics && "
                                      "mount --bind net /sys/class/net")))
        QSKIP("nothing can be mounted on this machine: the warning above says why");
    m_clock.start();
    connect(&m_traffic, &QTimer::timeout, this, [this] {
        const QString folder = m_folder->path(QStringLiteral("net/eth0/statistics/"));
        const auto bytes = [this](double kilobytes) {
            return static_cast<qint64>(kilobytes * 1.024 * double(m_clock.elapsed()));
        };
        QVERIFY(writeCounter(folder + QStringLiteral("rx_bytes"), bytes(receivedKilobytes)));
        QVERIFY(writeCounter(folder + QStringLiteral("tx_bytes"), bytes(sentKilobytes)));
    });
    m_traffic.setTimerType(Qt::PreciseTimer);
    m_traffic.start(20);

    m_plugin = std::make_unique<RunningPlugin>();
    QVERIFY(m_plugin->start());
    m_panel = std::make_unique<DataServerClient>();
    QVERIFY(m_panel->open());
}

void tst_LiveReadings_linux::cleanupTestCase()
{
    if (!m_plugin)
        return;
    QVERIFY(m_plugin->process.isRunning());
    m_panel.reset();
    m_plugin.reset();
    m_traffic.stop();
    QVERIFY(m_folder->run(QStringLiteral("umount /sys/class/net")));
}

/// Waits until the plugin has just taken new readings.
bool tst_LiveReadings_linux::waitForPass() const
{
    const auto passes = [this] {
        return m_plugin->process.timesLogged(QStringLiteral("updateImages"));
    };
    const int before = passes();
    return QTest::qWaitFor([&] { return passes() > before; }, patience);
}

void tst_LiveReadings_linux::cpuUsageAgreesWithTheKernel_data()
{
    QTest::addColumn<bool>("loaded");
    QTest::newRow("as it is") << false;
    QTest::newRow("busy") << true;
}

void tst_LiveReadings_linux::cpuUsageAgreesWithTheKernel()
{
    QFETCH(bool, loaded);
    const auto load = loaded ? std::make_unique<Load>() : nullptr;
    constexpr int rounds = 10;
    double told = -1;
    double counted = -100;
    // The samples of both lie a few milliseconds apart, or more on a busy machine.
    for (int round = 0; round < rounds && qAbs(told - counted) > 4; ++round) {
        QVERIFY(waitForPass());
        const CpuTime before = cpuTime();
        QVERIFY(waitForPass());
        const CpuTime after = cpuTime();
        const QString usage = info(QStringLiteral("Cpu Usage"));
        QVERIFY2(usage.endsWith(QLatin1Char('%')), qPrintable(usage));
        told = usage.chopped(1).toDouble();
        counted = 100 - 100 * (after.idle - before.idle) / (after.total - before.total);
    }
    QVERIFY2(qAbs(told - counted) <= 4,
             qPrintable(QStringLiteral("%1 %, counted: %2 %").arg(told).arg(counted)));
    QVERIFY2(!loaded || told >= 60, qPrintable(QString::number(told)));
}

void tst_LiveReadings_linux::networkRatesAgreeWithTheCounters_data()
{
    QTest::addColumn<QString>("request");
    QTest::addColumn<double>("rate");
    QTest::addColumn<QString>("units");
    QTest::newRow("down") << QStringLiteral("Network Download Speed") << receivedKilobytes
                          << QStringLiteral("Kb/s");
    QTest::newRow("up") << QStringLiteral("Network Upload Speed") << sentKilobytes / 1024
                        << QStringLiteral("MB/s");
}

void tst_LiveReadings_linux::networkRatesAgreeWithTheCounters()
{
    QFETCH(QString, request);
    QFETCH(double, rate);
    QFETCH(QString, units);
    const auto agrees = [&] {
        const QString text = info(request);
        return text.endsWith(units) &&
               qAbs(text.chopped(units.size()).toDouble() - rate) <= rate / 10;
    };
    QTRY_VERIFY(agrees());
}

QTEST_GUILESS_MAIN(tst_LiveReadings_linux)
#include "tst_livereadings_linux.moc"
