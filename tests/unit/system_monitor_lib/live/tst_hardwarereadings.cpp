#include "sensors/readings/GpuReadings.h"
#include "sensors/readings/ModelNames.h"
#include "system_monitor_lib/live/LiveSource.h"
#include "system_monitor_lib/live/processor/CpuClockCollector.h"
#include "tests/support/CapturedMachine.h"
#include "tests/unit/system_monitor_lib/files.h"
#include "tests/unit/system_monitor_lib/labels.h"

#include <QTemporaryDir>
#include <QtTest>

namespace {

constexpr qint64 second = 1'000'000'000;
constexpr qint64 millisecond = 1'000'000;

const QString package = QStringLiteral("CPU Package");
const QString packagePower = QStringLiteral("CPU Package Power");
const QString coretemp = QStringLiteral("sys/devices/platform/coretemp.0/hwmon/hwmon3/temp1_input");
const QString energy = QStringLiteral("sys/class/powercap/intel-rapl:0/energy_uj");
const QString radeon = QStringLiteral("AMD Radeon RX 6800/6800 XT / 6900 XT");
const QString card = QStringLiteral("sys/class/drm/card1/device/");
const QString disk = QStringLiteral("WDC WD40EFRX-68N");
const QString diskFolder =
    QStringLiteral("sys/devices/pci0000:00/0000:00:17.0/ata3/host2/target2:0:0/2:0:0:0/");

} // namespace

/// Captured machines with faulty or missing files.
class HardwareReadingsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void cpuTemperatureFollowsDriverAndLabel_data();
    void cpuTemperatureFollowsDriverAndLabel();
    void cpuTemperatureOfSensorsWithoutLabels_data();
    void cpuTemperatureOfSensorsWithoutLabels();
    void brokenCpuTemperatureIsAbsent_data();
    void brokenCpuTemperatureIsAbsent();
    void vanishedChipComesBackUnderAnotherNumber();

    void packagePowerNeedsTwoSamples();
    void brokenPackagePowerIsAbsent_data();
    void brokenPackagePowerIsAbsent();
    void packagesAreSummedUp();
    void counterThatWasSetAnewGivesNoPower();
    void powerIsNotTakenForATemperature();

    void slowClocksAreAskedRarely();
    void clocksThatCannotChangeAreReadRarely();
    void coreThatGoesOffLineIsLeftOut();

    void brokenGpuAttributeCostsOneLabel_data();
    void brokenGpuAttributeCostsOneLabel();
    void sleepingGpuIsNotRead();
    void vanishedGpuIsLeftOut();
    void energyCounterGivesGpuPower();
    void equalGpusHaveDistinctNames();
    void listOfCardsIsFoundInOneOfItsPlaces();
    void modelAndReadingsAreOfOneCard_data();
    void modelAndReadingsAreOfOneCard();

    void idleDiskIsNotRead();
    void suspendedDriveIsNotRead_data();
    void suspendedDriveIsNotRead();
    void driveThatIsAddedLaterIsFound();

private:
    [[nodiscard]] QString path(const QString &name) const { return m_directory->filePath(name); }
    bool put(const QString &name, const QByteArray &content) const
    {
        return writeFile(path(name), content);
    }
    bool load(const QString &machine);
    QJsonObject after(qint64 time, Query query)
    {
        m_now += time;
        return m_source->tree(query);
    }
    QJsonObject gpu(qint64 time, const QString &name = radeon)
    {
        return after(time, Query::GpuInfo).value(name).toObject();
    }
    double driveTemperature(qint64 time)
    {
        return value(after(time, Query::SmartInfo).value(disk).toObject(),
                     QStringLiteral("Drive Temperature"));
    }

    std::unique_ptr<QTemporaryDir> m_directory;
    std::unique_ptr<LiveSource> m_source;
    qint64 m_now = 0;
};

void HardwareReadingsTest::init()
{
    m_directory = std::make_unique<QTemporaryDir>();
    QVERIFY(m_directory->isValid());
    m_now = second;
    MachineRoots roots{path(QStringLiteral("proc")), path(QStringLiteral("sys"))};
    roots.pciIds = QStringLiteral(FIXTURES_DIRECTORY "/machines/pci.ids");
    roots.amdIds = QStringLiteral(FIXTURES_DIRECTORY "/machines/amdgpu.ids");
    m_source = std::make_unique<LiveSource>(roots, [this] { return m_now; });
}

