#include "plugin/KeyKinds.h"

#include "plugin/KeyGauges.h"
#include "plugin/KeyPass.h"
#include "render/ActionCatalogue.h"
#include "render/normalAction.h"
#include "sensors/systemInfor.h"
#include "tests/support/KeyUuids.h"
#include "tests/support/MessageCapture.h"
#include "tests/support/SampleSnapshot.h"

#include <QtTest>

/// What each kind of key shows, without its title.
class tst_KeyKinds : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void formatsTheReading_data();
    void formatsTheReading();
    void showsWholeGigabytesWithADigit();
    void logsPumpAndFanFirst();
    void showsFahrenheitWithoutALetter_data();
    void showsFahrenheitWithoutALetter();
    void diskTemperatureCarriesOverWithinAPass();
    void showsAVolumeThatCannotBeRead();
    void looksUpTheChosenSensor_data();
    void looksUpTheChosenSensor();
    void looksUpTheChosenFan();
    void networkOnOneLine();
    void networkOnTwoLines();
    void networkOnNeitherPaintsNothing();
    void knowsEveryKindOfTheCatalogue();
    void unknownKindsAreNotPainted_data();
    void unknownKindsAreNotPainted();

private:
    KeyGauges m_gauges;
    KeyPass m_pass{m_gauges, 0};
};

namespace {

/// A key without a title.
class BareKey : public normalAction
{
public:
    explicit BareKey(const QString &uuid)
        : normalAction(nullptr, uuid, QStringLiteral("ctx"))
    {
        showTitle = false;
    }
};

const QString png = QStringLiteral("data:image/png;base64,");

} // namespace

void tst_KeyKinds::init()
{
    fillSnapshot();
}

void tst_KeyKinds::formatsTheReading_data()
{
    QTest::addColumn<QString>("text");
    const auto row = [](const QString &uuid, const char *text) {
        QTest::newRow(qPrintable(uuid)) << QString::fromUtf8(text);
    };
    row(keyuuid::memory, "61%");
    row(keyuuid::cpu, "37%");
    row(keyuuid::cpuTemperature, "45°");
    row(keyuuid::cpuClock, "4200MHz");
    row(keyuuid::cpuPower, "65.3W");
    row(keyuuid::gpuTemperature, "51°");
    row(keyuuid::gpuClock, "1905MHz");
    row(keyuuid::gpuLoad, "99%");
    row(keyuuid::gpuMemoryClock, "9501MHz");
    row(keyuuid::gpuMemoryUsage, "49%");
    row(keyuuid::gpuMemoryUsed, "2048MB");
    row(keyuuid::gpuPower, "3.0W");
    row(keyuuid::volume, "35%");
    row(keyuuid::physicalDisk, "C:\\  75% Used  120G Free");
    row(keyuuid::cpuModel, "Ryzen 9 %1");
    row(keyuuid::gpuModel, "integrated GPU");
    row(keyuuid::gpuVoltage, "0.913V");
    row(keyuuid::cpuVoltage, "1.250V");
    row(keyuuid::diskTemperature, "0°");
    row(keyuuid::allData, "0.5V");
    row(keyuuid::pumpSpeed, "1850RPM");
    row(keyuuid::cpuFan, "nodata");
    row(keyuuid::memoryFreeMB, "1536MB");
    row(keyuuid::memoryUsedMB, "14592MB");
    row(keyuuid::memoryTotalMB, "16128MB");
    row(keyuuid::memoryFreeGB, "1.5GB");
    row(keyuuid::memoryUsedGB, "14.3GB");
    row(keyuuid::memoryTotalGB, "15.8GB");
    row(keyuuid::memoryModel, "16G");
    row(keyuuid::upload, "1.2Kb/s");
    row(keyuuid::download, "3.0MB/s");
}

void tst_KeyKinds::formatsTheReading()
{
    BareKey key(QString::fromLatin1(QTest::currentDataTag()));
    const auto picture = m_pass.paint(key);
    QTEST(key.displayedText, "text");
    QVERIFY(picture && picture->startsWith(png) && picture->size() > png.size());
}

void tst_KeyKinds::showsWholeGigabytesWithADigit()
{
    systemInfor::MemoryAvailableGB = 1024 / 1024.0;
    BareKey key(keyuuid::memoryFreeGB);
    QVERIFY(m_pass.paint(key));
    QCOMPARE(key.displayedText, QStringLiteral("1.0GB"));
}

void tst_KeyKinds::logsPumpAndFanFirst()
{
    const MessageCapture capture;
    const auto logged = [this](const QString &uuid) {
        BareKey key(uuid);
        MessageCapture::clear();
        m_pass.paint(key);
        return MessageCapture::messages();
    };
    const auto quoted = [](const char *text) {
        return MessageCapture::quoted(QString::fromLatin1(text));
    };
    QCOMPARE(logged(keyuuid::pumpSpeed),
             (QStringList{quoted("updateImages PumpSpeed"), quoted("textToDraw: 1850RPM")}));
    QCOMPARE(logged(keyuuid::cpuFan),
             (QStringList{quoted("updateImages CPUFan"), quoted("textToDraw: nodata")}));
    QCOMPARE(logged(keyuuid::cpu), QStringList{quoted("textToDraw: 37%")});
}

void tst_KeyKinds::showsFahrenheitWithoutALetter_data()
{
    QTest::addColumn<int>("celsius");
    QTest::addColumn<QString>("text");
    QTest::newRow("45") << 45 << QStringLiteral("113°");
    QTest::newRow("0") << 0 << QStringLiteral("32°");
    QTest::newRow("37 is truncated") << 37 << QStringLiteral("98°");
    QTest::newRow("150") << 150 << QStringLiteral("302°");
}

