#include "system_monitor_lib/live/BoardCollector.h"
#include "tests/unit/system_monitor_lib/files.h"
#include "tests/unit/system_monitor_lib/labels.h"

#include <QJsonDocument>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <clocale>

namespace {

constexpr qint64 second = 1'000'000'000;
constexpr qint64 millisecond = 1'000'000;

/// Runs its arguments with $1/class and $1/devices laid over /sys and $1/etc in the place of the
/// configuration. Nothing of it outlives the command.
const QString layOver = QStringLiteral(R"(
tree=$1; shift
for part in class devices; do
    mount -t overlay fake -o "lowerdir=$tree/$part:/sys/$part" "/sys/$part" || exit 77
done
mount --bind "$tree/etc" /etc/sensors.d || exit 77
exec "$@"
)");

} // namespace

class BoardCollectorTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rests_data();
    void rests();
    void coreVoltageIsFoundByLabel_data();
    void coreVoltageIsFoundByLabel();
    void keepsTheLocale();
    void readsARealChip();

private:
    /// Whether \a tree holds a board's chip, as libsensors wants it.
    static bool makeChip(const QString &tree);
};

void BoardCollectorTest::rests_data()
{
    QTest::addColumn<qint64>("spent");
    QTest::addColumn<qint64>("rest");
    QTest::newRow("quick") << 2 * millisecond << qint64{0};
    QTest::newRow("a little slow") << 3 * millisecond << 2 * second;
    QTest::newRow("slow") << 20 * millisecond << 10 * second;
    QTest::newRow("very slow") << 10 * second << 60 * second;
    QTest::newRow("clock went back") << -second << qint64{0};
}

void BoardCollectorTest::rests()
{
    QFETCH(const qint64, spent);
    QFETCH(const qint64, rest);
    QCOMPARE(qint64{restAfter(spent).count()}, rest);
}

void BoardCollectorTest::coreVoltageIsFoundByLabel_data()
{
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("units");
    QTest::addColumn<bool>("found");
    QTest::newRow("usual") << QStringLiteral("Vcore") << QStringLiteral("V") << true;
    QTest::newRow("letter case") << QStringLiteral("VCORE") << QStringLiteral("V") << true;
    QTest::newRow("in words") << QStringLiteral("CPU Core Voltage") << QStringLiteral("V") << true;
    QTest::newRow("no label") << QStringLiteral("in0") << QStringLiteral("V") << false;
    QTest::newRow("another one") << QStringLiteral("Vcore Refin") << QStringLiteral("V") << false;
    QTest::newRow("a temperature") << QStringLiteral("CPU Core") << QStringLiteral("°C") << false;
}

void BoardCollectorTest::coreVoltageIsFoundByLabel()
{
    QFETCH(const QString, label);
    QFETCH(const QString, units);
    const QJsonArray voltage = reading(1.2, units);
    const QJsonObject chip{{QStringLiteral("+12V"), reading(12, QStringLiteral("V"))},
                           {label, voltage}};
    QFETCH(const bool, found);
    QCOMPARE(coreVoltage(chip), found ? voltage : QJsonArray());
}

void BoardCollectorTest::keepsTheLocale()
{
    QVERIFY(std::setlocale(LC_ALL, "C.UTF-8"));
    BoardCollector collector(thisMachine());
    SensorTrees trees;
    collector.collect(0, trees);
    collector.collect(second, trees);
    QCOMPARE(QByteArray(std::setlocale(LC_ALL, nullptr)), QByteArray("C.UTF-8"));
}

