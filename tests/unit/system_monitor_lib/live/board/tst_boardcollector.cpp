#include "system_monitor_lib/live/board/BoardCollector.h"
#include "tests/support/CapturedMachine.h"
#include "tests/unit/system_monitor_lib/labels.h"

#include <QJsonDocument>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <clocale>

namespace {

constexpr qint64 second = 1'000'000'000;
constexpr qint64 millisecond = 1'000'000;

/// Runs its arguments with the captured machine in $1 laid over /sys, and with its configuration of
/// libsensors. Both are gone after the command.
const QString layOver = QStringLiteral(R"(
tree=$1; shift
for part in class devices; do
    mount -t overlay fake -o "lowerdir=$tree/sys/$part:/sys/$part" "/sys/$part" || exit 77
done
mount --bind "$tree/etc/sensors.d" /etc/sensors.d || exit 77
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
    void readsRealChips_data();
    void readsRealChips();
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

void BoardCollectorTest::readsRealChips_data()
{
    QTest::addColumn<QString>("machine");
    QTest::newRow("one chip") << QStringLiteral("amd-desktop");
    QTest::newRow("three chips") << QStringLiteral("three-chips-board");
    QTest::newRow("water cooler") << QStringLiteral("water-cooled-desktop");
}

void BoardCollectorTest::readsRealChips()
{
    QFETCH(const QString, machine);
    const QStringList expected = readingsOf(machine, true);
    QVERIFY(!expected.isEmpty());
    const QTemporaryDir directory;
    QVERIFY(directory.isValid());
    QVERIFY(unpackMachine(machine, QString(), directory.path()));
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
    const QJsonObject groups = root.value(QStringLiteral("getAllSensorsData")).toObject();
    const QString query = QStringLiteral("getCPUInfo");
    const QString voltage = QStringLiteral("Core VID");
    const QJsonObject cpu = root.value(query).toObject();
    QStringList readings;
    QStringList chips;
    for (const QString &line : expected)
        chips += line.section(QStringLiteral(" | "), 0, 0);
    chips.removeDuplicates();
    chips.removeAll(query);
    for (const QString &chip : chips)
        describe(chip, groups.value(chip).toObject(), readings);
    if (cpu.contains(voltage))
        describe(query, {{voltage, cpu.value(voltage)}}, readings);
    QCOMPARE(readings, expected);
}

QTEST_GUILESS_MAIN(BoardCollectorTest)
#include "tst_boardcollector.moc"
