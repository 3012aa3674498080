#include "plugin/KeyTable.h"
#include "render/normalAction.h"
#include "sensors/systemInfor.h"

#include <QtTest>

/// What each kind of key shows, without its title.
class tst_KeyTable : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void formatsTheReading_data();
    void formatsTheReading();
    void networkOnOneLine();
    void networkOnTwoLines();
    void networkOnNeitherPaintsNothing();
    void unknownKindsAreNotPainted_data();
    void unknownKindsAreNotPainted();
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

void tst_KeyTable::init()
{
    systemInfor::CpuUsage = 37;
    systemInfor::CpuUsageUnits = QStringLiteral("%");
    systemInfor::MemoryLoad = 61;
    systemInfor::MemoryLoadUnits = QStringLiteral("%");
    systemInfor::MemoryUsedMB = 14592;
    systemInfor::MemoryAvailableMB = 1536;
    systemInfor::MemoryTotalMB = 16128;
    systemInfor::MemoryUsedGB = 14.25;
    systemInfor::MemoryAvailableGB = 1.5;
    systemInfor::MemoryTotalGB = 15.75;
    systemInfor::MemoryTotalGBRounded = 16;
    systemInfor::NetUpRate = 1.24;
    systemInfor::NetUpRateUnits = QStringLiteral("Kb/s");
    systemInfor::NetDownRate = 3;
    systemInfor::NetDownRateUnits = QStringLiteral("MB/s");
}

void tst_KeyTable::formatsTheReading_data()
{
    QTest::addColumn<QString>("text");
    const auto row = [](const char *uuid, const char *text) {
        QTest::newRow(uuid) << QString::fromUtf8(text);
    };
    row("com.quellor.stream.system.memory", "61%");
    row("com.quellor.stream.system.cpu", "37%");
    row("com.quellor.stream.system.Memory_Free_MB", "1536MB");
    row("com.quellor.stream.system.Memory_Used_MB", "14592MB");
    row("com.quellor.stream.system.Memory_Total_MB", "16128MB");
    row("com.quellor.stream.system.Memory_Free_GB", "1.5GB");
    row("com.quellor.stream.system.Memory_Used_GB", "14.3GB");
    row("com.quellor.stream.system.Memory_Total_GB", "15.8GB");
    row("com.quellor.stream.system.Memory_Model", "16G");
    row("com.quellor.stream.system.NetWork.Upload", "1.2Kb/s");
    row("com.quellor.stream.system.NetWork.Download", "3.0MB/s");
}

void tst_KeyTable::formatsTheReading()
{
    BareKey key(QString::fromLatin1(QTest::currentDataTag()));
    const auto picture = paintKey(key);
    QTEST(key.displayedText, "text");
    QVERIFY(picture && picture->startsWith(png) && picture->size() > png.size());
}

void tst_KeyTable::networkOnOneLine()
{
    BareKey key(QStringLiteral("com.quellor.stream.system.NetWork"));
    key.titleLines = QStringLiteral("单行显示");
    QVERIFY(paintKey(key)->startsWith(png));
    QCOMPARE(key.displayedText, QStringLiteral("1.2Kb/s  3.0MB/s"));
}

void tst_KeyTable::networkOnTwoLines()
{
    BareKey key(QStringLiteral("com.quellor.stream.system.NetWork"));
    key.titleLines = QStringLiteral("双行显示");
    QVERIFY(paintKey(key)->startsWith(png));
    QCOMPARE(key.displayedText, QStringLiteral("1.2Kb/s\n3.0MB/s"));
}

void tst_KeyTable::networkOnNeitherPaintsNothing()
{
    BareKey key(QStringLiteral("com.quellor.stream.system.NetWork"));
    key.titleLines = QStringLiteral("three");
    key.displayedText = QStringLiteral("before");
    const auto picture = paintKey(key);
    QVERIFY(picture.has_value());
    QCOMPARE(*picture, QString());
    QCOMPARE(key.displayedText, QStringLiteral("before"));
}

void tst_KeyTable::unknownKindsAreNotPainted_data()
{
    QTest::addColumn<QString>("uuid");
    QTest::newRow("unknown") << QStringLiteral("com.quellor.stream.system.weather");
    QTest::newRow("other letters") << QStringLiteral("com.quellor.stream.system.CPU");
    QTest::newRow("beginning only") << QStringLiteral("com.quellor.stream.system");
    QTest::newRow("empty") << QString();
}

void tst_KeyTable::unknownKindsAreNotPainted()
{
    QFETCH(QString, uuid);
    BareKey key(uuid);
    QVERIFY(!paintKey(key).has_value());
    QCOMPARE(key.displayedText, QString());
    QVERIFY(key.keyImage.isNull());
}

QTEST_MAIN(tst_KeyTable)
#include "tst_keytable.moc"
