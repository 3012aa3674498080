#include "SDK/LanguageUtilities.h"
#include "render/ActionCatalogue.h"
#include "render/ActionUuids.h"
#include "render/normalAction.h"
#include "tests/support/MessageCapture.h"

#include <QtTest>

/// The kinds of keys and their titles in each language.
class tst_ActionCatalogue : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void listsEveryKindInOrder();
    void findsEveryKind_data() { everyRow(); }
    void findsEveryKind();
    void titlesInEnglish_data() { everyRow(); }
    void titlesInEnglish();
    void titlesInChinese_data() { everyRow(); }
    void titlesInChinese();
    void titlesFallBackToChinese_data() { everyLanguageWithoutTable(); }
    void titlesFallBackToChinese();
    void kindsWithoutARowHaveNoTitle_data();
    void kindsWithoutARowHaveNoTitle();
    void aKeyKeepsTheTitleItWasMadeWith();

private:
    static void everyRow();
    static void everyLanguageWithoutTable();
};

namespace {

struct Row
{
    const char *uuid;
    const char *chineseTitle;
    const char *englishTitle;
};

const Row expectedRows[] = {
    {"com.quellor.stream.system.memory", "内存", "Memory"},
    {"com.quellor.stream.system.cpu", "CPU使用率", "CPU usage rate"},
    {"com.quellor.stream.system.cpu.temperature", "CPU温度", "CPU temperature"},
    {"com.quellor.stream.system.Cpu_Clock", "CPU频率", "CPU frequency"},
    {"com.quellor.stream.system.Cpu_Package_Power", "CPU封装功率", "CPU Package Power"},
    {"com.quellor.stream.system.NetWork", "网速", "Network speed"},
    {"com.quellor.stream.system.Gpu_Temperature", "Gpu温度", "GPU temperature"},
    {"com.quellor.stream.system.Gpu_Core_Clock", "Gpu核心频率", "GPU core frequency"},
    {"com.quellor.stream.system.Gpu_Core_Utility", "Gpu核心使用率", "GPU core usage rate"},
    {"com.quellor.stream.system.Gpu_Memory_Clock", "Gpu显存频率", "GPU memory clock frequency"},
    {"com.quellor.stream.system.Gpu_Memory_Utility", "Gpu显存使用率", "GPU memory usage rate"},
    {"com.quellor.stream.system.PhysicalDisk", "硬盘", "Hard disk"},
    {"com.quellor.stream.system.Memory_Free_MB", "可用内存(MB)", "Available memory (MB)"},
    {"com.quellor.stream.system.Memory_Used_MB", "已用内存(MB)", "Used memory (MB)"},
    {"com.quellor.stream.system.Memory_Total_MB", "总内存(MB)", "Total memory (MB)"},
    {"com.quellor.stream.system.Memory_Free_GB", "可用内存(GB)", "Available memory (GB)"},
    {"com.quellor.stream.system.Memory_Used_GB", "已用内存(GB)", "Used memory (GB)"},
    {"com.quellor.stream.system.Memory_Total_GB", "总内存(GB)", "Total memory (GB)"},
    {"com.quellor.stream.system.Gpu_Memory_Used", "已用显存", "Used GPU memory"},
    {"com.quellor.stream.system.Gpu_Power", "Gpu功耗", "GPU power consumption"},
    {"com.quellor.stream.system.volume", "音量", "Volume"},
    {"com.quellor.stream.system.Cpu_Model", "CPU型号", "CPU model"},
    {"com.quellor.stream.system.Gpu_Model", "GPU型号", "GPU model"},
    {"com.quellor.stream.system.Gpu_Voltage", "GPU电压", "GPU voltage"},
    {"com.quellor.stream.system.PhysicalDisk.Temperature", "硬盘温度", "Disk temperature"},
    {"com.quellor.stream.system.Memory_Model", "内存型号", "Memory model"},
    {"com.quellor.stream.system.NetWork.Upload", "上传网速", "Upload speed"},
    {"com.quellor.stream.system.NetWork.Download", "下载网速", "Download speed"},
    {"com.quellor.stream.system.Cpu_Voltage", "CPU电压", "CPU voltage"},
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
        QTest::newRow(row.uuid) << QString::fromUtf8(row.uuid)
                                << QString::fromUtf8(row.chineseTitle)
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
    QCOMPARE(defaultTitle(QStringLiteral("com.quellor.stream.system.volume")),
             QStringLiteral("音量"));

    const MessageCapture missingTables;
    LanguageUtilities::instance()->LoadLanguages();
}

void tst_ActionCatalogue::listsEveryKindInOrder()
{
    QStringList expected;
    for (const Row &row : expectedRows)
        expected.append(QString::fromUtf8(row.uuid));
    QStringList actual;
    for (const ActionCatalogueRow &row : actionCatalogue())
        actual.append(row.uuid);
    QCOMPARE(actual.size(), 29);
    QCOMPARE(actual, expected);
    QCOMPARE(actual.removeDuplicates(), 0);
}

void tst_ActionCatalogue::findsEveryKind()
{
    QFETCH(QString, uuid);
    const ActionCatalogueRow *const row = findCatalogueRow(uuid);
    QVERIFY(row);
    QCOMPARE(row->uuid, uuid);
    QTEST(row->chineseTitle, "chineseTitle");
    QTEST(row->englishTitle, "englishTitle");
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
        QCOMPARE(titleOfKey(QString::fromUtf8(row.uuid)), QString::fromUtf8(row.chineseTitle));
}

void tst_ActionCatalogue::kindsWithoutARowHaveNoTitle_data()
{
    QTest::addColumn<QString>("uuid");
    QTest::newRow("every sensor") << actionuuid::allData;
    QTest::newRow("pump") << actionuuid::pumpSpeed;
    QTest::newRow("CPU fan") << actionuuid::cpuFan;
    const auto row = [](const char *uuid) { QTest::newRow(uuid) << QString::fromLatin1(uuid); };
    row("com.quellor.stream.AllDATA");
    row("com.quellor.stream.PumpSpeed");
    row("com.quellor.stream.CPUFan");
    row("com.quellor.stream.system.Memory");
    row("com.quellor.stream.system.CPU");
    row("com.quellor.stream.system.network");
    row("COM.QUELLOR.STREAM.SYSTEM.VOLUME");
    row("com.quellor.stream.system.cpu ");
    row("com.quellor.stream.system");
    row("");
}

void tst_ActionCatalogue::kindsWithoutARowHaveNoTitle()
{
    QFETCH(QString, uuid);
    setLanguage("zh_CN");
    const MessageCapture capture;
    QVERIFY(!findCatalogueRow(uuid));
    QCOMPARE(defaultTitle(uuid), QString());
    QCOMPARE(titleOfKey(uuid), QString());
    QCOMPARE(MessageCapture::criticalMessages(), QStringList());
}

void tst_ActionCatalogue::aKeyKeepsTheTitleItWasMadeWith()
{
    setLanguage("en");
    const normalAction key(nullptr, actionuuid::netWork, QStringLiteral("ctx"));
    setLanguage("zh_CN");
    QCOMPARE(key.titleText, QStringLiteral("Network speed"));
}

QTEST_MAIN(tst_ActionCatalogue)
#include "tst_actioncatalogue.moc"
