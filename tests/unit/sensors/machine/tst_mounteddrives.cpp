#include "sensors/machine/MountPlaces.h"
#include "sensors/machine/MountedDrives_linux.h"
#include "tests/support/FileTree.h"

#include <QtTest>

#include <memory>

Q_DECLARE_METATYPE(DriveSpace)

/// Which mounts of a machine are its fixed drives, by written tables and device trees.
class tst_MountedDrives : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void listsOnlyFixedDrives_data();
    void listsOnlyFixedDrives();
    void keepsTheOrderAndTheFirstMountOfEach();
    void countsAllOfACardThatHoldsTheSystem();
    void tellsThePlacesOfDrives_data();
    void tellsThePlacesOfDrives();
    void listsAPoolOnce();
    void addsUpAPool_data();
    void addsUpAPool();
    void leavesOutWhatIsCovered_data();
    void leavesOutWhatIsCovered();
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
    void addUsbDisk(const QByteArray &removable);
    void addCard(const QString &name, const QByteArray &number, const QByteArray &type);
    void makeDisksOfAllKinds();
    QStringList rootsOf(const QByteArray &mountInfo);

    std::unique_ptr<FileTree> m_tree;
    std::unique_ptr<FileTree> m_kinds;
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

/// A disk or a stick, which differ in what the medium says, in a socket that can be pulled.
void tst_MountedDrives::addUsbDisk(const QByteArray &removable)
{
    const QString device = QStringLiteral("sys/devices/pci0000:00/usb1/1-4");
    m_tree->makeFolder(QStringLiteral("sys/bus/usb"));
    m_tree->link(device + QStringLiteral("/subsystem"), QStringLiteral("sys/bus/usb"));
    m_tree->link(device + QStringLiteral("/1-4:1.0/subsystem"), QStringLiteral("sys/bus/usb"));
    m_tree->write(device + QStringLiteral("/removable"), "removable\n");
    addDisk(QStringLiteral("sdb"), "8:16", removable,
            device.mid(4) + QStringLiteral("/1-4:1.0/host0"));
}

/// A card or chip of \a type at a built-in reader, which says "0" of all of them.
void tst_MountedDrives::addCard(const QString &name, const QByteArray &number,
                                const QByteArray &type)
{
    const QString bus = QStringLiteral("devices/platform/mmc-%1").arg(name);
    addDisk(name, number, "0", bus);
    m_tree->write(QStringLiteral("sys/%1/block/%2/device/type").arg(bus, name), type + '\n');
}

QStringList tst_MountedDrives::rootsOf(const QByteArray &mountInfo)
{
    m_tree->write(QStringLiteral("proc/self/mountinfo"), mountInfo);
    MountedDrives drives(m_tree->path(QStringLiteral("proc")), m_tree->path(QStringLiteral("sys")),
                         m_tree->path(QStringLiteral("dev")));
    return drives.fixedRoots();
}

/// A machine with a disk of each kind.
void tst_MountedDrives::makeDisksOfAllKinds()
{
    init();
    addDisk(QStringLiteral("sdc"), "8:32", "1");
    addDisk(QStringLiteral("sr0"), "11:0");
    addDisk(QStringLiteral("zram0"), "252:0");
    addDisk(QStringLiteral("nbd0"), "43:0");
    addDisk(QStringLiteral("ram0"), "1:0");
    addDisk(QStringLiteral("sram0x"), "8:48");
    addDisk(QStringLiteral("loop0"), "7:0");
    addDisk(QStringLiteral("sde"), "8:64", "");
    addDisk(QStringLiteral("rbd0"), "251:0", "0", QStringLiteral("devices/rbd/0"));
    addDisk(QStringLiteral("drbd0"), "147:0", "0", QStringLiteral("devices/virtual"));
    addDisk(QStringLiteral("sdf"), "8:80", "0",
            QStringLiteral("devices/platform/host3/session1/target3:0:0/3:0:0:1"));
    addDisk(QStringLiteral("mspblk0"), "180:0");
    addCard(QStringLiteral("mmcblk0"), "179:0", "MMC");
    addCard(QStringLiteral("mmcblk1"), "179:32", "SD");
    addDisk(QStringLiteral("loop1"), "7:1");
    for (const char *member : {"loop1", "sdc"})
        m_tree->link(QStringLiteral("sys/fs/btrfs/1234/devices/") + QLatin1String(member),
                     QStringLiteral("sys/class/block/") + QLatin1String(member));
    m_kinds = std::move(m_tree);
}