bool BoardCollectorTest::makeChip(const QString &tree)
{
    const QString device = tree + QStringLiteral("/devices/platform/nct6775.656");
    const QString chip = device + QStringLiteral("/hwmon/hwmon7/");
    const QList<QPair<const char *, QByteArray>> files{
        {"name", "nct6798"},       {"in0_input", "1216"},     {"fan1_input", "812"},
        {"fan2_input", "1240"},    {"fan7_input", "2710"},    {"fan3_input", "0"},
        {"temp1_input", "31000"},  {"temp1_label", "SYSTIN"}, {"temp2_input", "45000"},
        {"temp2_label", "CPUTIN"}, {"temp2_fault", "1"},      {"temp3_input", "-62000"},
        {"temp4_input", "junk"},
    };
    bool good = true;
    for (const auto &file : files)
        good = writeFile(chip + QString::fromLatin1(file.first), file.second + '\n') && good;
    good = writeFile(tree + QStringLiteral("/etc/test.conf"), "chip \"nct6798-*\"\n"
                                                              "  label in0 \"Vcore\"\n"
                                                              "  compute in0 @/2, @*2\n"
                                                              "  label fan2 \"CPU Fan\"\n"
                                                              "  label fan7 \"AIO Pump\"\n"
                                                              "  ignore fan3\n") &&
           good;
    return good && QDir().mkpath(tree + QStringLiteral("/devices/bus/platform")) &&
           QDir().mkpath(tree + QStringLiteral("/class/hwmon")) &&
           QFile::link(QStringLiteral("../../devices/bus/platform"),
                       device + QStringLiteral("/subsystem")) &&
           QFile::link(QStringLiteral("../../../nct6775.656"), chip + QStringLiteral("device")) &&
           QFile::link(QStringLiteral("/sys/devices/platform/nct6775.656/hwmon/hwmon7"),
                       tree + QStringLiteral("/class/hwmon/hwmon7"));
}

void BoardCollectorTest::readsARealChip()
{
    const QTemporaryDir directory;
    QVERIFY(directory.isValid());
    QVERIFY(makeChip(directory.path()));
    const QString recording = directory.filePath(QStringLiteral("recording.json"));
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(QStringLiteral("unshare"),
                  {QStringLiteral("--mount"), QStringLiteral("--map-root-user"),
                   QStringLiteral("--propagation=private"), QStringLiteral("sh"),
                   QStringLiteral("-c"), layOver, QStringLiteral("sh"), directory.path(),
                   QStringLiteral(SENSOR_RECORDER), recording});
    if (!process.waitForStarted() || !process.waitForFinished())
        QSKIP("This machine has no unshare.");
    const QByteArray output = process.readAll();
    if (!QFile::exists(recording))
        QSKIP(QByteArray("No files can be laid over /sys here: " + output).constData());
    QCOMPARE(process.exitCode(), 0);

    QFile file(recording);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QJsonObject root = QJsonDocument::fromJson(file.readAll()).object();
    const QJsonObject chip = root.value(QStringLiteral("getAllSensorsData"))
                                 .toObject()
                                 .value(QStringLiteral("nct6798-isa-0290"))
                                 .toObject();
    const QStringList expected{QStringLiteral("AIO Pump"), QStringLiteral("CPU Fan"),
                               QStringLiteral("SYSTIN"), QStringLiteral("Vcore"),
                               QStringLiteral("fan1")};
    QCOMPARE(chip.keys(), expected);
    QCOMPARE(value(chip, QStringLiteral("AIO Pump")), 2710.0);
    QCOMPARE(units(chip, QStringLiteral("AIO Pump")), QStringLiteral("RPM"));
    QCOMPARE(value(chip, QStringLiteral("CPU Fan")), 1240.0);
    QCOMPARE(value(chip, QStringLiteral("fan1")), 812.0);
    QCOMPARE(value(chip, QStringLiteral("SYSTIN")), 31.0);
    QCOMPARE(units(chip, QStringLiteral("SYSTIN")), QStringLiteral("°C"));
    QCOMPARE(value(chip, QStringLiteral("Vcore")), 0.608);
    const QJsonObject cpu = root.value(QStringLiteral("getCPUInfo")).toObject();
    QCOMPARE(value(cpu, QStringLiteral("Core VID")), 0.608);
}

QTEST_GUILESS_MAIN(BoardCollectorTest)
#include "tst_boardcollector.moc"