void HardwareReadingsTest::cleanup()
{
    m_source.reset();
    m_directory.reset();
}

bool HardwareReadingsTest::load(const QString &machine)
{
    return unpackMachine(machine, QString(), m_directory->path()) && m_source->open();
}

void HardwareReadingsTest::cpuTemperatureFollowsDriverAndLabel_data()
{
    QTest::addColumn<QString>("driver");
    QTest::addColumn<QStringList>("labels");
    QTest::addColumn<double>("degrees");

    const auto row = [](const char *name, const char *driver, const QStringList &labels,
                        double degrees) {
        QTest::newRow(name) << QString::fromLatin1(driver) << labels << degrees;
    };
    const QString core = QStringLiteral("Core 0");
    const QString tctl = QStringLiteral("Tctl");
    const QString tdie = QStringLiteral("Tdie");
    row("package", "coretemp", {core, QStringLiteral("Package id 0")}, 42);
    row("old kernel", "coretemp", {core, QStringLiteral("Physical id 0")}, 42);
    row("second package alone", "coretemp", {core, QStringLiteral("Package id 1")}, 42);
    row("two packages", "coretemp",
        {QStringLiteral("Package id 1"), QStringLiteral("Package id 0")}, 42);
    row("the hottest core where there is no package", "coretemp",
        {core, QStringLiteral("Core 1"), QStringLiteral("other")}, 42);
    row("Tdie before Tctl", "k10temp", {tctl, tdie}, 42);
    row("Tctl", "k10temp", {tctl, QStringLiteral("Tccd1")}, 41);
    row("chiplets alone", "k10temp", {QStringLiteral("Tccd1")}, -1);
    row("zenpower", "zenpower", {tdie, tctl}, 41);
    row("a board's label", "nct6798", {QStringLiteral("Package id 0"), tdie}, -1);
    row("another zone", "acpitz", {}, -1);
}

void HardwareReadingsTest::cpuTemperatureFollowsDriverAndLabel()
{
    QFETCH(const QString, driver);
    QFETCH(const QStringList, labels);
    QFETCH(const double, degrees);
    const QString chip = QStringLiteral("sys/class/hwmon/hwmon2/");
    QVERIFY(put(chip + QStringLiteral("name"), driver.toLatin1() + '\n'));
    for (int index = 0; index < labels.size(); ++index) {
        const QString sensor = chip + QStringLiteral("temp%1_").arg(index + 1);
        QVERIFY(put(sensor + QStringLiteral("label"), labels.at(index).toLatin1() + '\n'));
        QVERIFY(put(sensor + QStringLiteral("input"), QByteArray::number(41000 + index * 1000)));
    }
    QVERIFY(put(QStringLiteral("proc/stat"), "cpu  1 0 0 1 0 0 0 0 0 0\n"));
    QVERIFY(m_source->open());
    QCOMPARE(value(after(0, Query::CpuDtsInfo), package), degrees);
}

void HardwareReadingsTest::cpuTemperatureOfSensorsWithoutLabels_data()
{
    QTest::addColumn<QStringList>("chips");
    QTest::addColumn<QStringList>("zones");
    QTest::addColumn<double>("degrees");
    const auto row = [](const char *name, const char *chips, const char *zones, double degrees) {
        const QLatin1Char comma(',');
        QTest::newRow(name) << QString::fromLatin1(chips).split(comma, Qt::SkipEmptyParts)
                            << QString::fromLatin1(zones).split(comma, Qt::SkipEmptyParts)
                            << degrees;
    };
    // Chips are at 30, 31 … degrees, zones at 50, 51 …
    row("AMD before Zen", "acpitz,k10temp", "acpitz", 31);
    row("a board's zone as a chip", "rpi_volt,cpu_thermal", "", 31);
    row("a board's zone", "", "gpu-thermal,cpu-thermal", 51);
    row("cpu", "", "ddr,cpu", 51);
    row("the processor before its chip", "", "soc-thermal,cpu_thermal", 51);
    row("the hottest group of cores", "",
        "soc-thermal,bigcore0-thermal,bigcore1-thermal,littlecore-thermal", 52);
    row("the hottest core", "", "gpu0-thermal,cpu0-thermal,cpu-1-0-thermal,pmic", 52);
    row("the chip that it is part of", "gpu_thermal,soc_thermal", "", 31);
    row("process, voltage, temperature", "pvt", "", 30);
    row("Intel's package", "acpitz", "acpitz,INT3400 Thermal,x86_pkg_temp", 52);
    row("the firmware's, last", "iwlwifi_1,acpitz", "acpitz", 31);
    row("others' zones", "iwlwifi_1,pch_cannonlake,gpu_thermal",
        "pch_cannonlake,gpu-thermal,battery,cpufreq-heater,skin", -1);
}

