#include "sensors/machine/MountedDrives_linux.h"
#include "tests/support/FileTree.h"

#include <QtTest>

#include <memory>

/// Which mounts of a machine are its fixed drives, by written tables and device trees.
class tst_MountedDrives : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void listsOnlyFixedDrives_data();
    void listsOnlyFixedDrives();
    void keepsTheOrderAndTheFirstMountOfEach();
    void looksThroughStackedDevices_data();
    void looksThroughStackedDevices();
    void namesAVolumeByTheDeviceManager_data();
    void namesAVolumeByTheDeviceManager();
    void answersNothingForADriveThatIsGone();
    void missingTablesGiveNoDrives();
    void endsInADeviceTreeWithoutEnd();

private:
    void addDisk(const QString &name, const QByteArray &number, const QByteArray &removable = "0",
                 const QString &bus = QStringLiteral("devices/pci0000:00/ata1"));
    void addPartition(const QString &disk, const QString &name, const QByteArray &number,
                      const QString &bus = QStringLiteral("devices/pci0000:00/ata1"));
    void addBlock(const QString &folder, const QByteArray &number);
    void addUsbBus(const QByteArray &socket);
    QStringList rootsOf(const QByteArray &mountInfo);

    std::unique_ptr<FileTree> m_tree;
};

void tst_MountedDrives::init()
{
    m_tree = std::make_unique<FileTree>();
    addDisk(QStringLiteral("sda"), "8:0");
    addPartition(QStringLiteral("sda"), QStringLiteral("sda1"), "8:1");
    addPartition(QStringLiteral("sda"), QStringLiteral("sda2"), "8:2");
}

void tst_MountedDrives::addBlock(const QString &folder, const QByteArray &number)
{
    m_tree->write(folder + QStringLiteral("/dev"), number + '\n');
    m_tree->link(QStringLiteral("sys/dev/block/") + QString::fromLatin1(number), folder);
    const QString name = folder.section(QLatin1Char('/'), -1);
    m_tree->link(QStringLiteral("sys/class/block/") + name, folder);
    m_tree->write(QStringLiteral("dev/") + name, {});
}

void tst_MountedDrives::addDisk(const QString &name, const QByteArray &number,
                                const QByteArray &removable, const QString &bus)
{
    const QString folder = QStringLiteral("sys/%1/block/%2").arg(bus, name);
    m_tree->write(folder + QStringLiteral("/removable"), removable + '\n');
    addBlock(folder, number);
}

void tst_MountedDrives::addPartition(const QString &disk, const QString &name,
                                     const QByteArray &number, const QString &bus)
{
    const QString folder = QStringLiteral("sys/%1/block/%2/%3").arg(bus, disk, name);
    m_tree->write(folder + QStringLiteral("/partition"), "1\n");
    addBlock(folder, number);
}

/// A disk behind a USB interface whose device says \a socket of where it sits.
void tst_MountedDrives::addUsbBus(const QByteArray &socket)
{
    const QString device = QStringLiteral("sys/devices/pci0000:00/usb1/1-4");
    m_tree->makeFolder(QStringLiteral("sys/bus/usb"));
    m_tree->link(device + QStringLiteral("/subsystem"), QStringLiteral("sys/bus/usb"));
    m_tree->link(device + QStringLiteral("/1-4:1.0/subsystem"), QStringLiteral("sys/bus/usb"));
    if (!socket.isEmpty())
        m_tree->write(device + QStringLiteral("/removable"), socket + '\n');
    addDisk(QStringLiteral("sdb"), "8:16", "0", device.mid(4) + QStringLiteral("/1-4:1.0/host0"));
}

QStringList tst_MountedDrives::rootsOf(const QByteArray &mountInfo)
{
    m_tree->write(QStringLiteral("proc/self/mountinfo"), mountInfo);
    MountedDrives drives(m_tree->path(QStringLiteral("proc")), m_tree->path(QStringLiteral("sys")),
                         m_tree->path(QStringLiteral("dev")));
    return drives.fixedRoots();
}

