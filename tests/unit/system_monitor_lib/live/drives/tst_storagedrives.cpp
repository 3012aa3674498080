#include "system_monitor_lib/live/drives/StorageDrives.h"
#include "tests/unit/system_monitor_lib/bytes.h"

#include <QMap>
#include <QtTest>

namespace {

constexpr qint64 second = 1'000'000'000;
const QString place = QStringLiteral("PhysicalDrive0");

/// A drive of the machine, and how often it was asked for its temperature.
struct FakeDrive
{
    QByteArray name = "Disk";
    bool isAwake = true;
    std::optional<bool> rotates = true;
    std::optional<quint32> reads = 5;
    qint16 celsius = 30;
    int asked = 0;
};

class OpenFakeDrive : public OpenDrive
{
public:
    explicit OpenFakeDrive(FakeDrive &drive)
        : m_drive(drive)
    {
    }

    bool isAwake() override { return m_drive.isAwake; }

    QByteArray property(Property property) override
    {
        switch (property) {
        case Property::Device:
            return gap(16) + bytes<quint32>(36) + gap(16) + m_drive.name;
        case Property::SeekPenalty:
            return m_drive.rotates ? gap(8) + bytes<quint8>(*m_drive.rotates) + gap(3)
                                   : QByteArray();
        case Property::Temperature:
            ++m_drive.asked;
            return gap(12) + bytes<quint16>(1) + gap(10) + bytes<quint16>(0) +
                   bytes(m_drive.celsius) + gap(12);
        }
        return {};
    }

    QByteArray performance() override
    {
        return m_drive.reads ? gap(40) + bytes(*m_drive.reads) + gap(44) : QByteArray();
    }

private:
    FakeDrive &m_drive;
};

class FakeStorage : public StorageSystem
{
public:
    explicit FakeStorage(QMap<QString, FakeDrive> &drives)
        : m_drives(drives)
    {
    }

    std::unique_ptr<OpenDrive> open(const QString &name) override
    {
        const auto drive = m_drives.find(name);
        return drive == m_drives.end() ? nullptr : std::make_unique<OpenFakeDrive>(*drive);
    }

private:
    QMap<QString, FakeDrive> &m_drives;
};

} // namespace

class StorageDrivesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void listsAllDrives();
    void idleDiskIsNotAsked_data();
    void idleDiskIsNotAsked();
    void diskIsAskedAfterEachUse();
    void temperatureOfAnIdleDiskGetsOld();
    void sleepingDriveIsNotAsked();
    void anotherDriveInThePlaceIsNew();
    void countsWithoutADrive();

private:
    double celsius(qint64 seconds)
    {
        const std::vector<StorageDrive> drives = m_storage->read(seconds * second);
        return drives.empty() ? -2 : drives.front().celsius.value_or(-1);
    }
    FakeDrive &drive() { return m_drives[place]; }

    QMap<QString, FakeDrive> m_drives;
    std::unique_ptr<StorageDrives> m_storage;
};

void StorageDrivesTest::init()
{
    m_drives = {{place, {}}};
    m_storage = std::make_unique<StorageDrives>(std::make_unique<FakeStorage>(m_drives));
}

void StorageDrivesTest::listsAllDrives()
{
    drive().rotates = false;
    m_drives[QStringLiteral("PhysicalDrive7")].name = "Other";
    const std::vector<StorageDrive> drives = m_storage->read(0);
    QCOMPARE(drives.size(), std::size_t{2});
    QCOMPARE(drives[0].place, place);
    QCOMPARE(drives[0].model, QStringLiteral("Disk"));
    QCOMPARE(drives[0].celsius, std::optional(30.0));
    QCOMPARE(drives[1].place, QStringLiteral("PhysicalDrive7"));
    QCOMPARE(drives[1].model, QStringLiteral("Other"));
}

void StorageDrivesTest::idleDiskIsNotAsked_data()
{
    QTest::addColumn<int>("rotates"); // -1: it does not tell.
    QTest::addColumn<bool>("isCounted");
    QTest::addColumn<int>("asked");
    QTest::newRow("hard disk") << 1 << true << 0;
    QTest::newRow("may be a hard disk") << -1 << true << 0;
    QTest::newRow("no moving parts") << 0 << true << 10;
    QTest::newRow("nobody counts its use") << 1 << false << 10;
}

void StorageDrivesTest::idleDiskIsNotAsked()
{
    QFETCH(const int, rotates);
    QFETCH(const bool, isCounted);
    drive().rotates = rotates < 0 ? std::nullopt : std::optional(rotates == 1);
    if (!isCounted)
        drive().reads.reset();
    for (int pass = 0; pass < 10; ++pass)
        celsius(30 * pass);
    QTEST(drive().asked, "asked");
}

void StorageDrivesTest::diskIsAskedAfterEachUse()
{
    QCOMPARE(celsius(0), -1.0);
    drive().reads = 6;
    QCOMPARE(celsius(30), 30.0);
    drive().celsius = 31;
    QCOMPARE(celsius(60), 30.0);
    QCOMPARE(drive().asked, 1);
    drive().reads = 7;
    QCOMPARE(celsius(90), 31.0);
    QCOMPARE(drive().asked, 2);
}

void StorageDrivesTest::temperatureOfAnIdleDiskGetsOld()
{
    celsius(0);
    drive().reads = 6;
    QCOMPARE(celsius(30), 30.0);
    QCOMPARE(celsius(30 + 600), 30.0);
    QCOMPARE(celsius(30 + 601), -1.0);
    QCOMPARE(drive().asked, 1);
}

void StorageDrivesTest::sleepingDriveIsNotAsked()
{
    drive().rotates = false;
    QCOMPARE(celsius(0), 30.0);
    drive().isAwake = false;
    QCOMPARE(celsius(30), -1.0);
    QCOMPARE(drive().asked, 1);
    drive().isAwake = true;
    QCOMPARE(celsius(60), 30.0);
}

void StorageDrivesTest::anotherDriveInThePlaceIsNew()
{
    celsius(0);
    drive().reads = 6;
    QCOMPARE(celsius(30), 30.0);
    drive().name = "Other";
    drive().reads = 900;
    QCOMPARE(celsius(60), -1.0);
    QCOMPARE(drive().asked, 1);
    m_drives.clear();
    QCOMPARE(celsius(90), -2.0);
}

void StorageDrivesTest::countsWithoutADrive()
{
    drive().isAwake = false;
    QVERIFY(m_storage->read(0).front().sleeps);
    QCOMPARE(m_storage->counters(place)->requests, quint32{5});
    QVERIFY(!m_storage->counters(QStringLiteral("PhysicalDrive1")).has_value());
    drive().reads.reset();
    QVERIFY(!m_storage->counters(place).has_value());
    QCOMPARE(drive().asked, 0);
}

QTEST_APPLESS_MAIN(StorageDrivesTest)
#include "tst_storagedrives.moc"