void HardwareReadingsTest::cpuTemperatureOfSensorsWithoutLabels()
{
    QFETCH(const QStringList, chips);
    QFETCH(const QStringList, zones);
    QFETCH(const double, degrees);
    for (int index = 0; index < chips.size(); ++index) {
        const QString chip = QStringLiteral("sys/class/hwmon/hwmon%1/").arg(index);
        QVERIFY(put(chip + QStringLiteral("name"), chips.at(index).toLatin1() + '\n'));
        QVERIFY(
            put(chip + QStringLiteral("temp1_input"), QByteArray::number(30000 + index * 1000)));
    }
    for (int index = 0; index < zones.size(); ++index) {
        const QString zone = QStringLiteral("sys/class/thermal/thermal_zone%1/").arg(index);
        QVERIFY(put(zone + QStringLiteral("type"), zones.at(index).toLatin1() + '\n'));
        QVERIFY(put(zone + QStringLiteral("temp"), QByteArray::number(50000 + index * 1000)));
    }
    QVERIFY(put(QStringLiteral("proc/stat"), "cpu  1 0 0 1 0 0 0 0 0 0\n"));
    QVERIFY(m_source->open());
    QCOMPARE(value(after(0, Query::CpuDtsInfo), package), degrees);
}

void HardwareReadingsTest::brokenCpuTemperatureIsAbsent_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("garbage") << QByteArray("N/A\n");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("frozen") << QByteArray("-273150\n");
    QTest::newRow("sentinel") << QByteArray("65261850\n");
    QTest::newRow("huge") << QByteArray(100'000, '9');
}

void HardwareReadingsTest::brokenCpuTemperatureIsAbsent()
{
    QFETCH(const QByteArray, content);
    QVERIFY(load(QStringLiteral("intel-desktop")));
    QCOMPARE(value(after(0, Query::CpuDtsInfo), package), 47.0);
    QVERIFY(put(coretemp, content));
    QVERIFY(after(second, Query::CpuDtsInfo).isEmpty());
    QCOMPARE(value(m_source->tree(Query::CpuEnhancedInfo), package), -1.0);
    QVERIFY(put(coretemp, "48000\n"));
    QCOMPARE(value(after(second, Query::CpuDtsInfo), package), 48.0);
}

void HardwareReadingsTest::vanishedChipComesBackUnderAnotherNumber()
{
    QVERIFY(load(QStringLiteral("intel-desktop")));
    const QString chips = QStringLiteral("sys/devices/platform/coretemp.0/hwmon");
    QVERIFY(QFile::remove(path(QStringLiteral("sys/class/hwmon/hwmon3"))));
    QVERIFY(QDir(path(chips + QStringLiteral("/hwmon3"))).removeRecursively());
    QVERIFY(after(second, Query::CpuDtsInfo).isEmpty());

    const QString chip = chips + QStringLiteral("/hwmon9/");
    QVERIFY(put(chip + QStringLiteral("name"), "coretemp\n"));
    QVERIFY(put(chip + QStringLiteral("temp1_label"), "Package id 0\n"));
    QVERIFY(put(chip + QStringLiteral("temp1_input"), "50000\n"));
    QVERIFY(QFile::link(path(chip), path(QStringLiteral("sys/class/hwmon/hwmon9"))));
    QCOMPARE(value(after(10 * second, Query::CpuDtsInfo), package), 50.0);
}

void HardwareReadingsTest::packagePowerNeedsTwoSamples()
{
    QVERIFY(load(QStringLiteral("intel-desktop")));
    QVERIFY(!after(0, Query::CpuEnhancedInfo).contains(packagePower));
    QVERIFY(put(energy, "262143100000\n"));
    QCOMPARE(value(after(2 * second, Query::CpuEnhancedInfo), packagePower), 0.05);
    QVERIFY(put(energy, "262163100000\n"));
    QCOMPARE(value(after(500 * millisecond, Query::CpuEnhancedInfo), packagePower), 40.0);
}