void tst_MountedDrives::listsOnlyFixedDrives_data()
{
    QTest::addColumn<QByteArray>("mount");
    QTest::addColumn<bool>("listed");
    const auto row = [](const char *name, const char *mount, bool listed) {
        QTest::newRow(name) << QByteArray(mount) << listed;
    };
    row("partition", "9 1 8:1 / /data rw - ext4 /dev/sda1 rw", true);
    row("whole disk", "9 1 8:0 / /data rw - xfs /dev/sda rw", true);
    row("btrfs subvolume", "9 1 0:40 /@home /home rw - btrfs /dev/sda2 rw", true);
    row("root on a part", "9 1 8:1 /deploy/1 / rw - ext4 /dev/sda1 rw", true);
    row("bind mount", "9 1 8:1 /srv/www /www rw - ext4 /dev/sda1 rw", false);
    row("squashfs", "9 1 8:1 / /snap/x rw - squashfs /dev/sda1 ro", false);
    row("optical image", "9 1 8:1 / /media/dvd ro - iso9660 /dev/sda1 ro", false);
    row("tmpfs", "9 1 0:25 / /run rw - tmpfs tmpfs rw", false);
    row("overlay", "9 1 0:50 / / rw - overlay overlay rw", false);
    row("network", "9 1 0:60 / /nas rw - nfs4 nas:/export rw", false);
    row("network on btrfs's number", "9 1 0:60 / /nas rw - cifs //nas/x rw", false);
    row("FUSE over a disk", "9 1 0:61 / /win rw - fuseblk /dev/sda1 rw", false);
    row("btrfs of an unknown device", "9 1 0:41 / /x rw - btrfs /dev/sdz9 rw", false);
    row("btrfs without a device", "9 1 0:41 / /x rw - btrfs none rw", false);
    row("unknown device", "9 1 99:1 / /x rw - ext4 /dev/sdz rw", false);
    row("removable disk", "9 1 8:32 / /media/card rw - ext4 /dev/sdc rw", false);
    row("optical drive", "9 1 11:0 / /media/x rw - ext4 /dev/sr0 rw", false);
    row("compressed memory", "9 1 252:0 / /x rw - ext4 /dev/zram0 rw", false);
    row("network block device", "9 1 43:0 / /x rw - ext4 /dev/nbd0 rw", false);
    row("memory disk", "9 1 1:0 / /x rw - ext4 /dev/ram0 rw", false);
    row("disk whose name only begins so", "9 1 8:48 / /x rw - ext4 /dev/sram0x rw", true);
    row("loop device", "9 1 7:0 / /x rw - ext4 /dev/loop0 rw", true);
    row("disk that says nothing", "9 1 8:64 / /x rw - ext4 /dev/sde rw", false);
}

void tst_MountedDrives::listsOnlyFixedDrives()
{
    QFETCH(QByteArray, mount);
    QFETCH(bool, listed);
    addDisk(QStringLiteral("sdc"), "8:32", "1");
    addDisk(QStringLiteral("sr0"), "11:0");
    addDisk(QStringLiteral("zram0"), "252:0");
    addDisk(QStringLiteral("nbd0"), "43:0");
    addDisk(QStringLiteral("ram0"), "1:0");
    addDisk(QStringLiteral("sram0x"), "8:48");
    addDisk(QStringLiteral("loop0"), "7:0");
    addDisk(QStringLiteral("sde"), "8:64", "");
    QCOMPARE(!rootsOf(mount).isEmpty(), listed);
}

void tst_MountedDrives::keepsTheOrderAndTheFirstMountOfEach()
{
    QCOMPARE(
        rootsOf("22 1 8:2 / / rw - ext4 /dev/sda2 rw\n"
                "23 22 8:2 / /mnt/again rw - ext4 /dev/sda2 rw\n"
                "24 22 0:40 /@ /pool rw - btrfs /dev/sda1 rw\n"
                "25 22 0:40 /@home /home rw - btrfs /dev/sda1 rw\n"
                "26 22 8:0 / /my\\040data rw - ext4 /dev/sda rw\n"),
        (QStringList{QStringLiteral("/"), QStringLiteral("/pool"), QStringLiteral("/my data")}));
}

void tst_MountedDrives::looksThroughStackedDevices_data()
{
    QTest::addColumn<QByteArray>("mount");
    QTest::addColumn<QByteArray>("usbSocket");
    QTest::addColumn<bool>("listed");
    const QByteArray crypt = "9 1 253:0 / /x rw - ext4 /dev/mapper/crypt rw";
    const QByteArray raid = "9 1 9:0 / /x rw - ext4 /dev/md0 rw";
    const QByteArray btrfs = "9 1 0:44 / /x rw - btrfs /dev/mapper/crypt rw";
    const QByteArray usb = "9 1 8:16 / /x rw - ext4 /dev/sdb rw";
    QTest::newRow("encrypted partition") << crypt << QByteArray("removable") << true;
    QTest::newRow("btrfs on it") << btrfs << QByteArray("removable") << true;
    QTest::newRow("RAID with a removable disk") << raid << QByteArray("removable") << false;
    QTest::newRow("RAID with a fixed disk on USB") << raid << QByteArray("fixed") << true;
    QTest::newRow("USB, fixed") << usb << QByteArray("fixed") << true;
    QTest::newRow("USB, removable") << usb << QByteArray("removable") << false;
    QTest::newRow("USB, unknown") << usb << QByteArray("unknown") << false;
    QTest::newRow("USB, not said") << usb << QByteArray() << false;
}

