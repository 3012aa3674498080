#include "sensors/machine/MountPlaces.h"
#include "sensors/machine/MountedDrives_linux.h"
#include "tests/support/CapturedMachine.h"
#include "tests/support/FileTree.h"

#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

/// Which mounts of a machine are its fixed drives, on the machines of tests/fixtures and by written
/// tables and device trees.
class tst_MountedDrives : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void listsOnlyFixedDrives_data();
    void listsOnlyFixedDrives();
    void keepsTheOrderAndTheFirstMountOfEach();
    void tellsThePlacesOfDrives_data();
    void tellsThePlacesOfDrives();
    void listsAPoolOnce();
    void readsThousandsOfDataSetsQuickly();
    void listsARootThatIsItsOwnParent();
    void leavesOutWhatIsCovered_data();
    void leavesOutWhatIsCovered();
    void namesAVolumeByTheDeviceManager_data();
    void namesAVolumeByTheDeviceManager();
    void answersNothingForADriveThatIsGone();
    void missingTablesGiveNoDrives();

private:
    void addDisk(const QString &name, const QByteArray &number);
    void addPartition(const QString &disk, const QString &name, const QByteArray &number);
    void addBlock(const QString &folder, const QByteArray &number);
    QStringList rootsOf(const QByteArray &mountInfo);
    QString machine(const QString &name);
    std::unique_ptr<MountedDrives> drivesOf(const QString &name);

    std::unique_ptr<FileTree> m_tree;
    QTemporaryDir m_machines;
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

void tst_MountedDrives::addDisk(const QString &name, const QByteArray &number)
{
    const QString folder = QStringLiteral("sys/devices/pci0000:00/ata1/block/") + name;
    m_tree->write(folder + QStringLiteral("/removable"), "0\n");
    addBlock(folder, number);
}

void tst_MountedDrives::addPartition(const QString &disk, const QString &name,
                                     const QByteArray &number)
{
    const QString folder =
        QStringLiteral("sys/devices/pci0000:00/ata1/block/%1/%2").arg(disk, name);
    m_tree->write(folder + QStringLiteral("/partition"), "1\n");
    addBlock(folder, number);
}

QStringList tst_MountedDrives::rootsOf(const QByteArray &mountInfo)
{
    m_tree->write(QStringLiteral("proc/self/mountinfo"), mountInfo);
    MountedDrives drives(m_tree->path(QStringLiteral("proc")), m_tree->path(QStringLiteral("sys")),
                         m_tree->path(QStringLiteral("dev")));
    return drives.fixedRoots();
}

/// The folder of a captured machine, unpacked once.
QString tst_MountedDrives::machine(const QString &name)
{
    const QString folder = m_machines.filePath(name);
    if (!QFile::exists(folder) && !unpackMachine(name, QString(), folder))
        qFatal("cannot unpack %s", qPrintable(name));
    return folder;
}

std::unique_ptr<MountedDrives> tst_MountedDrives::drivesOf(const QString &name)
{
    const QString folder = machine(name);
    return std::make_unique<MountedDrives>(folder + QStringLiteral("/proc"),
                                           folder + QStringLiteral("/sys"),
                                           folder + QStringLiteral("/dev"));
}

