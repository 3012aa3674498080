#include "system_monitor_lib/live/drives/DriveCollector.h"
#include "tests/unit/system_monitor_lib/files.h"
#include "tests/unit/system_monitor_lib/labels.h"

#include <QTemporaryDir>
#include <QtTest>

namespace {

constexpr qint64 second = 1'000'000'000;

} // namespace

class DriveCollectorTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void listsDrivesWithoutATemperature();
    void tellsEqualDrivesApart();
    void leavesOutWhatIsNoDrive_data();
    void leavesOutWhatIsNoDrive();
    void driveComesAndGoes();
    void otherDriveOfTheSameNameStartsAnew();
    void unreadableCountersGiveNoReading_data();
    void unreadableCountersGiveNoReading();

private:
    [[nodiscard]] QString path(const QString &name) const { return m_directory->filePath(name); }

    /// A drive whose device is \a device, which has written as many times a megabyte.
    [[nodiscard]] bool addDrive(const QString &name, const QString &device, int megabytes) const
    {
        const QString folder = path(QStringLiteral("sys/block/%1").arg(name));
        const QString target = path(QStringLiteral("sys/devices/%1").arg(device));
        return QDir().mkpath(target) && QDir().mkpath(folder) &&
               (QFileInfo::exists(folder + QStringLiteral("/device")) ||
                QFile::link(target, folder + QStringLiteral("/device"))) &&
               writeFile(folder + QStringLiteral("/size"), "1000\n") &&
               writeFile(folder + QStringLiteral("/stat"),
                         "0 0 0 0 0 0 " + QByteArray::number(2048 * megabytes) + " 0 0 0 0\n");
    }

    [[nodiscard]] bool setModel(const QString &device, const QByteArray &model) const
    {
        return writeFile(path(QStringLiteral("sys/devices/%1/model").arg(device)), model + '\n');
    }

    QJsonObject collect(qint64 nowNs)
    {
        SensorTrees trees;
        m_collector->collect(nowNs, trees);
        m_smart = trees.tree(Query::SmartInfo);
        return trees.allSensors();
    }

    static double written(const QJsonObject &all, const QString &drive)
    {
        return value(all.value(drive).toObject(), QStringLiteral("Drive Write Rate"));
    }

    std::unique_ptr<QTemporaryDir> m_directory;
    std::unique_ptr<DriveCollector> m_collector;
    QJsonObject m_smart;
};

void DriveCollectorTest::init()
{
    m_directory = std::make_unique<QTemporaryDir>();
    QVERIFY(m_directory->isValid());
    m_collector = std::make_unique<DriveCollector>(
        MachineRoots{path(QStringLiteral("proc")), path(QStringLiteral("sys"))});
}

void DriveCollectorTest::listsDrivesWithoutATemperature()
{
    QVERIFY(addDrive(QStringLiteral("vda"), QStringLiteral("virtio1"), 10));
    QCOMPARE(collect(second), (QJsonObject{{QStringLiteral("Drive: vda"), QJsonObject()}}));
    QVERIFY(addDrive(QStringLiteral("vda"), QStringLiteral("virtio1"), 16));
    const QJsonObject all = collect(3 * second);
    QCOMPARE(written(all, QStringLiteral("Drive: vda")), 3.0);
    QCOMPARE(all.value(QStringLiteral("Drive: vda")).toObject().keys(),
             texts({"Drive Busy", "Drive Read Rate", "Drive Request Time", "Drive Write Rate"}));
    QVERIFY2(m_smart.isEmpty(), "the keys of drives know no drive without a temperature");
}

