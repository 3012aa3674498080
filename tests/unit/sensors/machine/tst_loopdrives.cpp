#include "sensors/machine/MountedDrives_linux.h"
#include "tests/support/MountFolder.h"

#include <QtTest>

#include <memory>

/// Real file systems on loop devices, mounted where only this process sees them.
class tst_LoopDrives : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void listsAMountedDrive();
    void forgetsAnUnmountedDrive();
    void tellsTheSpaceThatIsFreeToTheCaller();
    void namesARelabelledDrive();
    void listsBtrfsOnceWithItsSubvolumes();
    void addsUpTheDataSetsOfAPool();
    void leavesOutADriveInAFolderOfContainers();
    void leavesOutImagesAndParts_data();
    void leavesOutImagesAndParts();
    void leavesOutARemovableDrive();

private:
    bool run(const QString &command) const { return m_folder->run(command); }
    QString path(const char *name) const { return m_folder->path(QString::fromLatin1(name)); }
    bool makeAndMountExt4();
    QStringList newRoots();

    std::unique_ptr<MountFolder> m_folder;
    std::unique_ptr<MountedDrives> m_drives;
    QStringList m_before;
};

void tst_LoopDrives::initTestCase()
{
    const MountFolder folder;
    if (!folder.mountExt4(QStringLiteral("mnt"), QString(), QStringLiteral("48M")))
        QSKIP("file systems cannot be mounted on this machine: the warning above says why");
}

void tst_LoopDrives::init()
{
    m_folder = std::make_unique<MountFolder>();
    m_drives = std::make_unique<MountedDrives>(QStringLiteral("/proc"), QStringLiteral("/sys"),
                                               QStringLiteral("/dev"));
    m_before = m_drives->fixedRoots();
}

void tst_LoopDrives::cleanup()
{
    m_folder.reset();
    QCOMPARE(m_drives->fixedRoots(), m_before);
}

bool tst_LoopDrives::makeAndMountExt4()
{
    return m_folder->mountExt4(QStringLiteral("mnt"), QStringLiteral("my data"),
                               QStringLiteral("48M"));
}

/// The roots that are new since the test began.
QStringList tst_LoopDrives::newRoots()
{
    QStringList roots = m_drives->fixedRoots();
    for (const QString &root : qAsConst(m_before))
        roots.removeOne(root);
    return roots;
}

void tst_LoopDrives::listsAMountedDrive()
{
    QVERIFY(makeAndMountExt4());
    QCOMPARE(newRoots(), QStringList{path("mnt")});
    QCOMPARE(m_drives->volumeName(path("mnt")), std::make_optional(QStringLiteral("my data")));
}

void tst_LoopDrives::forgetsAnUnmountedDrive()
{
    QVERIFY(makeAndMountExt4());
    QCOMPARE(newRoots().size(), 1);
    QVERIFY(run(QStringLiteral("umount mnt")));
    QCOMPARE(m_drives->fixedRoots(), m_before);
    QVERIFY(!m_drives->volumeName(path("mnt")).has_value());
}

void tst_LoopDrives::tellsTheSpaceThatIsFreeToTheCaller()
{
    QVERIFY(makeAndMountExt4());
    const std::optional<DriveSpace> empty = m_drives->space(path("mnt"));
    QVERIFY(empty.has_value());
    QVERIFY2(empty->totalBytes > 32 << 20 && empty->totalBytes < 48 << 20,
             qPrintable(QString::number(empty->totalBytes)));
    // A part is reserved for the administrator.
    QVERIFY(empty->freeBytes < empty->totalBytes * 92 / 100);
    QVERIFY(run(QStringLiteral("head -c 8M /dev/zero >mnt/file && sync mnt/file")));
    const std::optional<DriveSpace> used = m_drives->space(path("mnt"));
    const qint64 difference = qint64(empty->freeBytes) - qint64(used->freeBytes);
    QVERIFY2(difference >= 8 << 20 && difference < 9 << 20,
             qPrintable(QString::number(difference)));
}

void tst_LoopDrives::namesARelabelledDrive()
{
    QVERIFY(makeAndMountExt4());
    QCOMPARE(newRoots().size(), 1);
    QVERIFY(run(QStringLiteral("e2label $(findmnt -no SOURCE mnt) other")));
    QCOMPARE(m_drives->volumeName(path("mnt")), std::make_optional(QStringLiteral("other")));
}

