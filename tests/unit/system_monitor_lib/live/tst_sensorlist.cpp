#include "sensors/readings/ModelNames.h"
#include "sensors/readings/SensorWalk.h"
#include "system_monitor_lib/live/LiveSource.h"
#include "tests/support/CapturedMachine.h"
#include "tests/support/Sanitizers.h"
#include "tests/unit/system_monitor_lib/files.h"
#include "tests/unit/system_monitor_lib/labels.h"

#include <QElapsedTimer>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

#include <algorithm>
#include <functional>
#include <limits>

namespace {

constexpr qint64 second = 1'000'000'000;

} // namespace

/// What the readers of the list of all sensors rely on: they look for models, fans and pumps by
/// parts of names, and take its first sensor if none is chosen.
class SensorListTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_source.reset(); }

    void keepsItsRules_data();
    void keepsItsRules();
    void keepsItsRulesWhateverDevicesAreCalled();
    void isTheSameInEveryPass();
    void isThatOfAFreshLibraryWhateverComesAndGoes();
    void isQuickWithManyCores();

private:
    [[nodiscard]] QString path(const QString &name) const { return m_directory->filePath(name); }
    [[nodiscard]] std::unique_ptr<LiveSource> makeSource() const;
    /// Opens the machine and takes two more samples.
    [[nodiscard]] bool open(const QString &machine);
    [[nodiscard]] bool addDrive(const char *name, const char *model) const;
    [[nodiscard]] bool addAdapter(const char *name) const;
    [[nodiscard]] bool addBattery(const char *name) const;
    [[nodiscard]] bool remove(const char *folder) const;
    /// Takes samples until the machine's devices have been looked for again.
    void passSomeTime();
    [[nodiscard]] bool makeManyCores(int cores, quint64 busy) const;

    QJsonObject list() { return m_source->tree(Query::AllSensorsData); }
    void checkGroups(const QJsonObject &all) const;
    static void checkLabels(const QJsonObject &all);
    void checkOtherTrees();

    std::unique_ptr<QTemporaryDir> m_directory;
    std::unique_ptr<LiveSource> m_source;
    qint64 m_now = second;
};

void SensorListTest::init()
{
    m_directory = std::make_unique<QTemporaryDir>();
    QVERIFY(m_directory->isValid());
    m_now = second;
    m_source = makeSource();
}

std::unique_ptr<LiveSource> SensorListTest::makeSource() const
{
    MachineRoots roots{path(QStringLiteral("proc")), path(QStringLiteral("sys"))};
    roots.run = path(QStringLiteral("run"));
    return std::make_unique<LiveSource>(roots, [this] { return m_now; });
}

bool SensorListTest::open(const QString &machine)
{
    if (!unpackMachine(machine, QString(), m_directory->path()) || !m_source->open() ||
        !unpackMachine(machine, QStringLiteral("then"), m_directory->path()))
        return false;
    m_now += 30 * second;
    list();
    m_now += second;
    return unpackMachine(machine, QStringLiteral("later"), m_directory->path());
}