void HardwareReadingsTest::brokenPackagePowerIsAbsent_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("garbage") << QByteArray("energy\n");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("negative") << QByteArray("-1\n");
    QTest::newRow("absurd jump") << QByteArray("999999999999999\n");
}

void HardwareReadingsTest::brokenPackagePowerIsAbsent()
{
    QFETCH(const QByteArray, content);
    QVERIFY(load(QStringLiteral("intel-desktop")));
    QVERIFY(put(energy, content));
    QVERIFY(!after(second, Query::CpuEnhancedInfo).contains(packagePower));
    QVERIFY(put(energy, "1000000\n"));
    QVERIFY(!after(60 * second, Query::CpuEnhancedInfo).contains(packagePower));
    QVERIFY(put(energy, "8000000\n"));
    QCOMPARE(value(after(second, Query::CpuEnhancedInfo), packagePower), 7.0);
}

void HardwareReadingsTest::packagesAreSummedUp()
{
    const QString other = QStringLiteral("sys/class/powercap/intel-rapl:4/");
    QVERIFY(put(other + QStringLiteral("name"), "package-1\n"));
    QVERIFY(put(other + QStringLiteral("energy_uj"), "0\n"));
    QVERIFY(load(QStringLiteral("intel-desktop")));
    QVERIFY(put(energy, "262153000000\n"));
    QVERIFY(put(other + QStringLiteral("energy_uj"), "5000000\n"));
    QCOMPARE(value(after(second, Query::CpuEnhancedInfo), packagePower), 15.0);

    QVERIFY(QFile::remove(path(other + QStringLiteral("energy_uj"))));
    QVERIFY2(!after(second, Query::CpuEnhancedInfo).contains(packagePower),
             "half of the power is not the power");
}

void HardwareReadingsTest::counterThatWasSetAnewGivesNoPower()
{
    QVERIFY(load(QStringLiteral("intel-desktop")));
    QVERIFY(
        QFile::remove(path(QStringLiteral("sys/class/powercap/intel-rapl:0/max_energy_range_uj"))));
    QVERIFY(put(energy, "1000\n"));
    QVERIFY(!after(second, Query::CpuEnhancedInfo).contains(packagePower));
    QVERIFY(put(energy, "3001000\n"));
    QCOMPARE(value(after(second, Query::CpuEnhancedInfo), packagePower), 3.0);
}

void HardwareReadingsTest::powerIsNotTakenForATemperature()
{
    QVERIFY(load(QStringLiteral("intel-desktop")));
    const QJsonObject before = after(second, Query::CpuEnhancedInfo);
    QCOMPARE(gpuReadings({}, before).temperature.value, 47);
    QVERIFY(QFile::remove(path(coretemp)));
    QVERIFY(put(energy, "262223000000\n"));
    const QJsonObject tree = after(second, Query::CpuEnhancedInfo);
    QCOMPARE(value(tree, packagePower), 80.0);
    QVERIFY(tree.value(package).isArray());
    QCOMPARE(gpuReadings({}, tree).temperature.value, 0);
    QVERIFY(after(0, Query::CpuDtsInfo).isEmpty());
}

void HardwareReadingsTest::slowClocksAreAskedRarely()
{
    QVERIFY(unpackMachine(QStringLiteral("intel-desktop"), QString(), m_directory->path()));
    qint64 watch = 0;
    qint64 step = 20 * millisecond;
    CpuClockCollector collector({path(QStringLiteral("proc")), path(QStringLiteral("sys"))},
                                QStringLiteral("CPU"), [&] { return watch += step; });
    const auto clocks = [&collector](qint64 now) {
        SensorTrees trees;
        collector.collect(now, trees);
        return trees.tree(Query::CpuInfo);
    };
    const QString first = QStringLiteral("Core 0 Clock");
    QCOMPARE(clocks(0).keys(), QStringList{first});
    const QString file = QStringLiteral("sys/devices/system/cpu/cpu0/cpufreq/scaling_cur_freq");
    QVERIFY(put(file, "2000000\n"));
    QCOMPARE(value(clocks(9 * second), first), 4000.0);
    step = 1;
    const QJsonObject quick = clocks(10 * second);
    QCOMPARE(value(quick, first), 2000.0);
    QCOMPARE(quick.size(), 4);
    QVERIFY(put(file, "2100000\n"));
    QCOMPARE(value(clocks(11 * second), first), 2100.0);
}

