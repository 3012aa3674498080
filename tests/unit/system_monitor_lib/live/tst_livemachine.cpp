#include "sensors/VqSystemMonitorLib.h"

#include <QDateTime>
#include <QElapsedTimer>
#include <QFile>
#include <QJsonArray>
#include <QMap>
#include <QPair>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QtTest>

#include <atomic>
#include <thread>

namespace {

struct Counters
{
    qint64 received = 0;
    qint64 sent = 0;
};

/// Counters by adapter.
using CounterMap = QMap<QString, Counters>;

/// Counters at the beginning and at the end of an interval.
using CounterPair = QPair<CounterMap, CounterMap>;

} // namespace

/// The library's live readings of the machine that the test runs on, compared with the machine's
/// own tools and files.
class tst_LiveMachine : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void cpuLoadAgreesWithTop();
    void memoryAgreesWithFree();
    void networkAgreesWithTheKernelsCounters();
    void drivesAgreeWithTheKernelsCounters();
    void swapAgreesWithFree();
    void systemAgreesWithUptime();

private:
    VqSystemMonitorLib m_library{false, nullptr};
    CounterPair m_outerCounters;
    CounterPair m_innerCounters;
    double m_outerSeconds = 0;
    double m_innerSeconds = 0;
    QString m_topReport;
    QJsonObject m_cpu;
    QJsonObject m_network;
    QJsonObject m_all;
    QPair<qint64, qint64> m_outerSectors;
    QPair<qint64, qint64> m_innerSectors;
};

namespace {

double value(const QJsonObject &tree, const char *label)
{
    return tree.value(QLatin1String(label))
        .toArray()
        .at(0)
        .toObject()
        .value(QStringLiteral("value"))
        .toDouble(-1);
}

QString output(const QString &program, const QStringList &arguments)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C"));
    process.setProcessEnvironment(environment);
    process.start(program, arguments);
    return process.waitForFinished() ? QString::fromLocal8Bit(process.readAll()) : QString();
}

/// Keeps one processor busy while it exists.
class Load
{
public:
    ~Load()
    {
        m_isOver = true;
        m_thread.join();
    }

private:
    std::atomic<bool> m_isOver{false};
    std::thread m_thread{[this] {
        while (!m_isOver) {
        }
    }};
};

/// The counters of hardware adapters.
CounterMap kernelCounters()
{
    CounterMap counters;
    QFile file(QStringLiteral("/proc/net/dev"));
    if (!file.open(QIODevice::ReadOnly))
        return counters;
    const QStringList lines = QString::fromLatin1(file.readAll()).split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        const QString name = line.section(QLatin1Char(':'), 0, 0).trimmed();
        const QStringList fields =
            line.section(QLatin1Char(':'), 1).simplified().split(QLatin1Char(' '));
        if (fields.size() > 8 &&
            QFile::exists(QStringLiteral("/sys/class/net/%1/device").arg(name)))
            counters.insert(name, {fields.at(0).toLongLong(), fields.at(8).toLongLong()});
    }
    return counters;
}

/// What all drives together have written, as iostat reads it.
qint64 writtenSectors()
{
    qint64 sectors = 0;
    QFile file(QStringLiteral("/proc/diskstats"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    const QStringList lines = QString::fromLatin1(file.readAll()).split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        const QStringList fields = line.simplified().split(QLatin1Char(' '));
        if (fields.size() > 9 && !fields.at(2).startsWith(QLatin1String("sr")) &&
            QFile::exists(QStringLiteral("/sys/block/%1/device").arg(fields.at(2))))
            sectors += fields.at(9).toLongLong();
    }
    return sectors;
}

} // namespace

/// Samples at both ends of top's second, so that all measure the same time.
void tst_LiveMachine::initTestCase()
{
    if (QStandardPaths::findExecutable(QStringLiteral("top")).isEmpty())
        QSKIP("this machine has no top");
    const Load load;
    QElapsedTimer outer;
    outer.start();
    m_outerCounters.first = kernelCounters();
    m_outerSectors.first = writtenSectors();
    // This takes a sample, which the following queries may share.
    QVERIFY(m_library.initSystemMonitorLib(false));
    m_library.getCPUInfo();
    m_library.getNetworkInfo();
    m_innerCounters.first = kernelCounters();
    m_innerSectors.first = writtenSectors();
    const qint64 start = outer.elapsed();
    m_topReport = output(QStringLiteral("top"),
                         {QStringLiteral("-b"), QStringLiteral("-n2"), QStringLiteral("-d1")});
    m_innerSeconds = double(outer.elapsed() - start) / 1000;
    m_innerCounters.second = kernelCounters();
    m_innerSectors.second = writtenSectors();
    m_cpu = m_library.getCPUInfo();
    m_network = m_library.getNetworkInfo();
    m_all = m_library.getAllSensorsData();
    m_outerSectors.second = writtenSectors();
    m_outerCounters.second = kernelCounters();
    m_outerSeconds = double(outer.elapsed()) / 1000;
}

void tst_LiveMachine::cpuLoadAgreesWithTop()
{
    const double usage = value(m_cpu, "Total CPU Usage");
    // The second report of top covers the second between the two.
    const QString summary = m_topReport.section(QStringLiteral("%Cpu"), -1);
    const QRegularExpressionMatch idle =
        QRegularExpression(QStringLiteral(R"(([0-9.]+)\s+id)")).match(summary);
    QVERIFY2(idle.hasMatch(), qPrintable(m_topReport.left(500)));
    const double busy = 100 - idle.captured(1).toDouble();
    QVERIFY2(qAbs(usage - busy) < 20,
             qPrintable(QStringLiteral("%1 %, top: %2 %").arg(usage).arg(busy)));
    QVERIFY2(usage >= 70.0 / std::thread::hardware_concurrency(),
             qPrintable(QString::number(usage)));
}