void tst_MountedDrives::looksThroughStackedDevices()
{
    QFETCH(QByteArray, mount);
    QFETCH(QByteArray, usbSocket);
    QFETCH(bool, listed);
    addUsbBus(usbSocket);
    const QString stacked = QStringLiteral("devices/virtual");
    addDisk(QStringLiteral("dm-0"), "253:0", "0", stacked);
    m_tree->link(QStringLiteral("dev/mapper/crypt"), QStringLiteral("dev/dm-0"));
    m_tree->link(QStringLiteral("sys/devices/virtual/block/dm-0/slaves/sda2"),
                 QStringLiteral("sys/class/block/sda2"));
    addDisk(QStringLiteral("md0"), "9:0", "0", stacked);
    m_tree->link(QStringLiteral("sys/devices/virtual/block/md0/slaves/sda1"),
                 QStringLiteral("sys/class/block/sda1"));
    m_tree->link(QStringLiteral("sys/devices/virtual/block/md0/slaves/sdb"),
                 QStringLiteral("sys/class/block/sdb"));
    QCOMPARE(!rootsOf(mount).isEmpty(), listed);
}

void tst_MountedDrives::namesAVolumeByTheDeviceManager_data()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<QString>("name");
    QTest::newRow("plain") << QStringLiteral("data") << QStringLiteral("data");
    QTest::newRow("blank") << QStringLiteral("my\\x20data") << QStringLiteral("my data");
    QTest::newRow("other letters") << QStringLiteral("\\xe6\\x95\\xb0据") << QStringLiteral("数据");
    QTest::newRow("cut off") << QStringLiteral("a\\x2") << QStringLiteral("a\\x2");
    QTest::newRow("no number") << QStringLiteral("a\\xzz") << QStringLiteral("a\\xzz");
}

void tst_MountedDrives::namesAVolumeByTheDeviceManager()
{
    QFETCH(QString, entry);
    m_tree->link(QStringLiteral("dev/disk/by-label/") + entry, QStringLiteral("dev/sda1"));
    const BlockDevices devices(m_tree->path(QStringLiteral("sys")),
                               m_tree->path(QStringLiteral("dev")));
    QTEST(devices.label({8, 1}), "name");
    QCOMPARE(devices.label({8, 2}), QString());
}

void tst_MountedDrives::answersNothingForADriveThatIsGone()
{
    m_tree->write(QStringLiteral("proc/self/mountinfo"),
                  "9 1 8:1 / /no/such/place rw - ext4 /dev/sda1 rw\n");
    MountedDrives drives(m_tree->path(QStringLiteral("proc")), m_tree->path(QStringLiteral("sys")),
                         m_tree->path(QStringLiteral("dev")));
    QCOMPARE(drives.fixedRoots(), QStringList{QStringLiteral("/no/such/place")});
    QVERIFY(!drives.volumeName(QStringLiteral("/no/such/place")).has_value());
    QVERIFY(!drives.space(QStringLiteral("/no/such/place")).has_value());
    QVERIFY(!drives.volumeName(QStringLiteral("/")).has_value());
}

void tst_MountedDrives::missingTablesGiveNoDrives()
{
    const FileTree empty;
    MountedDrives drives(empty.path(QStringLiteral("proc")), empty.path(QStringLiteral("sys")),
                         empty.path(QStringLiteral("dev")));
    QVERIFY(drives.fixedRoots().isEmpty());
    QVERIFY(rootsOf(QByteArray(100000, '\0')).isEmpty());
}

void tst_MountedDrives::endsInADeviceTreeWithoutEnd()
{
    addDisk(QStringLiteral("dm-1"), "253:1", "0", QStringLiteral("devices/virtual"));
    m_tree->link(QStringLiteral("sys/devices/virtual/block/dm-1/slaves/dm-1"),
                 QStringLiteral("sys/class/block/dm-1"));
    QVERIFY(rootsOf("9 1 253:1 / /x rw - ext4 /dev/dm-1 rw").isEmpty());
}

QTEST_APPLESS_MAIN(tst_MountedDrives)
#include "tst_mounteddrives.moc"
