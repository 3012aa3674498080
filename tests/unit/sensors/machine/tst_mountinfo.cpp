#include "sensors/machine/MountInfo.h"

#include <QtTest>

Q_DECLARE_METATYPE(DeviceNumber)

class tst_MountInfo : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsALine();
    void decodesEscapes_data();
    void decodesEscapes();
    void leavesOutWhatIsNoMount_data();
    void leavesOutWhatIsNoMount();
    void readsDeviceNumbers_data();
    void readsDeviceNumbers();
};

void tst_MountInfo::readsALine()
{
    const QVector<Mount> mounts = parseMountInfo(
        "22 1 259:2 / / rw,relatime shared:1 master:4 - ext4 /dev/nvme0n1p2 rw,errors=remount-ro\n"
        "90 22 0:45 /@home /home rw - btrfs /dev/mapper/luks-1 rw,subvol=/@home\n");
    QCOMPARE(mounts.size(), 2);
    QCOMPARE(mounts.at(0).device, (DeviceNumber{259, 2}));
    QCOMPARE(mounts.at(1).id, 90U);
    QCOMPARE(mounts.at(1).parent, 22U);
    QCOMPARE(mounts.at(0).root, QByteArray("/"));
    QCOMPARE(mounts.at(0).mountPoint, QStringLiteral("/"));
    QCOMPARE(mounts.at(0).fileSystem, QByteArray("ext4"));
    QCOMPARE(mounts.at(0).source, QByteArray("/dev/nvme0n1p2"));
    QCOMPARE(mounts.at(1).root, QByteArray("/@home"));
    QCOMPARE(mounts.at(1).source, QByteArray("/dev/mapper/luks-1"));
}

void tst_MountInfo::decodesEscapes_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<QString>("path");
    QTest::newRow("blank") << QByteArray("/my\\040data") << QStringLiteral("/my data");
    QTest::newRow("backslash") << QByteArray("/a\\134040b") << QStringLiteral("/a\\040b");
    QTest::newRow("line feed") << QByteArray("/a\\012b") << QStringLiteral("/a\nb");
    QTest::newRow("UTF-8") << QByteArray("/Müll\\040数据") << QStringLiteral("/Müll 数据");
    QTest::newRow("cut off") << QByteArray("/a\\04") << QStringLiteral("/a\\04");
    QTest::newRow("not octal") << QByteArray("/a\\089") << QStringLiteral("/a\\089");
}

void tst_MountInfo::decodesEscapes()
{
    QFETCH(QByteArray, field);
    const QVector<Mount> mounts = parseMountInfo("1 1 8:1 / " + field + " rw - ext4 /dev/sda1 rw");
    QCOMPARE(mounts.size(), 1);
    QTEST(mounts.at(0).mountPoint, "path");
}

void tst_MountInfo::leavesOutWhatIsNoMount_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("empty lines") << QByteArray("\n\n");
    QTest::newRow("words") << QByteArray("no such table");
    QTest::newRow("cut off") << QByteArray("22 1 259:2 / / rw - ext4");
    QTest::newRow("no separator") << QByteArray("22 1 259:2 / / rw shared:1 ext4 /dev/sda rw");
    QTest::newRow("separator too early") << QByteArray("22 - 259:2 / / rw ext4 /dev/sda rw");
    QTest::newRow("zeros") << QByteArray(5000, '\0');
}

void tst_MountInfo::leavesOutWhatIsNoMount()
{
    QFETCH(QByteArray, text);
    QVERIFY(parseMountInfo(text).isEmpty());
}

void tst_MountInfo::readsDeviceNumbers_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<DeviceNumber>("number");
    QTest::newRow("disk") << QByteArray("8:1") << DeviceNumber{8, 1};
    QTest::newRow("line") << QByteArray("259:12\n") << DeviceNumber{259, 12};
    QTest::newRow("no colon") << QByteArray("81") << DeviceNumber{};
    QTest::newRow("no minor") << QByteArray("8:") << DeviceNumber{};
    QTest::newRow("no major") << QByteArray(":1") << DeviceNumber{};
    QTest::newRow("letters") << QByteArray("8:x") << DeviceNumber{};
    QTest::newRow("negative") << QByteArray("8:-1") << DeviceNumber{};
    QTest::newRow("too large") << QByteArray("8:99999999999") << DeviceNumber{};
    QTest::newRow("empty") << QByteArray() << DeviceNumber{};
}

void tst_MountInfo::readsDeviceNumbers()
{
    QFETCH(QByteArray, text);
    QTEST(parseDeviceNumber(text), "number");
}

QTEST_APPLESS_MAIN(tst_MountInfo)
#include "tst_mountinfo.moc"