void tst_LoopDrives::listsBtrfsOnceWithItsSubvolumes()
{
    if (!run(QStringLiteral("grep -q btrfs /proc/filesystems || modprobe btrfs")))
        QSKIP("this machine's kernel has no btrfs");
    QVERIFY(run(QStringLiteral("truncate -s 128M b.img && mkfs.btrfs -q -L pool b.img && "
                               "mkdir top sub && mount -o loop b.img top && "
                               "btrfs -q subvolume create top/@sub && "
                               "mount -o subvol=@sub $(findmnt -no SOURCE top) sub && "
                               "umount top && "
                               "mount $(findmnt -no SOURCE sub | cut -d[ -f1) top")));
    QCOMPARE(newRoots(), QStringList{path("sub")});
    QCOMPARE(m_drives->volumeName(path("sub")), std::make_optional(QStringLiteral("pool")));
}

/// Two file systems stand for the data sets of a pool.
void tst_LoopDrives::addsUpTheDataSetsOfAPool()
{
    QVERIFY(m_folder->mountExt4(QStringLiteral("a"), QString(), QStringLiteral("48M")));
    QVERIFY(m_folder->mountExt4(QStringLiteral("b"), QString(), QStringLiteral("16M")));
    QVERIFY(run(QStringLiteral("mkdir -p proc/self && printf '%s\\n' "
                               "\"20 1 0:30 / $PWD/a rw - zfs tank rw\" "
                               "\"21 1 0:31 / $PWD/b rw - zfs tank/b rw\" "
                               "\"22 1 0:31 / $PWD/b rw - zfs tank/b rw\" >proc/self/mountinfo")));
    MountedDrives drives(path("proc"), QStringLiteral("/sys"), QStringLiteral("/dev"));
    QCOMPARE(drives.fixedRoots(), QStringList{path("a")});
    const std::optional<DriveSpace> pool = drives.space(path("a"));
    QVERIFY(pool.has_value());
    const std::optional<DriveSpace> large = m_drives->space(path("a"));
    const std::optional<DriveSpace> small = m_drives->space(path("b"));
    QCOMPARE(pool->freeBytes, large->freeBytes);
    QVERIFY(small->totalBytes > small->freeBytes);
    QCOMPARE(pool->totalBytes, large->totalBytes + small->totalBytes - small->freeBytes);
}

void tst_LoopDrives::leavesOutADriveInAFolderOfContainers()
{
    QVERIFY(run(QStringLiteral("mkdir -p containers/storage")));
    QVERIFY(m_folder->mountExt4(QStringLiteral("containers/storage/mnt"), QString(),
                                QStringLiteral("16M")));
    QCOMPARE(newRoots(), QStringList());
}

void tst_LoopDrives::leavesOutImagesAndParts_data()
{
    QTest::addColumn<QString>("needs");
    QTest::addColumn<QString>("command");
    QTest::newRow("squashfs") << QStringLiteral("grep -q squashfs /proc/filesystems")
                              << QStringLiteral("mkdir in && date >in/date && "
                                                "mksquashfs in s.img -quiet -no-progress && "
                                                "mkdir snap && mount -o loop s.img snap");
    QTest::newRow("bind") << QStringLiteral("true")
                          << QStringLiteral("mkdir mnt/part bind && mount --bind mnt/part bind");
    QTest::newRow("bind of the whole")
        << QStringLiteral("true") << QStringLiteral("mkdir bind && mount --bind mnt bind");
    QTest::newRow("overlay") << QStringLiteral("grep -q overlay /proc/filesystems")
                             << QStringLiteral("mkdir over mnt/up mnt/work && mount -t overlay "
                                               "-o lowerdir=/etc,upperdir=mnt/up,workdir=mnt/work "
                                               "overlay over");
    QTest::newRow("tmpfs") << QStringLiteral("true")
                           << QStringLiteral("mkdir tmp && mount -t tmpfs tmpfs tmp");
}

void tst_LoopDrives::leavesOutImagesAndParts()
{
    QFETCH(QString, needs);
    QFETCH(QString, command);
    if (!run(needs))
        QSKIP("this machine's kernel does not have the file system");
    QVERIFY(makeAndMountExt4());
    QVERIFY(run(command));
    QCOMPARE(newRoots(), QStringList{path("mnt")});
}

void tst_LoopDrives::leavesOutARemovableDrive()
{
    QVERIFY(makeAndMountExt4());
    QCOMPARE(newRoots().size(), 1);
    QVERIFY(run(QStringLiteral("echo 1 >one && mount --bind one /sys/block/$(basename "
                               "$(findmnt -no SOURCE mnt))/removable")));
    QCOMPARE(newRoots(), QStringList());
    QVERIFY(
        run(QStringLiteral("umount /sys/block/$(basename $(findmnt -no SOURCE mnt))/removable")));
    QCOMPARE(newRoots().size(), 1);
}

QTEST_APPLESS_MAIN(tst_LoopDrives)
#include "tst_loopdrives.moc"