void DriveCollectorTest::tellsEqualDrivesApart()
{
    for (const auto &[name, device] :
         {std::pair("sda", "0:0:0:0"), std::pair("sdb", "1:0:0:0"), std::pair("sdc", "2:0:0:0")}) {
        QVERIFY(addDrive(QString::fromLatin1(name), QString::fromLatin1(device), 0));
        QVERIFY(setModel(QString::fromLatin1(device), *name == 's' && name[2] == 'c' ? "B" : "A"));
    }
    collect(second);
    const QJsonObject all = collect(2 * second);
    QCOMPARE(all.keys(), texts({"Drive: A (0:0:0:0)", "Drive: A (1:0:0:0)", "Drive: B"}));
    QStringList labels;
    for (const QString &group : all.keys())
        labels += all.value(group).toObject().keys().filter(QStringLiteral("Busy"));
    QCOMPARE(labels, texts({"Drive Busy", "A (1:0:0:0) Drive Busy", "B Drive Busy"}));
}

void DriveCollectorTest::leavesOutWhatIsNoDrive_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("an optical drive") << QStringLiteral("sr0") << QString() << QByteArray();
    QTest::newRow("a floppy") << QStringLiteral("fd0") << QString() << QByteArray();
    QTest::newRow("boot part") << QStringLiteral("mmcblk0boot1") << QString() << QByteArray();
    QTest::newRow("locked part") << QStringLiteral("mmcblk0rpmb") << QString() << QByteArray();
    QTest::newRow("an empty reader")
        << QStringLiteral("sdb") << QStringLiteral("size") << QByteArray("0\n");
    QTest::newRow("a path to a drive")
        << QStringLiteral("nvme0c0n1") << QStringLiteral("hidden") << QByteArray("1\n");
}

void DriveCollectorTest::leavesOutWhatIsNoDrive()
{
    QFETCH(const QString, name);
    QFETCH(const QString, file);
    QFETCH(const QByteArray, content);
    QVERIFY(addDrive(name, QStringLiteral("device"), 0));
    if (!file.isEmpty())
        QVERIFY(writeFile(path(QStringLiteral("sys/block/%1/%2").arg(name, file)), content));
    QVERIFY(collect(second).isEmpty());
}

void DriveCollectorTest::driveComesAndGoes()
{
    const QString sdb = QStringLiteral("sdb");
    collect(second);
    QVERIFY(addDrive(sdb, QStringLiteral("6:0:0:0"), 1));
    QVERIFY2(collect(2 * second).isEmpty(), "listed every ten seconds");
    QVERIFY(collect(11 * second).contains(QStringLiteral("Drive: sdb")));
    QVERIFY(QDir(path(QStringLiteral("sys/block/sdb"))).removeRecursively());
    QVERIFY(collect(12 * second).value(QStringLiteral("Drive: sdb")).toObject().isEmpty());
    QVERIFY(collect(21 * second).isEmpty());
}

void DriveCollectorTest::otherDriveOfTheSameNameStartsAnew()
{
    const QString sdb = QStringLiteral("sdb");
    QVERIFY(addDrive(sdb, QStringLiteral("6:0:0:0"), 1));
    collect(second);
    QVERIFY(QDir(path(QStringLiteral("sys/block/sdb"))).removeRecursively());
    QVERIFY(addDrive(sdb, QStringLiteral("7:0:0:0"), 100));
    QVERIFY(collect(11 * second).value(QStringLiteral("Drive: sdb")).toObject().isEmpty());
    QVERIFY(addDrive(sdb, QStringLiteral("7:0:0:0"), 104));
    QCOMPARE(written(collect(12 * second), QStringLiteral("Drive: sdb")), 4.0);
}

void DriveCollectorTest::unreadableCountersGiveNoReading_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("letters") << QByteArray("a b c\n");
    QTest::newRow("started anew") << QByteArray("0 0 0 0 0 0 1 0 0 0 0\n");
}

void DriveCollectorTest::unreadableCountersGiveNoReading()
{
    QFETCH(const QByteArray, content);
    QVERIFY(addDrive(QStringLiteral("vda"), QStringLiteral("virtio1"), 10));
    collect(second);
    QVERIFY(writeFile(path(QStringLiteral("sys/block/vda/stat")), content));
    QCOMPARE(collect(2 * second), (QJsonObject{{QStringLiteral("Drive: vda"), QJsonObject()}}));
}

QTEST_APPLESS_MAIN(DriveCollectorTest)
#include "tst_drivecollector.moc"
