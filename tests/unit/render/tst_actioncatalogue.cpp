#include "SDK/LanguageUtilities.h"
#include "render/ActionCatalogue.h"
#include "render/normalAction.h"
#include "tests/support/KeyUuids.h"
#include "tests/support/MessageCapture.h"

#include <QtTest>

/// The kinds of keys and their titles in each language.
class tst_ActionCatalogue : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void listsEveryKindInOrder();
    void titlesInEnglish_data() { everyRow(); }
    void titlesInEnglish();
    void titlesInChinese_data() { everyRow(); }
    void titlesInChinese();
    void titlesFallBackToChinese_data() { everyLanguageWithoutTable(); }
    void titlesFallBackToChinese();
    void kindsWithoutARowHaveNoTitle_data();
    void kindsWithoutARowHaveNoTitle();
    void aKeyKeepsTheTitleItWasMadeWith();
    void knowsDefaultTitles();

private:
    static void everyRow();
    static void everyLanguageWithoutTable();
};

namespace {

struct Row
{
    QString uuid;
    const char *chineseTitle;
    const char *englishTitle;
};

const Row expectedRows[] = {
    {keyuuid::memory, "内存", "Memory"},
    {keyuuid::cpu, "CPU使用率", "CPU usage rate"},
    {keyuuid::cpuTemperature, "CPU温度", "CPU temperature"},
    {keyuuid::cpuClock, "CPU频率", "CPU frequency"},
    {keyuuid::cpuPower, "CPU封装功率", "CPU Package Power"},
    {keyuuid::netWork, "网速", "Network speed"},
    {keyuuid::gpuTemperature, "Gpu温度", "GPU temperature"},
    {keyuuid::gpuClock, "Gpu核心频率", "GPU core frequency"},
    {keyuuid::gpuLoad, "Gpu核心使用率", "GPU core usage rate"},
    {keyuuid::gpuMemoryClock, "Gpu显存频率", "GPU memory clock frequency"},
    {keyuuid::gpuMemoryUsage, "Gpu显存使用率", "GPU memory usage rate"},
    {keyuuid::physicalDisk, "硬盘", "Hard disk"},
    {keyuuid::memoryFreeMB, "可用内存(MB)", "Available memory (MB)"},
    {keyuuid::memoryUsedMB, "已用内存(MB)", "Used memory (MB)"},
    {keyuuid::memoryTotalMB, "总内存(MB)", "Total memory (MB)"},
    {keyuuid::memoryFreeGB, "可用内存(GB)", "Available memory (GB)"},
    {keyuuid::memoryUsedGB, "已用内存(GB)", "Used memory (GB)"},
    {keyuuid::memoryTotalGB, "总内存(GB)", "Total memory (GB)"},
    {keyuuid::gpuMemoryUsed, "已用显存", "Used GPU memory"},
    {keyuuid::gpuPower, "Gpu功耗", "GPU power consumption"},
    {keyuuid::volume, "音量", "Volume"},
    {keyuuid::cpuModel, "CPU型号", "CPU model"},
    {keyuuid::gpuModel, "GPU型号", "GPU model"},
    {keyuuid::gpuVoltage, "GPU电压", "GPU voltage"},
    {keyuuid::diskTemperature, "硬盘温度", "Disk temperature"},
    {keyuuid::memoryModel, "内存型号", "Memory model"},
    {keyuuid::upload, "上传网速", "Upload speed"},
    {keyuuid::download, "下载网速", "Download speed"},
    {keyuuid::cpuVoltage, "CPU电压", "CPU voltage"},
};

void setLanguage(const char *code)
{
    LanguageUtilities::instance()->SetLanguage(QString::fromLatin1(code));
}

QString titleOfKey(const QString &uuid)
{
    return normalAction(nullptr, uuid, QStringLiteral("ctx")).titleText;
}

} // namespace

void tst_ActionCatalogue::everyRow()
{
    QTest::addColumn<QString>("uuid");
    QTest::addColumn<QString>("chineseTitle");
    QTest::addColumn<QString>("englishTitle");
    for (const Row &row : expectedRows) {
        QTest::newRow(qPrintable(row.uuid)) << row.uuid << QString::fromUtf8(row.chineseTitle)
                                            << QString::fromUtf8(row.englishTitle);
    }
}

void tst_ActionCatalogue::everyLanguageWithoutTable()
{
    QTest::addColumn<QString>("code");
    for (const char *code : {"ar", "de", "es", "fr", "it", "ja", "ko", "pl", "pt", "ru", "zh_HK"})
        QTest::newRow(code) << QString::fromLatin1(code);
}