void HardwareReadingsTest::clocksThatCannotChangeAreReadRarely()
{
    const QString file = QStringLiteral("proc/cpuinfo");
    const QByteArray cycles = " fpu aperfmperf\n";
    CpuClockCollector collector({path(QStringLiteral("proc")), path(QStringLiteral("sys"))},
                                QStringLiteral("CPU"), [] { return 0; });
    const auto clock = [&collector](qint64 now) {
        SensorTrees trees;
        collector.collect(now, trees);
        return value(trees.tree(Query::CpuInfo), QStringLiteral("Core 0 Clock"));
    };
    const auto cpuInfo = [](int megahertz, const QByteArray &flags) {
        return "processor\t: 0\ncpu MHz\t\t: " + QByteArray::number(megahertz) +
               "\nflags\t\t:" + flags + '\n';
    };
    QVERIFY(put(file, cpuInfo(2600, " fpu\n")));
    QCOMPARE(clock(0), 2600.0);
    QVERIFY(put(file, cpuInfo(2700, cycles)));
    QCOMPARE(clock(9 * second), 2600.0);
    QCOMPARE(clock(10 * second), 2700.0);
    QVERIFY(put(file, cpuInfo(2800, cycles)));
    QCOMPARE(clock(11 * second), 2800.0);
}

void HardwareReadingsTest::coreThatGoesOffLineIsLeftOut()
{
    QVERIFY(load(QStringLiteral("arm-board")));
    QCOMPARE(after(0, Query::CpuInfo).size(), 4);
    QVERIFY(put(QStringLiteral("sys/devices/system/cpu/cpu3/online"), "0\n"));
    QVERIFY(put(QStringLiteral("sys/devices/system/cpu/cpu2/cpufreq/scaling_cur_freq"), "0\n"));
    const QStringList expected{QStringLiteral("Core 0 Clock"), QStringLiteral("Core 1 Clock")};
    QCOMPARE(after(11 * second, Query::CpuInfo).keys(), expected);
}

void HardwareReadingsTest::brokenGpuAttributeCostsOneLabel_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QStringList>("lost");

    const auto row = [](const char *name, const char *file, const QByteArray &content,
                        const QStringList &lost) {
        QTest::newRow(name) << QString::fromLatin1(file) << content << lost;
    };
    const QString temperature = QStringLiteral("GPU Temperature");
    const QString used = QStringLiteral("GPU Memory Allocated");
    const QString share = QStringLiteral("GPU Memory Usage");
    const QString total = QStringLiteral("GPU Memory Total");
    row("hot", "hwmon/hwmon5/temp1_input", "511000\n", {temperature});
    row("unreadable", "hwmon/hwmon5/temp1_input", "", {temperature});
    row("load above 100", "gpu_busy_percent", "101\n", {QStringLiteral("GPU Core Load")});
    row("negative load", "gpu_busy_percent", "-1\n", {QStringLiteral("GPU Core Load")});
    row("clock", "hwmon/hwmon5/freq1_input", "4294967295000000\n", {QStringLiteral("GPU Clock")});
    row("power", "hwmon/hwmon5/power1_average", "many\n", {QStringLiteral("GPU Power")});
    row("more used than there is", "mem_info_vram_used", "99999999999999\n", {used, share});
    row("used unknown", "mem_info_vram_used", "\n", {used, share});
    row("no memory", "mem_info_vram_total", "0\n", {used, total, share});
}

void HardwareReadingsTest::brokenGpuAttributeCostsOneLabel()
{
    QFETCH(const QString, file);
    QFETCH(const QByteArray, content);
    QFETCH(const QStringList, lost);
    QVERIFY(load(QStringLiteral("amd-desktop")));
    QStringList expected = gpu(0).keys();
    QVERIFY(put(card + file, content));
    for (const QString &label : lost)
        QCOMPARE(expected.removeAll(label), 1);
    QCOMPARE(gpu(second).keys(), expected);
}