void tst_KeyKinds::showsFahrenheitWithoutALetter()
{
    QFETCH(int, celsius);
    systemInfor::CpuTemperature = celsius;
    systemInfor::GpuTemperature = celsius;
    for (const QString &uuid : {keyuuid::cpuTemperature, keyuuid::gpuTemperature}) {
        BareKey key(uuid);
        key.temperatureType = QStringLiteral("华氏度");
        QVERIFY(m_pass.paint(key));
        QTEST(key.displayedText, "text");
    }
}

void tst_KeyKinds::diskTemperatureCarriesOverWithinAPass()
{
    const QString uuid = keyuuid::diskTemperature;
    const auto shown = [&uuid](const char *disk, bool fahrenheit, KeyPass &pass) {
        BareKey key(uuid);
        key.SelectPhysicalDisk = QString::fromLatin1(disk);
        if (fahrenheit)
            key.temperatureType = QStringLiteral("华氏度");
        pass.paint(key);
        return key.displayedText;
    };
    KeyPass pass(m_gauges, 1000);
    QCOMPARE(shown("unknown", false, pass), QStringLiteral("0°"));
    QCOMPARE(shown("sdb", false, pass), QStringLiteral("50°"));
    QCOMPARE(shown("unknown", false, pass), QStringLiteral("50°"));
    QCOMPARE(shown("sda", true, pass), QStringLiteral("104°"));
    QCOMPARE(shown("SDA", false, pass), QStringLiteral("104°"));
    QCOMPARE(shown("unknown", true, pass), QStringLiteral("219°"));
    KeyPass next(m_gauges, 2000);
    QCOMPARE(shown("unknown", false, next), QStringLiteral("0°"));
}

void tst_KeyKinds::showsAVolumeThatCannotBeRead()
{
    systemInfor::AudioVolume = -1;
    BareKey key(keyuuid::volume);
    QVERIFY(m_pass.paint(key));
    QCOMPARE(key.displayedText, QStringLiteral("-1%"));
}

void tst_KeyKinds::looksUpTheChosenSensor_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("emptyList");
    QTest::addColumn<QString>("text");
    QTest::newRow("none chosen") << QString() << false << QStringLiteral("0.5V");
    QTest::newRow("first of the name")
        << QStringLiteral("CPU Package") << false << QStringLiteral("45°C");
    QTest::newRow("not in the list")
        << QStringLiteral("cpu package") << false << QStringLiteral("null");
    QTest::newRow("empty list") << QString() << true << QStringLiteral("null");
}

void tst_KeyKinds::looksUpTheChosenSensor()
{
    QFETCH(QString, name);
    QFETCH(bool, emptyList);
    if (emptyList)
        systemInfor::SensorList.clear();
    BareKey key(keyuuid::allData);
    key.SelectValue = name;
    QVERIFY(m_pass.paint(key));
    QTEST(key.displayedText, "text");
}

void tst_KeyKinds::looksUpTheChosenFan()
{
    systemInfor::CpuFanList = {{QStringLiteral("CPU Fan"), QStringLiteral("1200RPM")}};
    BareKey key(keyuuid::cpuFan);
    QVERIFY(m_pass.paint(key));
    QCOMPARE(key.displayedText, QStringLiteral("nodata"));
    key.SelectCPUFan = QStringLiteral("CPU Fan");
    QVERIFY(m_pass.paint(key));
    QCOMPARE(key.displayedText, QStringLiteral("1200RPM"));
}

void tst_KeyKinds::networkOnOneLine()
{
    BareKey key(keyuuid::netWork);
    key.titleLines = QStringLiteral("单行显示");
    QVERIFY(m_pass.paint(key)->startsWith(png));
    QCOMPARE(key.displayedText, QStringLiteral("1.2Kb/s  3.0MB/s"));
}

void tst_KeyKinds::networkOnTwoLines()
{
    BareKey key(keyuuid::netWork);
    key.titleLines = QStringLiteral("双行显示");
    QVERIFY(m_pass.paint(key)->startsWith(png));
    QCOMPARE(key.displayedText, QStringLiteral("1.2Kb/s\n3.0MB/s"));
}

void tst_KeyKinds::networkOnNeitherPaintsNothing()
{
    BareKey key(keyuuid::netWork);
    key.titleLines = QStringLiteral("three");
    key.displayedText = QStringLiteral("before");
    const auto picture = m_pass.paint(key);
    QVERIFY(picture.has_value());
    QCOMPARE(*picture, QString());
    QCOMPARE(key.displayedText, QStringLiteral("before"));
}

void tst_KeyKinds::knowsEveryKindOfTheCatalogue()
{
    for (const ActionCatalogueRow &row : actionCatalogue()) {
        const KeyKind *const kind = findKeyKind(row.uuid);
        QVERIFY2(kind, qPrintable(row.uuid));
        QCOMPARE(kind->uuid(), row.uuid);
    }
}

void tst_KeyKinds::unknownKindsAreNotPainted_data()
{
    QTest::addColumn<QString>("uuid");
    QTest::newRow("unknown") << keyuuid::prefix + QStringLiteral("system.weather");
    QTest::newRow("other letters") << keyuuid::prefix + QStringLiteral("system.CPU");
    QTest::newRow("beginning only") << keyuuid::prefix + QStringLiteral("system");
    QTest::newRow("empty") << QString();
}

void tst_KeyKinds::unknownKindsAreNotPainted()
{
    QFETCH(QString, uuid);
    BareKey key(uuid);
    QVERIFY(!m_pass.paint(key).has_value());
    QCOMPARE(key.displayedText, QString());
    QVERIFY(key.keyImage.isNull());
}

QTEST_MAIN(tst_KeyKinds)
#include "tst_keykinds.moc"