void SensorListTest::keepsItsRules_data()
{
    QTest::addColumn<QString>("machine");
    for (const char *const name : {"intel-desktop", "hybrid-laptop", "two-cards-desktop",
                                   "headless-server", "arm-board", "zfs-server"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void SensorListTest::checkGroups(const QJsonObject &all) const
{
    static const QRegularExpression isDevice(QStringLiteral("^(CPU|GPU) \\[#\\d+\\]: "));
    for (const QString &group : all.keys()) {
        const bool namesOne =
            group.contains(QLatin1String("CPU")) || group.contains(QLatin1String("GPU"));
        QVERIFY2(!namesOne || isDevice.match(group).hasMatch(), qPrintable(group));
    }
    const QString processor = all.keys().filter(QStringLiteral("CPU [#0]: ")).value(0);
    QCOMPARE(modelNames(all, {}).cpu, processor.section(QStringLiteral(": "), 1, 1));
}

void SensorListTest::checkLabels(const QJsonObject &all)
{
    SensorWalk walk;
    walk.visit(all);
    QVERIFY(!walk.sensors.isEmpty());
    // No key without a choice shows another sensor because there are more of them.
    QCOMPARE(walk.sensors.constFirst().first, QStringLiteral("Physical Memory Available"));
    QCOMPARE(walk.pump, QStringLiteral("nodata"));
    QVERIFY(walk.cpuFans.isEmpty());
    QSet<QString> labels;
    for (const auto &sensor : qAsConst(walk.sensors)) {
        QVERIFY2(!labels.contains(sensor.first), qPrintable(sensor.first));
        labels.insert(sensor.first);
        const bool isFan = sensor.first.contains(QLatin1String("CPU"), Qt::CaseInsensitive) &&
                           sensor.first.contains(QLatin1String("Fan"), Qt::CaseInsensitive);
        QVERIFY2(!isFan, qPrintable(sensor.first));
    }
    // A board's chips follow all other groups.
    QJsonObject withBoard = all;
    withBoard.insert(QStringLiteral("acpitz-acpi-0"),
                     QJsonObject{{QStringLiteral("temp1"), reading(1, QString())}});
    SensorWalk boardWalk;
    boardWalk.visit(withBoard);
    QCOMPARE(boardWalk.sensors.constFirst().first, QStringLiteral("temp1"));
}

void SensorListTest::checkOtherTrees()
{
    static const QRegularExpression known(QStringLiteral(
        "^(Physical Memory (Load|Used|Available)|Total CPU Usage|Core \\d+ Clock|CPU Package|"
        "CPU \\(Tctl/Tdie\\)|CPU Package Power|Current (UP|DL) rate|Drive Temperature|"
        "GPU (Temperature|Clock|Memory Clock|Core Load|Core Voltage|Power|Fan|"
        "Memory (Total|Allocated|Usage)))$"));
    for (const Query query : {Query::SystemInfo, Query::CpuInfo, Query::CpuDtsInfo,
                              Query::CpuEnhancedInfo, Query::GpuInfo, Query::NetworkInfo,
                              Query::SmartInfo, Query::MemoryTimingsInfo, Query::PresentMon}) {
        SensorWalk walk;
        walk.visit(m_source->tree(query));
        for (const auto &sensor : qAsConst(walk.sensors))
            QVERIFY2(known.match(sensor.first).hasMatch(), qPrintable(sensor.first));
    }
}

void SensorListTest::keepsItsRules()
{
    QFETCH(const QString, machine);
    QVERIFY(open(machine));
    const QJsonObject all = list();
    checkGroups(all);
    checkLabels(all);
    checkOtherTrees();
}

void SensorListTest::keepsItsRulesWhateverDevicesAreCalled()
{
    for (const auto &[drive, model] : {std::pair("sdw", "CPU GPU Fan"),
                                       std::pair("sdx", "AIO Pump"), std::pair("sdy", "AIO Pump")})
        QVERIFY(addDrive(drive, model));
    for (const char *const name : {"CPU Fan", "GPU AIO Pump"})
        QVERIFY(addAdapter(name) && addBattery(name));
    QVERIFY(writeFile(path(QStringLiteral("proc/net/wireless")),
                      "Inter-| sta-|   Quality        |   Discarded packets\n"
                      " face | tus | link level noise |  nwid  crypt   frag\n"
                      " fanCPU: 0000   60.  -50.  -256        0      0      0\n"
                      " GPUw: 0000   60.  -50.  -256        0      0      0\n"));
    QVERIFY(open(QStringLiteral("intel-desktop")));
    const QJsonObject all = list();
    for (const char *const group :
         {"Battery: processor Fan", "Battery: graphics AIO-Pump", "Drive: processor graphics Fan",
          "Drive: AIO-Pump (slot of sdx)", "Drive: AIO-Pump (slot of sdy)",
          "Network: processor Fan", "Network: graphics AIO-Pump", "Network: fanprocessor",
          "Network: graphicsw"})
        QVERIFY2(!all.value(QLatin1String(group)).toObject().isEmpty(), group);
    checkGroups(all);
    checkLabels(all);
    checkOtherTrees();
}

void SensorListTest::isTheSameInEveryPass()
{
    QVERIFY(open(QStringLiteral("hybrid-laptop")));
    const auto labels = [this] {
        QStringList all;
        describe(QString(), list(), all);
        for (QString &line : all)
            line = line.section(QStringLiteral(" = "), 0, 0);
        return all;
    };
    const QStringList before = labels();
    for (int pass = 0; pass < 25; ++pass) {
        const QByteArray ticks = QByteArray::number(1100 + 10 * pass);
        QVERIFY(writeFile(path(QStringLiteral("proc/stat")), "cpu  " + ticks + " 0 0 9100\n"));
        m_now += second;
        QCOMPARE(labels(), before);
    }
}

bool SensorListTest::addDrive(const char *name, const char *model) const
{
    const QString block = path(QStringLiteral("sys/block/%1/").arg(QLatin1String(name)));
    const QString device = QStringLiteral("../../devices/slot of ") + QLatin1String(name);
    return writeFile(block + device + QStringLiteral("/model"), model) &&
           QFile::link(device, block + QStringLiteral("device")) &&
           writeFile(block + QStringLiteral("size"), "1000\n") &&
           writeFile(block + QStringLiteral("stat"), "1 0 8 1 0 0 0 0 0 1 1\n");
}

bool SensorListTest::addAdapter(const char *name) const
{
    const QString folder = path(QStringLiteral("sys/class/net/%1/").arg(QLatin1String(name)));
    return writeFile(folder + QStringLiteral("device/uevent"), "DRIVER=e1000e\n") &&
           writeFile(folder + QStringLiteral("statistics/rx_bytes"), "1000\n") &&
           writeFile(folder + QStringLiteral("statistics/tx_bytes"), "1000\n");
}

bool SensorListTest::addBattery(const char *name) const
{
    const QString folder =
        path(QStringLiteral("sys/class/power_supply/%1/").arg(QLatin1String(name)));
    return writeFile(folder + QStringLiteral("uevent"),
                     "POWER_SUPPLY_TYPE=Battery\nPOWER_SUPPLY_PRESENT=1\n"
                     "POWER_SUPPLY_CAPACITY=50\n");
}

bool SensorListTest::remove(const char *folder) const
{
    return QDir(path(QString::fromLatin1(folder))).removeRecursively();
}

void SensorListTest::passSomeTime()
{
    constexpr int seconds = 11;
    for (int pass = 0; pass < seconds; ++pass) {
        m_now += second;
        list();
    }
}

void SensorListTest::isThatOfAFreshLibraryWhateverComesAndGoes()
{
    const std::pair<const char *, std::function<bool()>> changes[] = {
        {"two adapters", [this] { return addAdapter("eth8") && addAdapter("eth9"); }},
        {"a drive of a model that is there", [this] { return addDrive("sdx", "Portable SSD T5"); }},
        {"another drive", [this] { return addDrive("sdy", "A drive"); }},
        {"a drive of another name",
         [this] {
             return writeFile(path(QStringLiteral("sys/devices/slot of sdy/model")), "Renamed");
         }},
        {"the first of two equal drives goes", [this] { return remove("sys/block/sdc"); }},
        {"an adapter becomes another one",
         [this] { return remove("sys/class/net/eth8") && addAdapter("eth7"); }},
        {"readings go", [this] { return remove("proc/pressure"); }},
        {"an adapter goes", [this] { return remove("sys/class/net/eth9"); }},
        {"all added drives go",
         [this] { return remove("sys/block/sdx") && remove("sys/block/sdy"); }}};
    const auto lines = [](LiveSource &source) {
        SensorWalk walk;
        walk.visit(source.tree(Query::AllSensorsData));
        QStringList all;
        for (const auto &sensor : qAsConst(walk.sensors))
            all += QStringLiteral("%1 = %2").arg(sensor.first, sensor.second);
        return all;
    };
    QVERIFY(unpackMachine(QStringLiteral("intel-desktop"), QString(), m_directory->path()));
    QVERIFY(m_source->open());
    passSomeTime();
    QStringList before = lines(*m_source);
    for (const auto &[name, change] : changes) {
        QVERIFY2(change(), name);
        passSomeTime();
        const std::unique_ptr<LiveSource> fresh = makeSource();
        QVERIFY2(fresh->open(), name);
        m_now += second;
        const QStringList after = lines(*m_source);
        QVERIFY2(after != before, name);
        QCOMPARE(after, lines(*fresh));
        before = after;
    }
}

bool SensorListTest::makeManyCores(int cores, quint64 busy) const
{
    const QByteArray ticks = QByteArray::number(busy);
    QByteArray stat = "cpu  " + ticks + " 0 0 9000 0 0 0 0 0 0\n";
    for (int core = 0; core < cores; ++core)
        stat += "cpu" + QByteArray::number(core) + ' ' + ticks + " 0 0 9000 0 0 0 0 0 0\n";
    stat += "intr " + QByteArray(20'000, '0') + '\n';
    return writeFile(path(QStringLiteral("proc/stat")), stat);
}

void SensorListTest::isQuickWithManyCores()
{
    constexpr int cores = 128;
    constexpr int passes = 20;
    constexpr qint64 longest = 5'000'000;
    QVERIFY(unpackMachine(QStringLiteral("intel-desktop"), QString(), m_directory->path()));
    const QString cpu = QStringLiteral("sys/devices/system/cpu/cpu%1/");
    for (int core = 0; core < cores; ++core) {
        for (const auto &[file, content] :
             {std::pair("topology/thread_siblings_list", QByteArray::number(core)),
              std::pair("cpufreq/scaling_cur_freq", QByteArray("3000000")),
              std::pair("thermal_throttle/core_throttle_count", QByteArray("0"))})
            QVERIFY(writeFile(path(cpu.arg(core)) + QString::fromLatin1(file), content + '\n'));
    }
    QVERIFY(makeManyCores(cores, 1000));
    QVERIFY(m_source->open());
    qint64 best = std::numeric_limits<qint64>::max();
    for (int pass = 1; pass <= passes; ++pass) {
        QVERIFY(makeManyCores(cores, 1000 + 100U * static_cast<quint64>(pass)));
        m_now += second;
        QElapsedTimer timer;
        timer.start();
        const QJsonObject all = list();
        best = std::min(best, timer.nsecsElapsed());
        QCOMPARE(all.value(QStringLiteral("Processor")).toObject().size(), cores + 5);
    }
    qInfo("%d cores are listed in %.2f ms", cores, static_cast<double>(best) / 1e6);
    if (hasHeapOfItsOwn)
        QSKIP("a sanitizer slows this down");
    QVERIFY(best < longest);
}

QTEST_APPLESS_MAIN(SensorListTest)
#include "tst_sensorlist.moc"