void tst_MountedDrives::listsOnlyFixedDrives_data()
{
    makeDisksOfAllKinds();
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
    row("Ceph", "9 1 251:0 / /x rw - ext4 /dev/rbd0 rw", false);
    row("DRBD", "9 1 147:0 / /x rw - ext4 /dev/drbd0 rw", false);
    row("iSCSI", "9 1 8:80 / /x rw - ext4 /dev/sdf rw", false);
    row("network device as root", "9 1 43:0 / / rw - ext4 /dev/nbd0 rw", false);
    row("eMMC", "9 1 179:0 / /x rw - ext4 /dev/mmcblk0 rw", true);
    row("card", "9 1 179:32 / /media/card rw - ext4 /dev/mmcblk1 rw", false);
    row("card as root", "9 1 179:32 / / rw - ext4 /dev/mmcblk1 rw", true);
    row("memory stick", "9 1 180:0 / /media/card rw - vfat /dev/mspblk0 rw", false);
    row("removable disk as root", "9 1 8:32 / / rw - ext4 /dev/sdc rw", true);
    row("bcachefs", "9 1 8:1 / /x rw - bcachefs /dev/sda1 rw", true);
    row("bcachefs on two disks", "9 1 0:70 / /x rw - bcachefs /dev/sda1:/dev/loop0 rw", true);
    row("bcachefs with a stick", "9 1 8:1 / /x rw - bcachefs /dev/sda1:/dev/sdc rw", false);
    row("bcachefs by its name", "9 1 8:1 / /x rw - bcachefs UUID=1234 rw", true);
    row("btrfs with a stick", "9 1 0:40 / /x rw - btrfs /dev/loop1 rw", false);
    row("data set", "9 1 0:80 / /tank rw - zfs tank rw", true);
    row("data set without a pool", "9 1 0:80 / /tank rw - zfs /x rw", false);
    row("snapshot", "9 1 0:81 / /tank/.zfs/snapshot/a ro - zfs tank@a rw", false);
    row("where the system starts from", "9 1 8:1 / /boot rw - ext4 /dev/sda1 rw", false);
    row("firmware's part", "9 1 8:1 / /boot/efi rw - vfat /dev/sda1 rw", false);
    row("small board's firmware", "9 1 8:1 / /boot/firmware rw - vfat /dev/sda1 rw", false);
    row("pool to start from", "9 1 0:82 / /boot rw - zfs bpool/BOOT/a rw", false);
    row("container", "9 1 8:1 / /var/lib/docker/devicemapper/mnt/a rw - xfs /dev/sda1 rw", false);
    row("pod", "9 1 8:1 / /var/lib/kubelet/pods/a/volumes/b rw - xfs /dev/sda1 rw", false);
    row("snap's image", "9 1 7:0 / /snap/x rw - ext4 /dev/loop0 rw", false);
    row("container's pool", "9 1 7:0 / /var/snap/lxd/pools/a rw - btrfs /dev/loop0 rw", false);
    row("disk for containers", "9 1 8:1 / /var/lib/docker rw - xfs /dev/sda1 rw", true);
    row("disk that says nothing", "9 1 8:64 / /x rw - ext4 /dev/sde rw", false);
}

