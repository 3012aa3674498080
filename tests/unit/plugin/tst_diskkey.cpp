#include "plugin/DiskKey.h"

#include "render/normalAction.h"
#include "sensors/systemInfor.h"
#include "tests/support/KeyUuids.h"
#include "tests/support/SampleSnapshot.h"

#include <QtTest>

#include <limits>

class tst_DiskKey : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { fillSnapshot(); }

    void showsTheDriveOrAllDrives_data();
    void showsTheDriveOrAllDrives();
    void showsAllDrivesOfNoSize();
    void showsTheDriveWhileLooping();
    void choosesTheDriveByNumber_data();
    void choosesTheDriveByNumber();
    void stepsToTheNextDrive_data();
    void stepsToTheNextDrive();
    void boundsTheSwitchInterval_data();
    void boundsTheSwitchInterval();

private:
    normalAction m_key{nullptr, keyuuid::physicalDisk, QStringLiteral("ctx")};
};

void tst_DiskKey::showsTheDriveOrAllDrives_data()
{
    QTest::addColumn<QString>("mode");
    QTest::addColumn<int>("index");
    QTest::addColumn<bool>("showName");
    QTest::addColumn<QString>("text");
    const QString single = QStringLiteral("Single_Disk");
    const QString total = QStringLiteral("Total_Disks");
    QTest::newRow("drive") << single << 0 << false << QStringLiteral("75% Used  120G Free");
    QTest::newRow("drive by name")
        << single << 0 << true << QStringLiteral("C:\\  75% Used  120G Free");
    QTest::newRow("drive that does not answer")
        << single << 1 << true << QStringLiteral("D:\\  0% Used  0G Free");
    QTest::newRow("past the last") << single << 2 << false << QStringLiteral("0% Used  0G Free");
    QTest::newRow("before the first")
        << single << -1 << true << QStringLiteral("  0% Used  0G Free");
    QTest::newRow("far past") << single << std::numeric_limits<int>::max() << false
                              << QStringLiteral("0% Used  0G Free");
    QTest::newRow("any other mode")
        << QStringLiteral("total_disks") << 0 << false << QStringLiteral("75% Used  120G Free");
    QTest::newRow("all") << total << 7 << false << QStringLiteral("75% Used  120G Free");
    QTest::newRow("all by name") << total << 7 << true
                                 << QStringLiteral("TotalDisks  75% Used  120G Free");
}

void tst_DiskKey::showsTheDriveOrAllDrives()
{
    QFETCH(QString, mode);
    QFETCH(int, index);
    QFETCH(bool, showName);
    m_key.diskMode = mode;
    m_key.driveIndex = index;
    m_key.showVolumeName = showName;
    QTEST(diskkey::text(m_key), "text");
}

void tst_DiskKey::showsAllDrivesOfNoSize()
{
    systemInfor::DisksFreeGB = 0;
    systemInfor::DisksTotalGB = 0;
    m_key.diskMode = QStringLiteral("Total_Disks");
    m_key.showVolumeName = false;
    QCOMPARE(diskkey::text(m_key), QStringLiteral("0% Used  0G Free"));
    // Large drives: the product of size and 100 does not fit in 32 bits.
    systemInfor::DisksFreeGB = 1;
    systemInfor::DisksTotalGB = 4000000000U;
    QCOMPARE(diskkey::text(m_key), QStringLiteral("99% Used  1G Free"));
}

void tst_DiskKey::showsTheDriveWhileLooping()
{
    m_key.diskMode = QStringLiteral("Total_Disks");
    m_key.driveIndex = 0;
    m_key.showVolumeName = true;
    QCOMPARE(diskkey::driveText(m_key), QStringLiteral("C:\\  75% Used  120G Free"));
}

void tst_DiskKey::choosesTheDriveByNumber_data()
{
    QTest::addColumn<QString>("item");
    QTest::addColumn<int>("index");
    QTest::newRow("number") << QStringLiteral("2") << 2;
    QTest::newRow("not a number") << QStringLiteral("C:") << 0;
    QTest::newRow("empty") << QString() << 0;
    QTest::newRow("negative") << QStringLiteral("-1") << -1;
    QTest::newRow("huge") << QStringLiteral("99999999999") << 0;
}

void tst_DiskKey::choosesTheDriveByNumber()
{
    QFETCH(QString, item);
    m_key.volumeNameItem = item;
    QTEST(diskkey::chosenDrive(m_key), "index");
}

void tst_DiskKey::stepsToTheNextDrive_data()
{
    QTest::addColumn<int>("drives");
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("next");
    QTest::newRow("first") << 3 << 0 << 1;
    QTest::newRow("last") << 3 << 2 << 0;
    QTest::newRow("drives have vanished") << 2 << 5 << 0;
    QTest::newRow("no drives") << 0 << 0 << 0;
    QTest::newRow("negative choice") << 2 << -1 << 0;
    QTest::newRow("very negative choice") << 2 << -8 << 0;
    QTest::newRow("largest choice") << 2 << std::numeric_limits<int>::max() << 0;
}

void tst_DiskKey::stepsToTheNextDrive()
{
    QFETCH(int, drives);
    QFETCH(int, index);
    systemInfor::DriveRoots.clear();
    for (int drive = 0; drive < drives; ++drive)
        systemInfor::DriveRoots.append(QString::number(drive));
    QTEST(diskkey::nextDrive(index), "next");
}

void tst_DiskKey::boundsTheSwitchInterval_data()
{
    QTest::addColumn<int>("seconds");
    QTest::addColumn<qint64>("milliseconds");
    QTest::newRow("usual") << 3 << qint64(3000);
    QTest::newRow("none") << 0 << qint64(1000);
    QTest::newRow("negative") << std::numeric_limits<int>::min() << qint64(1000);
    QTest::newRow("huge") << std::numeric_limits<int>::max() << qint64(2147483000);
}

void tst_DiskKey::boundsTheSwitchInterval()
{
    QFETCH(int, seconds);
    QTEST(qint64(diskkey::switchInterval(seconds).count()), "milliseconds");
}

QTEST_MAIN(tst_DiskKey)
#include "tst_diskkey.moc"
