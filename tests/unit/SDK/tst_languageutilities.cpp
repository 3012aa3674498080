#include "SDK/LanguageUtilities.h"
#include "tests/support/MessageCapture.h"

#include <QtTest>

class tst_LanguageUtilities : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void startsInEnglishWithoutTables();
    void loadsThirteenCodesInOrder();
    void reportsEachCodeWithoutATable();
    void loadingTwiceAppendsTheCodesAgain();
    void choosesAListedLanguage();
    void ignoresAnUnlistedLanguage_data();
    void ignoresAnUnlistedLanguage();
    void fallsBackInAListedLanguageWithoutATable();
    void translatesIntoAnExplicitLanguage();
    void translatesEveryChineseEntry_data();
    void translatesEveryChineseEntry();
    void fallsBackForAnUnknownKey();
    void keepsOneInstance();

private:
    static QString volumeIn(LanguageUtilities &utilities)
    {
        return utilities.Translate(QStringLiteral("Volume"), QStringLiteral("fallback"));
    }
};

void tst_LanguageUtilities::startsInEnglishWithoutTables()
{
    LanguageUtilities utilities;
    QCOMPARE(utilities.currentLanguage(), QStringLiteral("en"));
    QVERIFY(utilities.languages().isEmpty());
    QCOMPARE(volumeIn(utilities), QStringLiteral("fallback"));
    utilities.SetLanguage(QStringLiteral("zh_CN"));
    QCOMPARE(utilities.currentLanguage(), QStringLiteral("en"));
}

void tst_LanguageUtilities::loadsThirteenCodesInOrder()
{
    const MessageCapture capture;
    LanguageUtilities utilities;
    utilities.LoadLanguages();
    QCOMPARE(utilities.languages().join(QLatin1Char(' ')),
             QStringLiteral("ar de en es fr it ja ko pl pt ru zh_CN zh_HK"));
}

void tst_LanguageUtilities::reportsEachCodeWithoutATable()
{
    const MessageCapture capture;
    LanguageUtilities utilities;
    utilities.LoadLanguages();
    const QStringList reports = MessageCapture::criticalMessages();
    QCOMPARE(reports.size(), 11);
    QCOMPARE(reports.first(), QStringLiteral("\"Unable to open file :/JsonLanguage/ar.json, error "
                                             "info: No such file or directory\""));
}

void tst_LanguageUtilities::loadingTwiceAppendsTheCodesAgain()
{
    const MessageCapture capture;
    LanguageUtilities utilities;
    utilities.LoadLanguages();
    utilities.LoadLanguages();
    QCOMPARE(utilities.languages().size(), 26);
    QCOMPARE(utilities.languages().mid(13), utilities.languages().mid(0, 13));
    // The second time it loads each of the 26 codes: 11 reports, then 22.
    QCOMPARE(MessageCapture::criticalMessages().size(), 33);
    utilities.SetLanguage(QStringLiteral("zh_CN"));
    QCOMPARE(volumeIn(utilities), QStringLiteral("音量"));
}

void tst_LanguageUtilities::choosesAListedLanguage()
{
    const MessageCapture capture;
    LanguageUtilities utilities;
    utilities.LoadLanguages();
    QCOMPARE(volumeIn(utilities), QStringLiteral("Volume"));
    utilities.SetLanguage(QStringLiteral("zh_CN"));
    QCOMPARE(utilities.currentLanguage(), QStringLiteral("zh_CN"));
    QCOMPARE(utilities.Translate(QStringLiteral("Volume"), QStringLiteral("Volume")),
             QStringLiteral("音量"));
}

void tst_LanguageUtilities::ignoresAnUnlistedLanguage_data()
{
    QTest::addColumn<QString>("code");
    QTest::newRow("lower case") << QStringLiteral("zh_cn");
    QTest::newRow("closing braces") << QStringLiteral("en}}");
    QTest::newRow("unknown") << QStringLiteral("tlh");
    QTest::newRow("empty") << QString();
}

void tst_LanguageUtilities::ignoresAnUnlistedLanguage()
{
    QFETCH(QString, code);
    const MessageCapture capture;
    LanguageUtilities utilities;
    utilities.LoadLanguages();
    utilities.SetLanguage(code);
    QCOMPARE(utilities.currentLanguage(), QStringLiteral("en"));
}