void tst_LiveMachine::memoryAgreesWithFree()
{
    const QStringList fields = output(QStringLiteral("free"), {QStringLiteral("--mebi")})
                                   .split(QLatin1Char('\n'))
                                   .value(1)
                                   .simplified()
                                   .split(QLatin1Char(' '));
    if (fields.size() < 7)
        QSKIP("this machine has no free that tells what is available");
    const double total = fields.at(1).toDouble();
    const double available = fields.at(6).toDouble();
    const QJsonObject tree = m_library.getSystemInfo();
    const double used = value(tree, "Physical Memory Used");
    const double readAvailable = value(tree, "Physical Memory Available");
    QVERIFY2(qAbs(used + readAvailable - total) <= 1, qPrintable(QString::number(used)));
    QVERIFY2(qAbs(readAvailable - available) <= 0.1 * total,
             qPrintable(QString::number(readAvailable)));
    QVERIFY(qAbs(value(tree, "Physical Memory Load") - 100 * used / total) <= 1);
}

void tst_LiveMachine::networkAgreesWithTheKernelsCounters()
{
    if (m_outerCounters.first.isEmpty())
        QSKIP("this machine has no network adapter");
    constexpr double rounding = 0.01;
    const auto checkRate = [this](const QString &adapter, const char *label,
                                  qint64 Counters::*counter) {
        const auto kilobytes = [&](const CounterPair &counters) {
            return double(counters.second.value(adapter).*counter -
                          counters.first.value(adapter).*counter) /
                   1024;
        };
        const double rate = value(m_network.value(adapter).toObject(), label);
        // The library's samples were taken between the inner and the outer ones.
        const double least = kilobytes(m_innerCounters) / m_outerSeconds;
        const double most = kilobytes(m_outerCounters) / m_innerSeconds;
        QVERIFY2(rate >= least - rounding && rate <= most + rounding,
                 qPrintable(QStringLiteral("%1: %2 not in %3 to %4")
                                .arg(adapter)
                                .arg(rate)
                                .arg(least)
                                .arg(most)));
    };
    const QStringList adapters = m_outerCounters.first.keys();
    for (const QString &adapter : adapters) {
        checkRate(adapter, "Current UP rate", &Counters::sent);
        checkRate(adapter, "Current DL rate", &Counters::received);
    }
}

void tst_LiveMachine::drivesAgreeWithTheKernelsCounters()
{
    constexpr double rounding = 0.01;
    double rate = 0;
    bool isListed = false;
    for (const QString &group : m_all.keys().filter(QStringLiteral("Drive: "))) {
        const QJsonObject drive = m_all.value(group).toObject();
        for (const QString &label : drive.keys().filter(QStringLiteral("Drive Write Rate"))) {
            rate += value(drive, qPrintable(label));
            isListed = true;
        }
    }
    if (!isListed && m_outerSectors.first == 0)
        QSKIP("this machine has no drive");
    const auto megabytes = [](const QPair<qint64, qint64> &sectors) {
        return double(sectors.second - sectors.first) / 2048;
    };
    // The library's samples were taken between the inner and the outer ones.
    const double least = megabytes(m_innerSectors) / m_outerSeconds - rounding;
    const double most = megabytes(m_outerSectors) / m_innerSeconds + rounding;
    QVERIFY2(rate >= least && rate <= most,
             qPrintable(QStringLiteral("%1 MB/s not in %2 to %3").arg(rate).arg(least).arg(most)));
}

void tst_LiveMachine::swapAgreesWithFree()
{
    const QStringList fields = output(QStringLiteral("free"), {QStringLiteral("--mebi")})
                                   .split(QLatin1Char('\n'))
                                   .filter(QStringLiteral("Swap:"))
                                   .value(0)
                                   .simplified()
                                   .split(QLatin1Char(' '));
    if (fields.size() < 3)
        QSKIP("this machine has no free");
    const QJsonObject details = m_all.value(QStringLiteral("Memory details")).toObject();
    QVERIFY(value(details, "Memory Cached") > 0);
    const double total = fields.at(1).toDouble();
    QCOMPARE(details.contains(QStringLiteral("Swap Total")), total > 0);
    if (total > 0) {
        QVERIFY(qAbs(value(details, "Swap Total") - total) <= 1);
        QVERIFY(qAbs(value(details, "Swap Used") - fields.at(2).toDouble()) <= 0.1 * total);
    }
}

void tst_LiveMachine::systemAgreesWithUptime()
{
    const QDateTime start = QDateTime::fromString(
        output(QStringLiteral("uptime"), {QStringLiteral("-s")}).trimmed(), Qt::ISODate);
    if (!start.isValid())
        QSKIP("this machine has no uptime that tells its start");
    const QJsonObject machine = m_all.value(QStringLiteral("Machine")).toObject();
    const double hours = double(start.secsTo(QDateTime::currentDateTime())) / 3600;
    // A tenth of an hour is cut off, and the test itself takes some time.
    QVERIFY2(qAbs(value(machine, "Uptime") - hours) <= 0.2,
             qPrintable(QString::number(value(machine, "Uptime"))));
    QVERIFY(value(machine, "Processes") >= 1);
    QVERIFY(value(machine, "Load Average 1 min") >= 0);
}

QTEST_GUILESS_MAIN(tst_LiveMachine)
#include "tst_livemachine.moc"
