#include "sensors/readings/DriveReadings.h"

#include "sensors/machine/drives.h"
#include "tests/support/InMemoryLibrary.h"
#include "tests/support/InMemoryMachine.h"
#include "tests/support/MessageCapture.h"

#include <QtTest>

#include <limits>

class tst_DriveReadings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void readsEveryDrive();
    void readsNoDrives();
    void countsWholeGigabytes_data();
    void countsWholeGigabytes();
    void sumsBytesNotGigabytes();
    void keepsADriveThatDoesNotAnswerAmongTheRootsOnly();
};

void tst_DriveReadings::init()
{
    InMemoryLibrary::reset();
    InMemoryMachine::reset();
}

namespace {

constexpr quint64 gigabyte = quint64(1) << 30;

InMemoryMachine::Drive drive(const char *root, const char *name, quint64 freeGB, quint64 totalGB)
{
    return {QString::fromLatin1(root), QString::fromLatin1(name),
            InMemoryMachine::gigabytes(freeGB, totalGB)};
}

} // namespace

void tst_DriveReadings::readsEveryDrive()
{
    InMemoryMachine::drives = {drive("C:\\", "System", 120, 480), drive("D:\\", "", 1, 3)};
    const DriveReadings readings = readDrives(machineDrives());
    QCOMPARE(readings.roots, (QStringList{QStringLiteral("C:\\"), QStringLiteral("D:\\")}));
    QCOMPARE(readings.volumeNames, (QStringList{QStringLiteral("System"), QString()}));
    QCOMPARE(readings.freeGB, (QList<int>{120, 1}));
    QCOMPARE(readings.freePercent, (QList<int>{25, 33}));
    QCOMPARE(readings.allDrivesFreeGB, 121U);
    QCOMPARE(readings.allDrivesTotalGB, 483U);
}

void tst_DriveReadings::readsNoDrives()
{
    const DriveReadings readings = readDrives(machineDrives());
    QVERIFY(readings.roots.isEmpty());
    QCOMPARE(readings.allDrivesFreeGB, 0U);
    QCOMPARE(readings.allDrivesTotalGB, 0U);
}

void tst_DriveReadings::countsWholeGigabytes_data()
{
    QTest::addColumn<quint64>("freeBytes");
    QTest::addColumn<quint64>("totalBytes");
    QTest::addColumn<int>("gigabytes");
    QTest::addColumn<int>("percent");
    constexpr quint64 most = std::numeric_limits<quint64>::max();
    QTest::newRow("rounded down") << 2 * gigabyte - 1 << 3 * gigabyte << 1 << 66;
    QTest::newRow("full") << quint64(0) << gigabyte << 0 << 0;
    QTest::newRow("empty") << gigabyte << gigabyte << 1 << 100;
    QTest::newRow("just not empty") << gigabyte - 1 << gigabyte << 0 << 99;
    QTest::newRow("no size") << quint64(0) << quint64(0) << 0 << 0;
    QTest::newRow("more free than there is") << gigabyte << quint64(10) << 1 << 100;
    QTest::newRow("as large as can be") << most << most << std::numeric_limits<int>::max() << 100;
}

void tst_DriveReadings::countsWholeGigabytes()
{
    QFETCH(quint64, freeBytes);
    QFETCH(quint64, totalBytes);
    InMemoryMachine::drives = {{QStringLiteral("/"), QString(), DriveSpace{freeBytes, totalBytes}}};
    const DriveReadings readings = readDrives(machineDrives());
    QTEST(readings.freeGB.constFirst(), "gigabytes");
    QTEST(readings.freePercent.constFirst(), "percent");
}

void tst_DriveReadings::sumsBytesNotGigabytes()
{
    InMemoryMachine::drives = {
        {QStringLiteral("/"), QString(), DriveSpace{gigabyte / 2, gigabyte}},
        {QStringLiteral("/home"), QString(), DriveSpace{gigabyte / 2, gigabyte + gigabyte / 2}}};
    const DriveReadings readings = readDrives(machineDrives());
    QCOMPARE(readings.freeGB, (QList<int>{0, 0}));
    QCOMPARE(readings.allDrivesFreeGB, 1U);
    QCOMPARE(readings.allDrivesTotalGB, 2U);
}

void tst_DriveReadings::keepsADriveThatDoesNotAnswerAmongTheRootsOnly()
{
    InMemoryMachine::drives = {
        {QStringLiteral("A:\\"), std::nullopt, InMemoryMachine::gigabytes(5, 10)},
        {QStringLiteral("B:\\"), QStringLiteral("no space"), std::nullopt},
        drive("C:\\", "good", 1, 2)};
    const MessageCapture capture;
    const DriveReadings readings = readDrives(machineDrives());
    QCOMPARE(readings.roots,
             (QStringList{QStringLiteral("A:\\"), QStringLiteral("B:\\"), QStringLiteral("C:\\")}));
    QCOMPARE(readings.volumeNames, QStringList{QStringLiteral("good")});
    QCOMPARE(readings.freeGB, QList<int>{1});
    QCOMPARE(readings.freePercent, QList<int>{50});
    QCOMPARE(readings.allDrivesTotalGB, 2U);
    QCOMPARE(MessageCapture::messages(),
             (QStringList{QStringLiteral(R"("Failed to get information of drive A:\\")"),
                          QStringLiteral(R"("Failed to get disk space info of drive B:\\")")}));
    // The space of the drive without a name was not queried.
    QVERIFY(!InMemoryLibrary::queries.contains(QStringLiteral("space A:\\")));
}

QTEST_APPLESS_MAIN(tst_DriveReadings)
#include "tst_drivereadings.moc"