void tst_MountedDrives::listsOnlyFixedDrives()
{
    QFETCH(QByteArray, mount);
    QFETCH(bool, listed);
    m_tree.swap(m_kinds);
    const bool isListed = !rootsOf(mount).isEmpty();
    m_tree.swap(m_kinds);
    QCOMPARE(isListed, listed);
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

void tst_MountedDrives::countsAllOfACardThatHoldsTheSystem()
{
    addCard(QStringLiteral("mmcblk0"), "179:0", "SD");
    const QString bus = QStringLiteral("devices/platform/mmc-mmcblk0");
    for (const int part : {1, 2, 3})
        addPartition(QStringLiteral("mmcblk0"), QStringLiteral("mmcblk0p%1").arg(part),
                     "179:" + QByteArray::number(part), bus);
    addCard(QStringLiteral("mmcblk1"), "179:32", "SD");
    QCOMPARE(rootsOf("20 1 179:2 / / rw - ext4 /dev/root rw\n"
                     "21 20 179:1 / /boot/firmware rw - vfat /dev/mmcblk0p1 rw\n"
                     "22 20 179:3 / /data rw - ext4 /dev/mmcblk0p3 rw\n"
                     "23 20 179:32 / /media/other rw - vfat /dev/mmcblk1 rw\n"),
             (QStringList{QStringLiteral("/"), QStringLiteral("/data")}));
}

void tst_MountedDrives::tellsThePlacesOfDrives_data()
{
    QTest::addColumn<QString>("place");
    QTest::addColumn<bool>("isDrive");
    for (const char *place : {"/boot",
                              "/boot/efi",
                              "/efi",
                              "/var/lib/docker/a",
                              "/run/docker/a",
                              "/var/lib/containers/a",
                              "/run/containers/a",
                              "/run/containerd/a",
                              "/var/lib/containerd/a",
                              "/var/lib/kubelet/a",
                              "/var/lib/rancher/a",
                              "/var/lib/lxc/a",
                              "/var/lib/lxd/a",
                              "/var/lib/incus/a",
                              "/var/lib/machines/a",
                              "/var/lib/snapd/a",
                              "/var/snap/a",
                              "/snap/a",
                              "/data/kubelet/pods/a",
                              "/data/kubelet/plugins/a",
                              "/home/me/.local/share/containers/storage/a"})
        QTest::newRow(place) << QString::fromLatin1(place) << false;
    for (const char *place : {"/", "/home", "/bootes", "/efi2", "/var/lib/dockers/a",
                              "/var/lib/docker", "/srv/boot", "/containers", "/run/media/me/disk"})
        QTest::newRow(place) << QString::fromLatin1(place) << true;
}

void tst_MountedDrives::tellsThePlacesOfDrives()
{
    QFETCH(QString, place);
    QTEST(isPlaceOfADrive(place), "isDrive");
}

void tst_MountedDrives::listsAPoolOnce()
{
    m_tree->write(QStringLiteral("proc/self/mountinfo"),
                  "20 1 0:30 / / rw - zfs rpool/ROOT/debian rw\n"
                  "21 20 0:31 / /boot rw - zfs bpool/BOOT/debian rw\n"
                  "22 20 0:32 / /home rw - zfs rpool/home rw\n"
                  "23 20 0:33 / /var/lib/docker/zfs/graph/a rw - zfs tank/docker/a rw\n"
                  "24 20 0:34 / /tank rw - zfs tank rw\n"
                  "25 20 8:1 / /data rw - ext4 /dev/sda1 rw\n");
    MountedDrives drives(m_tree->path(QStringLiteral("proc")), m_tree->path(QStringLiteral("sys")),
                         m_tree->path(QStringLiteral("dev")));
    QCOMPARE(drives.fixedRoots(),
             (QStringList{QStringLiteral("/"), QStringLiteral("/tank"), QStringLiteral("/data")}));
    QCOMPARE(drives.volumeName(QStringLiteral("/")), std::make_optional(QStringLiteral("rpool")));
}

void tst_MountedDrives::addsUpAPool_data()
{
    QTest::addColumn<QVector<DriveSpace>>("dataSets");
    QTest::addColumn<DriveSpace>("pool");
    const auto row = [](const char *name, const QVector<DriveSpace> &dataSets, DriveSpace pool) {
        QTest::newRow(name) << dataSets << pool;
    };
    row("one", {{60, 100}}, {60, 100});
    row("two", {{60, 100}, {60, 65}}, {60, 105});
    row("one with a quota", {{60, 100}, {5, 10}}, {60, 105});
    row("a reserve", {{60, 100}, {80, 80}}, {80, 120});
    row("more free than there is", {{60, 100}, {20, 10}}, {60, 100});
    row("none", {}, {0, 0});
}

void tst_MountedDrives::addsUpAPool()
{
    QFETCH(QVector<DriveSpace>, dataSets);
    QFETCH(DriveSpace, pool);
    QCOMPARE(poolSpace(dataSets).freeBytes, pool.freeBytes);
    QCOMPARE(poolSpace(dataSets).totalBytes, pool.totalBytes);
}

void tst_MountedDrives::leavesOutWhatIsCovered_data()
{
    QTest::addColumn<QByteArray>("over");
    QTest::addColumn<QStringList>("roots");
    const QString data = QStringLiteral("/mnt/data");
    const auto row = [](const char *name, const char *over, const QStringList &roots) {
        QTest::newRow(name) << QByteArray(over) << roots;
    };
    row("nothing", "", {data});
    row("network over the drive", "22 21 0:60 / /mnt/data rw - nfs4 nas:/x rw\n", {});
    row("network over its folder", "22 20 0:60 / /mnt rw - nfs4 nas:/x rw\n", {});
    row("network over everything", "22 20 0:60 / / rw - nfs4 nas:/x rw\n", {});
    row("network beside it", "22 20 0:60 / /mnt/dat rw - nfs4 nas:/x rw\n", {data});
    row("network in it", "22 21 0:60 / /mnt/data/nas rw - nfs4 nas:/x rw\n", {data});
    row("mounted again in its place", "22 21 8:1 / /mnt/data rw - ext4 /dev/sda1 rw\n", {data});
    row("another drive over it", "22 21 8:2 / /mnt/data rw - ext4 /dev/sda2 rw\n", {data});
    row("network over a pool",
        "22 20 0:61 / /tank rw - zfs tank rw\n"
        "23 22 0:60 / /tank rw - nfs4 nas:/x rw\n",
        {data});
}

void tst_MountedDrives::leavesOutWhatIsCovered()
{
    QFETCH(QByteArray, over);
    QTEST(rootsOf("20 1 0:25 / / rw - overlay overlay rw\n"
                  "21 20 8:1 / /mnt/data rw - ext4 /dev/sda1 rw\n" +
                  over),
          "roots");
}

void tst_MountedDrives::looksThroughStackedDevices_data()
{
    QTest::addColumn<QByteArray>("mount");
    QTest::addColumn<QByteArray>("removable");
    QTest::addColumn<bool>("listed");
    const QByteArray crypt = "9 1 253:0 / /x rw - ext4 /dev/mapper/crypt rw";
    const QByteArray raid = "9 1 9:0 / /x rw - ext4 /dev/md0 rw";
    const QByteArray btrfs = "9 1 0:44 / /x rw - btrfs /dev/mapper/crypt rw";
    const QByteArray usb = "9 1 8:16 / /x rw - ext4 /dev/sdb rw";
    QTest::newRow("encrypted partition") << crypt << QByteArray("1") << true;
    QTest::newRow("btrfs on it") << btrfs << QByteArray("1") << true;
    QTest::newRow("RAID with a stick") << raid << QByteArray("1") << false;
    QTest::newRow("RAID with a USB disk") << raid << QByteArray("0") << true;
    QTest::newRow("USB disk") << usb << QByteArray("0") << true;
    QTest::newRow("USB stick") << usb << QByteArray("1") << false;
}

void tst_MountedDrives::looksThroughStackedDevices()
{
    QFETCH(QByteArray, mount);
    QFETCH(QByteArray, removable);
    QFETCH(bool, listed);
    addUsbDisk(removable);
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