void tst_MountedDrives::listsOnlyFixedDrives_data()
{
    QTest::addColumn<QString>("machine");
    QTest::addColumn<QString>("place");
    QTest::addColumn<bool>("listed");
    QString machine;
    const auto row = [&machine](const char *name, const char *place, bool listed) {
        QTest::newRow(name) << machine << QString::fromLatin1(place) << listed;
    };
    machine = QStringLiteral("usb-drives-desktop");
    row("partition", "/", true);
    row("whole disk", "/whole", true);
    row("bind mount", "/www", false);
    row("tmpfs", "/run", false);
    row("network", "/nas", false);
    row("network of another kind", "/share", false);
    row("FUSE over a file", "/archive", false);
    row("FUSE over a disk", "/windows", true);
    row("unknown device", "/unknown", false);
    row("USB disk", "/media/disk", true);
    row("USB stick", "/media/stick", false);
    row("card in a USB reader", "/media/card", false);
    row("disk that says nothing", "/silent", false);
    row("firmware's part", "/boot/efi", false);
    machine = QStringLiteral("live-system-on-a-stick");
    row("removable disk as root", "/", true);
    row("the rest of it", "/data", true);
    row("disk beside it", "/mnt/internal", true);
    machine = QStringLiteral("small-board-on-a-card");
    row("card as root", "/", true);
    row("the rest of the card", "/data", true);
    row("small board's firmware", "/boot/firmware", false);
    row("another card", "/media/other", false);
    machine = QStringLiteral("small-board-with-soldered-memory");
    row("USB disk as root", "/", true);
    row("eMMC", "/storage", true);
    row("where the system starts from", "/boot", false);
    row("card", "/media/card", false);
    row("memory stick", "/media/memory-stick", false);
    machine = QStringLiteral("network-disks-server");
    row("disk of its own", "/", true);
    row("iSCSI", "/iscsi", false);
    row("Ceph", "/ceph", false);
    row("network block device", "/nbd", false);
    row("DRBD", "/drbd", false);
    machine = QStringLiteral("client-without-a-disk");
    row("network device as root", "/", false);
    machine = QStringLiteral("stacked-disks-desktop");
    row("encrypted partition", "/", true);
    row("btrfs on one", "/home", true);
    row("RAID with a USB disk", "/mirror", true);
    row("RAID with a stick", "/mirror-with-a-stick", false);
    row("device tree without end", "/without-end", false);
    machine = QStringLiteral("btrfs-and-bcachefs-desktop");
    row("btrfs subvolume as root", "/", true);
    row("btrfs subvolume", "/data", true);
    row("second subvolume", "/home", false);
    row("btrfs with a stick", "/mixed", false);
    row("btrfs of an unknown device", "/unknown", false);
    row("btrfs without a device", "/nameless", false);
    row("bcachefs", "/one", true);
    row("bcachefs on two disks", "/two", true);
    row("bcachefs with a stick", "/two-with-a-stick", false);
    row("bcachefs by its name", "/by-its-name", true);
    machine = QStringLiteral("images-desktop");
    row("snap", "/snap/core/1", false);
    row("snap's image", "/snap/x/1", false);
    row("container's pool", "/var/snap/lxd/common/lxd/storage-pools/default", false);
    row("loop device", "/mnt/image", true);
    row("optical image", "/mnt/dvd", false);
    row("squashfs on a disk", "/mnt/programs", false);
    row("optical drive", "/media/optical", false);
    row("compressed memory", "/mnt/compressed", false);
    row("memory disk", "/mnt/memory", false);
    row("disk whose name only begins so", "/mnt/name-begins-so", true);
    row("disk whose name only ends so", "/mnt/name-ends-so", true);
    machine = QStringLiteral("container");
    row("overlay", "/", false);
    row("file of the host", "/etc/hosts", false);
    machine = QStringLiteral("container-host");
    row("disk for containers", "/var/lib/docker", true);
    row("container", "/var/lib/docker/devicemapper/mnt/a", false);
    row("user's container", "/home/me/.local/share/containers/storage/b", false);
    row("container's overlay", "/var/lib/docker/overlay2/c/merged", false);
    machine = QStringLiteral("cluster-node");
    row("root on a part", "/", true);
    row("pod", "/var/lib/kubelet/pods/a/volumes/kubernetes.io~csi/b/mount", false);
    row("pods' volume", "/var/lib/kubelet/plugins/kubernetes.io/csi/c/globalmount", false);
    row("pod in another place", "/data/kubelet/pods/d/volumes/e", false);
    machine = QStringLiteral("zfs-server");
    row("data set", "/tank", true);
    row("data set as root", "/", true);
    row("second data set", "/home", false);
    row("data set of a container", "/var/lib/docker/zfs/graph/a", false);
    row("data set without a pool", "/without-a-pool", false);
    row("snapshot", "/tank/.zfs/snapshot/a", false);
    row("pool to start from", "/boot", false);
    row("disk beside the pools", "/data", true);
}

void tst_MountedDrives::listsOnlyFixedDrives()
{
    QFETCH(QString, machine);
    QFETCH(QString, place);
    QFETCH(bool, listed);
    QFile table(this->machine(machine) + QStringLiteral("/proc/self/mountinfo"));
    QVERIFY(table.open(QIODevice::ReadOnly));
    QVERIFY(table.readAll().contains(' ' + QFile::encodeName(place) + ' '));
    QCOMPARE(drivesOf(machine)->fixedRoots().contains(place), listed);
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
    const std::unique_ptr<MountedDrives> drives = drivesOf(QStringLiteral("zfs-server"));
    QCOMPARE(drives->fixedRoots(),
             (QStringList{QStringLiteral("/"), QStringLiteral("/tank"), QStringLiteral("/data")}));
    QCOMPARE(drives->volumeName(QStringLiteral("/")), std::make_optional(QStringLiteral("rpool")));
}

void tst_MountedDrives::readsThousandsOfDataSetsQuickly()
{
    QByteArray table = "20 1 0:30 / /tank rw - zfs tank rw\n";
    for (int id = 100; id < 30000; ++id) {
        const QByteArray number = QByteArray::number(id);
        table += number + " 20 0:" + number + " / /tank/" + number + " rw - zfs tank/" + number +
                 " rw\n";
    }
    QElapsedTimer time;
    time.start();
    QCOMPARE(rootsOf(table), QStringList{QStringLiteral("/tank")});
    // Comparing each mount with each other takes more than ten times as long.
    QVERIFY2(time.elapsed() < 4000, qPrintable(QString::number(time.elapsed())));
}

/// As the first file system of a kernel is.
void tst_MountedDrives::listsARootThatIsItsOwnParent()
{
    QCOMPARE(rootsOf("1 1 8:1 / / rw - ext4 /dev/sda1 rw\n"), QStringList{QStringLiteral("/")});
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

QTEST_APPLESS_MAIN(tst_MountedDrives)
#include "tst_mounteddrives.moc"