void tst_ActionCatalogue::initTestCase()
{
    // Before the tables are loaded, no language has one.
    QCOMPARE(defaultTitle(keyuuid::volume), QStringLiteral("音量"));

    const MessageCapture missingTables;
    LanguageUtilities::instance()->LoadLanguages();
}

void tst_ActionCatalogue::listsEveryKindInOrder()
{
    QStringList expected;
    for (const Row &row : expectedRows)
        expected.append(row.uuid);
    QStringList actual;
    for (const ActionCatalogueRow &row : actionCatalogue())
        actual.append(row.uuid);
    QCOMPARE(actual.size(), 29);
    QCOMPARE(actual, expected);
    QCOMPARE(actual.removeDuplicates(), 0);
}

void tst_ActionCatalogue::titlesInEnglish()
{
    QFETCH(QString, uuid);
    setLanguage("en");
    QTEST(defaultTitle(uuid), "englishTitle");
    QTEST(titleOfKey(uuid), "englishTitle");
}

void tst_ActionCatalogue::titlesInChinese()
{
    QFETCH(QString, uuid);
    setLanguage("zh_CN");
    QTEST(defaultTitle(uuid), "chineseTitle");
    QTEST(titleOfKey(uuid), "chineseTitle");
}

void tst_ActionCatalogue::titlesFallBackToChinese()
{
    QFETCH(QString, code);
    LanguageUtilities::instance()->SetLanguage(code);
    QCOMPARE(LanguageUtilities::instance()->currentLanguage(), code);
    for (const Row &row : expectedRows)
        QCOMPARE(titleOfKey(row.uuid), QString::fromUtf8(row.chineseTitle));
}

void tst_ActionCatalogue::kindsWithoutARowHaveNoTitle_data()
{
    QTest::addColumn<QString>("uuid");
    const auto row = [](const QString &uuid) { QTest::newRow(qPrintable(uuid)) << uuid; };
    row(keyuuid::allData);
    row(keyuuid::pumpSpeed);
    row(keyuuid::cpuFan);
    row(keyuuid::prefix + QStringLiteral("system.Memory"));
    row(keyuuid::prefix + QStringLiteral("system.CPU"));
    row(keyuuid::prefix + QStringLiteral("system.network"));
    row(keyuuid::volume.toUpper());
    row(keyuuid::cpu + QLatin1Char(' '));
    row(keyuuid::prefix + QStringLiteral("system"));
    row(QString());
}

void tst_ActionCatalogue::kindsWithoutARowHaveNoTitle()
{
    QFETCH(QString, uuid);
    setLanguage("zh_CN");
    const MessageCapture capture;
    QCOMPARE(defaultTitle(uuid), QString());
    QCOMPARE(titleOfKey(uuid), QString());
    QCOMPARE(MessageCapture::criticalMessages(), QStringList());
}

void tst_ActionCatalogue::aKeyKeepsTheTitleItWasMadeWith()
{
    setLanguage("en");
    const normalAction key(nullptr, keyuuid::netWork, QStringLiteral("ctx"));
    setLanguage("zh_CN");
    QCOMPARE(key.titleText, QStringLiteral("Network speed"));
}

void tst_ActionCatalogue::knowsDefaultTitles()
{
    for (const char *const language : {"en", "zh_CN", "de"}) {
        LanguageUtilities::instance()->SetLanguage(QString::fromLatin1(language));
        for (const Row &row : expectedRows) {
            QVERIFY(isDefaultTitle(row.uuid, QString::fromUtf8(row.englishTitle)));
            QVERIFY(isDefaultTitle(row.uuid, QString::fromUtf8(row.chineseTitle)));
            QVERIFY(!isDefaultTitle(row.uuid, QString()));
        }
    }
    QVERIFY(!isDefaultTitle(keyuuid::cpu, QStringLiteral("Memory")));
    QVERIFY(!isDefaultTitle(keyuuid::cpu, QStringLiteral("cpu usage rate")));
    // Kinds without a default title.
    for (const QString &uuid : {keyuuid::pumpSpeed, keyuuid::allData, QStringLiteral("x")}) {
        QVERIFY(isDefaultTitle(uuid, QString()));
        QVERIFY(!isDefaultTitle(uuid, QStringLiteral("Pump")));
    }
}

QTEST_MAIN(tst_ActionCatalogue)
#include "tst_actioncatalogue.moc"
