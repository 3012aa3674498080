#include "render/ActionUuids.h"
#include "tests/support/KeyUuids.h"

#include <QtTest>

/// The product's UUIDs compared with those that the tests spell themselves.
class tst_ActionUuids : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void areThoseThatHostsKnow_data();
    void areThoseThatHostsKnow();
};

void tst_ActionUuids::areThoseThatHostsKnow_data()
{
    QTest::addColumn<QString>("product");
    QTest::addColumn<QString>("expected");
    QTest::newRow("memory") << actionuuid::memory << keyuuid::memory;
    QTest::newRow("cpu") << actionuuid::cpu << keyuuid::cpu;
    QTest::newRow("cpuTemperature") << actionuuid::cpuTemperature << keyuuid::cpuTemperature;
    QTest::newRow("cpuClock") << actionuuid::cpuClock << keyuuid::cpuClock;
    QTest::newRow("cpuPower") << actionuuid::cpuPower << keyuuid::cpuPower;
    QTest::newRow("netWork") << actionuuid::netWork << keyuuid::netWork;
    QTest::newRow("gpuTemperature") << actionuuid::gpuTemperature << keyuuid::gpuTemperature;
    QTest::newRow("gpuClock") << actionuuid::gpuClock << keyuuid::gpuClock;
    QTest::newRow("gpuLoad") << actionuuid::gpuLoad << keyuuid::gpuLoad;
    QTest::newRow("gpuMemoryClock") << actionuuid::gpuMemoryClock << keyuuid::gpuMemoryClock;
    QTest::newRow("gpuMemoryUsage") << actionuuid::gpuMemoryUsage << keyuuid::gpuMemoryUsage;
    QTest::newRow("memoryFreeMB") << actionuuid::memoryFreeMB << keyuuid::memoryFreeMB;
    QTest::newRow("memoryUsedMB") << actionuuid::memoryUsedMB << keyuuid::memoryUsedMB;
    QTest::newRow("memoryTotalMB") << actionuuid::memoryTotalMB << keyuuid::memoryTotalMB;
    QTest::newRow("memoryFreeGB") << actionuuid::memoryFreeGB << keyuuid::memoryFreeGB;
    QTest::newRow("memoryUsedGB") << actionuuid::memoryUsedGB << keyuuid::memoryUsedGB;
    QTest::newRow("memoryTotalGB") << actionuuid::memoryTotalGB << keyuuid::memoryTotalGB;
    QTest::newRow("gpuMemoryUsed") << actionuuid::gpuMemoryUsed << keyuuid::gpuMemoryUsed;
    QTest::newRow("gpuPower") << actionuuid::gpuPower << keyuuid::gpuPower;
    QTest::newRow("volume") << actionuuid::volume << keyuuid::volume;
    QTest::newRow("cpuModel") << actionuuid::cpuModel << keyuuid::cpuModel;
    QTest::newRow("gpuModel") << actionuuid::gpuModel << keyuuid::gpuModel;
    QTest::newRow("gpuVoltage") << actionuuid::gpuVoltage << keyuuid::gpuVoltage;
    QTest::newRow("diskTemperature") << actionuuid::diskTemperature << keyuuid::diskTemperature;
    QTest::newRow("memoryModel") << actionuuid::memoryModel << keyuuid::memoryModel;
    QTest::newRow("upload") << actionuuid::upload << keyuuid::upload;
    QTest::newRow("download") << actionuuid::download << keyuuid::download;
    QTest::newRow("allData") << actionuuid::allData << keyuuid::allData;
    QTest::newRow("cpuVoltage") << actionuuid::cpuVoltage << keyuuid::cpuVoltage;
    QTest::newRow("physicalDisk") << actionuuid::physicalDisk << keyuuid::physicalDisk;
    QTest::newRow("pumpSpeed") << actionuuid::pumpSpeed << keyuuid::pumpSpeed;
    QTest::newRow("cpuFan") << actionuuid::cpuFan << keyuuid::cpuFan;
}

void tst_ActionUuids::areThoseThatHostsKnow()
{
    QFETCH(const QString, product);
    QTEST(product, "expected");
    QVERIFY(product.startsWith(keyuuid::prefix));
}

QTEST_APPLESS_MAIN(tst_ActionUuids)
#include "tst_actionuuids.moc"
