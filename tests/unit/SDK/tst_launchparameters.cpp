#include "SDK/LaunchParameters.h"

#include <QtTest>

#include <vector>

class tst_LaunchParameters : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsTheFourPairs();
    void acceptsAnyOrder();
    void namesTheFirstFault_data();
    void namesTheFirstFault();
    void countsTheArguments_data();
    void countsTheArguments();
    void lastOfARepeatedNameCounts();
    void takesTextsAsLatin1();
    void picksTheLanguage_data();
    void picksTheLanguage();

private:
    static LaunchParametersResult parse(const QList<QByteArray> &pairs)
    {
        std::vector<const char *> argv{"QtSystemMonitor"};
        for (const QByteArray &each : pairs)
            argv.push_back(each.constData());
        return parseLaunchParameters(static_cast<int>(argv.size()), argv.data());
    }
};

void tst_LaunchParameters::readsTheFourPairs()
{
    const auto result = parse(
        {"-port", "28196", "-pluginUUID", "A1", "-registerEvent", "registerPlugin", "-info", "{}"});
    QCOMPARE(result.error, QString());
    QCOMPARE(result.parameters.port, 28196);
    QCOMPARE(result.parameters.pluginUUID, QStringLiteral("A1"));
    QCOMPARE(result.parameters.registerEvent, QStringLiteral("registerPlugin"));
    QCOMPARE(result.parameters.info, QStringLiteral("{}"));
}

void tst_LaunchParameters::acceptsAnyOrder()
{
    const auto result = parse(
        {"-info", "{}", "-registerEvent", "registerPlugin", "-pluginUUID", "A1", "-port", "28196"});
    QCOMPARE(result.error, QString());
    QCOMPARE(result.parameters.port, 28196);
    QCOMPARE(result.parameters.info, QStringLiteral("{}"));
}

void tst_LaunchParameters::namesTheFirstFault_data()
{
    QTest::addColumn<QList<QByteArray>>("pairs");
    QTest::addColumn<QString>("error");
    using Pairs = QList<QByteArray>;
    const QString port = QStringLiteral("Invalid port number");
    const QString uuid = QStringLiteral("Invalid plugin UUID");
    const QString event = QStringLiteral("Invalid registerEvent");
    const QString info = QStringLiteral("Invalid info");
    QTest::newRow("port is text") << Pairs{"-port",          "abc", "-pluginUUID", "A",
                                           "-registerEvent", "r",   "-info",       "i"}
                                  << port;
    QTest::newRow("port is 0") << Pairs{"-port",          "0", "-pluginUUID", "A",
                                        "-registerEvent", "r", "-info",       "i"}
                               << port;
    QTest::newRow("port is hexadecimal")
        << Pairs{"-port", "0x10", "-pluginUUID", "A", "-registerEvent", "r", "-info", "i"} << port;
    QTest::newRow("port is beyond 32 bits")
        << Pairs{"-port", "99999999999", "-pluginUUID", "A", "-registerEvent", "r", "-info", "i"}
        << port;
    QTest::newRow("no port") << Pairs{"-prt",           "1", "-pluginUUID", "A",
                                      "-registerEvent", "r", "-info",       "i"}
                             << port;
    QTest::newRow("name in other letters")
        << Pairs{"-Port", "1", "-pluginUUID", "A", "-registerEvent", "r", "-info", "i"} << port;
    QTest::newRow("no UUID") << Pairs{"-port",          "1", "-other", "A",
                                      "-registerEvent", "r", "-info",  "i"}
                             << uuid;
    QTest::newRow("empty UUID") << Pairs{"-port",          "1", "-pluginUUID", "",
                                         "-registerEvent", "r", "-info",       "i"}
                                << uuid;
    QTest::newRow("no event") << Pairs{"-port", "1", "-pluginUUID", "A", "-x", "r", "-info", "i"}
                              << event;
    QTest::newRow("empty info") << Pairs{"-port",          "1", "-pluginUUID", "A",
                                         "-registerEvent", "r", "-info",       ""}
                                << info;
    QTest::newRow("everything wrong: the port comes first")
        << Pairs{"a", "b", "c", "d", "e", "f", "g", "h"} << port;
    QTest::newRow("UUID before event") << Pairs{"-port", "1", "c", "d", "e", "f", "g", "h"} << uuid;
}

void tst_LaunchParameters::namesTheFirstFault()
{
    QFETCH(QList<QByteArray>, pairs);
    QFETCH(QString, error);
    QCOMPARE(parse(pairs).error, error);
}

void tst_LaunchParameters::countsTheArguments_data()
{
    QTest::addColumn<int>("count");
    for (const int count : {1, 2, 8, 10, 11, 100})
        QTest::newRow(qPrintable(QString::number(count))) << count;
}

void tst_LaunchParameters::countsTheArguments()
{
    QFETCH(int, count);
    QList<QByteArray> pairs{"-port", "1", "-pluginUUID", "A", "-registerEvent", "r", "-info", "i"};
    while (pairs.size() < count - 1)
        pairs.append("more");
    QCOMPARE(parse(pairs.mid(0, count - 1)).error,
             QStringLiteral("Invalid number of parameters %1 instead of 9").arg(count));
}

void tst_LaunchParameters::lastOfARepeatedNameCounts()
{
    const auto result = parse({"-port", "1", "-port", "2", "-pluginUUID", "A", "-info", "i"});
    QCOMPARE(result.parameters.port, 2);
    QCOMPARE(result.error, QStringLiteral("Invalid registerEvent"));
}

void tst_LaunchParameters::takesTextsAsLatin1()
{
    const auto result =
        parse({"-port", "1", "-pluginUUID", "\xE9", "-registerEvent", "r", "-info", "i"});
    QCOMPARE(result.parameters.pluginUUID, QString(QChar(0xE9)));
}

void tst_LaunchParameters::picksTheLanguage_data()
{
    QTest::addColumn<QString>("info");
    QTest::addColumn<QString>("language");
    const QString english = QStringLiteral("en");
    QTest::newRow("named") << QStringLiteral(R"({"application":{"language":"zh_CN"}})")
                           << QStringLiteral("zh_CN");
    QTest::newRow("named empty") << QStringLiteral(R"({"application":{"language":""}})")
                                 << QString();
    QTest::newRow("not text") << QStringLiteral(R"({"application":{"language":7}})") << english;
    QTest::newRow("no language") << QStringLiteral(R"({"application":{"version":"1"}})") << english;
    QTest::newRow("no application") << QStringLiteral(R"({"language":"zh_CN"})") << english;
    QTest::newRow("application is text") << QStringLiteral(R"({"application":"zh_CN"})") << english;
    QTest::newRow("array") << QStringLiteral("[1]") << english;
    QTest::newRow("no JSON") << QStringLiteral("{application:{language:zh_CN}}") << english;
    QTest::newRow("empty") << QString() << english;
    QTest::newRow("nested too deep") << QString(100000, QLatin1Char('[')) << english;
}

void tst_LaunchParameters::picksTheLanguage()
{
    QFETCH(QString, info);
    QFETCH(QString, language);
    QCOMPARE(languageFromInfo(info), language);
}

QTEST_GUILESS_MAIN(tst_LaunchParameters)
#include "tst_launchparameters.moc"