void tst_LanguageUtilities::fallsBackInAListedLanguageWithoutATable()
{
    const MessageCapture capture;
    LanguageUtilities utilities;
    utilities.LoadLanguages();
    utilities.SetLanguage(QStringLiteral("fr"));
    QCOMPARE(utilities.currentLanguage(), QStringLiteral("fr"));
    QCOMPARE(volumeIn(utilities), QStringLiteral("fallback"));
}

void tst_LanguageUtilities::translatesIntoAnExplicitLanguage()
{
    const MessageCapture capture;
    LanguageUtilities utilities;
    utilities.LoadLanguages();
    const auto memory = [&utilities] {
        return utilities.Translate(QStringLiteral("Memory"), QStringLiteral("fallback"),
                                   QStringLiteral("zh_CN"));
    };
    QCOMPARE(memory(), QStringLiteral("内存"));
    utilities.SetLanguage(QStringLiteral("fr"));
    QCOMPARE(memory(), QStringLiteral("内存"));
}

void tst_LanguageUtilities::translatesEveryChineseEntry_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("chinese");
    const char *const entries[][2] = {
        {"Memory", "内存"},
        {"CPU usage rate", "CPU使用率"},
        {"CPU temperature", "CPU温度"},
        {"CPU frequency", "CPU频率"},
        {"CPU Package Power", "CPU封装功率"},
        {"Network speed", "网速"},
        {"GPU temperature", "Gpu温度"},
        {"GPU core frequency", "Gpu核心频率"},
        {"GPU core usage rate", "Gpu核心使用率"},
        {"GPU memory clock frequency", "Gpu显存频率"},
        {"GPU memory usage rate", "Gpu显存使用率"},
        {"Hard disk", "硬盘"},
        {"Available memory (MB)", "可用内存(MB)"},
        {"Used memory (MB)", "已用内存(MB)"},
        {"Total memory (MB)", "总内存(MB)"},
        {"Available memory (GB)", "可用内存(GB)"},
        {"Used memory (GB)", "已用内存(GB)"},
        {"Total memory (GB)", "总内存(GB)"},
        {"Used GPU memory", "已用显存"},
        {"GPU power consumption", "Gpu功耗"},
        {"Volume", "音量"},
        {"CPU model", "CPU型号"},
        {"GPU model", "GPU型号"},
        {"GPU voltage", "GPU电压"},
        {"Disk temperature", "硬盘温度"},
        {"Memory model", "内存型号"},
        {"Upload speed", "上传网速"},
        {"Download speed", "下载网速"},
        {"CPU voltage", "CPU电压"},
    };
    for (const auto &entry : entries)
        QTest::newRow(entry[0]) << QString::fromUtf8(entry[0]) << QString::fromUtf8(entry[1]);
}

void tst_LanguageUtilities::translatesEveryChineseEntry()
{
    QFETCH(QString, key);
    QFETCH(QString, chinese);
    const MessageCapture capture;
    LanguageUtilities utilities;
    utilities.LoadLanguages();
    QCOMPARE(utilities.Translate(key, QString(), QStringLiteral("zh_CN")), chinese);
    QCOMPARE(utilities.Translate(key, QString(), QStringLiteral("en")), key);
}

void tst_LanguageUtilities::fallsBackForAnUnknownKey()
{
    const MessageCapture capture;
    LanguageUtilities utilities;
    utilities.LoadLanguages();
    QCOMPARE(utilities.Translate(QStringLiteral("volume"), QStringLiteral("fallback")),
             QStringLiteral("fallback"));
    QCOMPARE(utilities.Translate(QString(), QStringLiteral("fallback")),
             QStringLiteral("fallback"));
}

void tst_LanguageUtilities::keepsOneInstance()
{
    LanguageUtilities *const first = LanguageUtilities::instance();
    QCOMPARE(LanguageUtilities::instance(this), first);
    QVERIFY(!first->parent());
}

QTEST_GUILESS_MAIN(tst_LanguageUtilities)
#include "tst_languageutilities.moc"