void HardwareReadingsTest::sleepingGpuIsNotRead()
{
    const QString status = card + QStringLiteral("power/runtime_status");
    QVERIFY(load(QStringLiteral("amd-desktop")));
    const QJsonObject awake = gpu(0);
    QVERIFY(!awake.isEmpty());
    QVERIFY(put(status, "suspended\n"));
    QVERIFY(!after(second, Query::GpuInfo).contains(radeon));
    QVERIFY(
        m_source->tree(Query::AllSensorsData).contains(QStringLiteral("GPU [#1]: %1").arg(radeon)));
    QVERIFY(put(status, "active\n"));
    QVERIFY2(gpu(second).isEmpty(), "it has just woken");
    QVERIFY(gpu(second).isEmpty());
    QCOMPARE(gpu(second), awake);
    QVERIFY(QFile::remove(path(status)));
    QCOMPARE(gpu(second), awake);
}

void HardwareReadingsTest::vanishedGpuIsLeftOut()
{
    QVERIFY(load(QStringLiteral("amd-desktop")));
    QVERIFY(QDir(path(QStringLiteral("sys/class/drm/card1"))).removeRecursively());
    QVERIFY(gpu(second).isEmpty());
    QCOMPARE(after(10 * second, Query::GpuInfo).keys(), QStringList{QStringLiteral("AMD Raphael")});
}

void HardwareReadingsTest::energyCounterGivesGpuPower()
{
    const QString folder = QStringLiteral("sys/class/drm/card0/device/");
    const QString counter = folder + QStringLiteral("hwmon/hwmon0/energy1_input");
    const QString power = QStringLiteral("GPU Power");
    const QString name = QStringLiteral("Intel GPU 8086:56A0");
    QVERIFY(put(folder + QStringLiteral("uevent"), "DRIVER=xe\nPCI_ID=8086:56A0\n"));
    QVERIFY(put(folder + QStringLiteral("tile0/gt0/freq0/act_freq"), "2400\n"));
    QVERIFY(put(counter, "1000000\n"));
    QVERIFY(put(QStringLiteral("proc/stat"), "cpu  1 0 0 1 0 0 0 0 0 0\n"));
    QVERIFY(m_source->open());
    QVERIFY(!gpu(0, name).contains(power));
    QVERIFY(put(counter, "91000000\n"));
    QCOMPARE(value(gpu(second, name), power), 90.0);
    QVERIFY(put(counter, "5\n"));
    QVERIFY(!gpu(second, name).contains(power));
    QCOMPARE(value(gpu(second, name), power), 0.0);
    QCOMPARE(value(gpu(0, name), QStringLiteral("GPU Clock")), 2400.0);
}

void HardwareReadingsTest::equalGpusHaveDistinctNames()
{
    for (int index = 0; index < 2; ++index) {
        const QString folder = QStringLiteral("sys/class/drm/card%1/device/").arg(index);
        QVERIFY(put(folder + QStringLiteral("uevent"),
                    QStringLiteral("DRIVER=amdgpu\nPCI_ID=1002:73BF\nPCI_SLOT_NAME=0000:0%1:00.0\n")
                        .arg(index + 3)
                        .toLatin1()));
        QVERIFY(put(folder + QStringLiteral("gpu_busy_percent"), "5\n"));
    }
    QVERIFY(m_source->open());
    const QStringList expected{radeon + QStringLiteral(" (0000:03:00.0)"),
                               radeon + QStringLiteral(" (0000:04:00.0)")};
    QCOMPARE(after(0, Query::GpuInfo).keys(), expected);
}

void HardwareReadingsTest::listOfCardsIsFoundInOneOfItsPlaces()
{
    const QString preferred = path(QStringLiteral("misc/pci.ids"));
    const QString other = path(QStringLiteral("hwdata/pci.ids"));
    QCOMPARE(firstFile({preferred, other}), QString());
    QVERIFY(writeFile(other, "list"));
    QCOMPARE(firstFile({preferred, other}), other);
    QVERIFY(writeFile(preferred, "list"));
    QCOMPARE(firstFile({preferred, other}), preferred);
}

void HardwareReadingsTest::modelAndReadingsAreOfOneCard_data()
{
    QTest::addColumn<QString>("machine");
    QTest::addColumn<QString>("model");
    const auto row = [](const char *machine, const char *model) {
        QTest::newRow(machine) << QString::fromLatin1(machine) << QString::fromLatin1(model);
    };
    row("two-cards-desktop", "AMD Radeon RX 7600");
    row("intel-and-arc-desktop", "Intel GPU 8086:56A0");
    row("amd-and-arc-desktop", "Intel GPU 8086:E20B");
    row("cards-without-memory", "AMD GPU 1002:6810");
    row("hybrid-laptop", "Intel GPU 8086:4628");
    row("old-radeon-desktop", "AMD GPU 1002:6810");
}

void HardwareReadingsTest::modelAndReadingsAreOfOneCard()
{
    QFETCH(const QString, machine);
    QFETCH(const QString, model);
    QVERIFY(load(machine));
    QCOMPARE(chosenGpu(after(0, Query::GpuInfo)), model);
    QCOMPARE(modelNames(m_source->tree(Query::AllSensorsData), {}).gpu, model);
}

void HardwareReadingsTest::idleDiskIsNotRead()
{
    constexpr qint64 period = 30 * second;
    QVERIFY(load(QStringLiteral("intel-desktop")));
    QCOMPARE(driveTemperature(0), -1.0);
    QCOMPARE(driveTemperature(period), -1.0);
    QVERIFY(put(diskFolder + QStringLiteral("block/sda/stat"), "1 2 3\n"));
    QCOMPARE(driveTemperature(second), -1.0);
    QCOMPARE(driveTemperature(period), 34.0);

    QVERIFY(put(diskFolder + QStringLiteral("hwmon/hwmon4/temp1_input"), "36000\n"));
    QCOMPARE(driveTemperature(period), 34.0);
    QVERIFY2(driveTemperature(900 * second) < 0, "nobody knows it any longer");
    QVERIFY(put(diskFolder + QStringLiteral("block/sda/stat"), "2 2 3\n"));
    QCOMPARE(driveTemperature(period), 36.0);
}

void HardwareReadingsTest::suspendedDriveIsNotRead_data()
{
    QTest::addColumn<QByteArray>("status");
    QTest::newRow("suspended") << QByteArray("suspended\n");
    QTest::newRow("suspending") << QByteArray("suspending\n");
    QTest::newRow("resuming") << QByteArray("resuming\n");
}

void HardwareReadingsTest::suspendedDriveIsNotRead()
{
    QFETCH(const QByteArray, status);
    QVERIFY(put(diskFolder + QStringLiteral("block/sda/queue/rotational"), "0\n"));
    QVERIFY(unpackMachine(QStringLiteral("intel-desktop"), QString(), m_directory->path()));
    QVERIFY(put(diskFolder + QStringLiteral("block/sda/queue/rotational"), "0\n"));
    QVERIFY(put(diskFolder + QStringLiteral("power/runtime_status"), status));
    QVERIFY(m_source->open());
    QCOMPARE(driveTemperature(0), -1.0);
    QVERIFY(put(diskFolder + QStringLiteral("power/runtime_status"), "active\n"));
    QCOMPARE(driveTemperature(30 * second), 34.0);
    QVERIFY(put(diskFolder + QStringLiteral("hwmon/hwmon4/temp1_input"), "34500\n"));
    QCOMPARE(driveTemperature(30 * second), 35.0);
    QVERIFY(put(diskFolder + QStringLiteral("hwmon/hwmon4/temp1_input"), "garbage\n"));
    QCOMPARE(driveTemperature(30 * second), -1.0);
}

void HardwareReadingsTest::driveThatIsAddedLaterIsFound()
{
    QVERIFY(load(QStringLiteral("headless-server")));
    QVERIFY(after(0, Query::SmartInfo).isEmpty());
    const QString chip = QStringLiteral("sys/class/hwmon/hwmon0/");
    QVERIFY(put(chip + QStringLiteral("name"), "nvme\n"));
    QVERIFY(put(chip + QStringLiteral("temp1_input"), "30000\n"));
    const QJsonObject drives = after(30 * second, Query::SmartInfo);
    QCOMPARE(drives.keys(), QStringList{QStringLiteral("nvme")});
    QVERIFY(QDir(path(chip)).removeRecursively());
    QVERIFY(after(30 * second, Query::SmartInfo).isEmpty());
}

QTEST_GUILESS_MAIN(HardwareReadingsTest)
#include "tst_hardwarereadings.moc"
