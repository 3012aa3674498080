#include "tests/support/Json.h"
#include "tests/support/RunningPlugin.h"
#include "tests/support/Waits.h"

#include <QDir>
#include <QtTest>

class tst_CommandLine : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void refuses_data();
    void refuses();
    void accepts_data();
    void accepts();
    void readsArgumentsAsLatin1();
    void readsFontsFromTheLastArgument();
};

void tst_CommandLine::refuses_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QString>("reason");

    const auto row = [](const char *name, const char *arguments, const char *reason) {
        QTest::newRow(name) << QString::fromUtf8(arguments) << QString::fromUtf8(reason);
    };
    row("none", "", "Invalid number of parameters 1 instead of 9");
    row("8 entries", "-port 1 -pluginUUID u -registerEvent r -info",
        "Invalid number of parameters 8 instead of 9");
    row("10 entries, a bad port among them", "-port abc -pluginUUID u -registerEvent r -info i x",
        "Invalid number of parameters 10 instead of 9");
    row("port of letters", "-port abc -pluginUUID u -registerEvent r -info i",
        "Invalid port number");
    row("port with letters", "-port 1x -pluginUUID u -registerEvent r -info i",
        "Invalid port number");
    row("port beyond 32 bits", "-port 4294967297 -pluginUUID u -registerEvent r -info i",
        "Invalid port number");
    row("port 0", "-port 0 -pluginUUID u -registerEvent r -info i", "Invalid port number");
    row("port in capitals", "-PORT 1 -pluginUUID u -registerEvent r -info i",
        "Invalid port number");
    row("no UUID", "-port 1 -other u -registerEvent r -info i", "Invalid plugin UUID");
    row("no register event", "-port 1 -pluginUUID u -other r -info i", "Invalid registerEvent");
    row("no info", "-port 1 -pluginUUID u -registerEvent r -other i", "Invalid info");
    row("empty info", "-port 1 -pluginUUID u -registerEvent r -info ''", "Invalid info");
    row("nothing known", "-a 1 -b u -c r -d i", "Invalid port number");
    row("port alone", "-port 1 -b u -c r -d i", "Invalid plugin UUID");
    row("port and UUID alone", "-b 1 -pluginUUID u -c r -port 1", "Invalid registerEvent");
    row("a later port counts", "-port 1 -port 0 -registerEvent r -info i", "Invalid port number");
    row("an earlier port does not", "-port 0 -port 1 -registerEvent r -info i",
        "Invalid plugin UUID");
}

void tst_CommandLine::refuses()
{
    QFETCH(QString, arguments);
    QFETCH(QString, reason);

    QStringList list = arguments.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    list.replaceInStrings(QStringLiteral("''"), QString());
    PluginProcess process;
    process.launch(list);

    QVERIFY(process.endsWithStatus(1));
    QVERIFY(process.hasLoggedInOrder(
        {QStringLiteral("插件第一次启动 初始化插件模块"), QStringLiteral("尝试启动插件"), reason,
         QStringLiteral("尝试启动插件失败..."), QStringLiteral("开始与varodek建立连接失败")}));
    QCOMPARE(process.lines().filter(QStringLiteral("\"Invalid ")).size(), 1);
    QVERIFY(process.content(QStringLiteral("log.txt")).isEmpty());
}

void tst_CommandLine::accepts_data()
{
    QTest::addColumn<QString>("order");
    QTest::addColumn<QString>("info");
    QTest::addColumn<QString>("launchLanguage");
    QTest::addColumn<QString>("tablesLanguage");

    const QString usual = QStringLiteral("-port -pluginUUID -registerEvent -info");
    const auto row = [](const char *name, const QString &order, const char *info,
                        const char *launchLanguage, const char *tablesLanguage) {
        QTest::newRow(name) << order << QString::fromUtf8(info)
                            << QString::fromLatin1(launchLanguage)
                            << QString::fromLatin1(tablesLanguage);
    };
    row("Chinese", usual, R"({"application":{"language":"zh_CN","version":"1"}})", "zh_CN", "en");
    row("info first, port last", QStringLiteral("-info -registerEvent -pluginUUID -port"),
        R"({"application":{"language":"de"}})", "de", "en");
    row("no language", QStringLiteral("-pluginUUID -info -port -registerEvent"),
        R"({"application":{"version":"1"}})", "en", "en");
    row("language is a number", usual, R"({"application":{"language":7}})", "en", "en");
    row("application is a list", usual, R"({"application":["language"]})", "en", "en");
    row("no JSON", usual, "hello", "en", "en");
    row("quotes stripped", usual, "{application:{language: zh_CN ,version:1}}", "en", "zh_CN");
    row("quotes stripped, language last", usual, "{application:{language:en}}", "en", "en}}");
}

void tst_CommandLine::accepts()
{
    QFETCH(QString, order);
    QFETCH(QString, info);
    QFETCH(QString, launchLanguage);
    QFETCH(QString, tablesLanguage);

    FakeHost host;
    const QMap<QString, QString> values{
        {QStringLiteral("-port"), QString::number(host.port())},
        {QStringLiteral("-pluginUUID"), QStringLiteral("u 1")},
        {QStringLiteral("-registerEvent"), QStringLiteral("register me")},
        {QStringLiteral("-info"), info}};
    QStringList arguments;
    const QStringList names = order.split(QLatin1Char(' '));
    for (const QString &name : names)
        arguments << name << values.value(name);

    PluginProcess process;
    process.launch(arguments);
    QVERIFY(host.waitForRegistration());
    QCOMPARE(json(host.texts().constFirst().toUtf8()),
             json(R"({"event": "register me", "uuid": "u 1"})"));

    QTRY_VERIFY(process.hasLogged(QStringLiteral("args0: ") +
                                  QDir::toNativeSeparators(PluginProcess::executable())));
    for (int i = 0; i < arguments.size(); ++i) {
        QTRY_VERIFY(process.hasLogged(
            QStringLiteral("args%1: %2").arg(QString::number(i + 1), arguments.at(i))));
    }
    QTRY_VERIFY(process.hasLoggedInOrder(
        {QStringLiteral("Language:") + tablesLanguage, QStringLiteral("初始化翻译"),
         QStringLiteral("尝试启动插件"), QStringLiteral("language: ") + launchLanguage,
         QStringLiteral("尝试启动插件成功")}));
}

void tst_CommandLine::readsArgumentsAsLatin1()
{
    FakeHost host;
    QStringList arguments = host.arguments();
    arguments.replaceInStrings(QStringLiteral("plugin-1"), QStringLiteral("é"));

    PluginProcess process;
    process.launch(arguments);
    QVERIFY(host.waitForRegistration());
    QCOMPARE(json(host.texts().constFirst().toUtf8()).value(QLatin1String("uuid")).toString(),
             QString::fromLatin1(QStringLiteral("é").toUtf8()));
}

void tst_CommandLine::readsFontsFromTheLastArgument()
{
    RunningPlugin plugin;
    const QString info = QStringLiteral("{'fonts':[{'name':'F','url':'/no/such/font.ttf'},7,{}]}");
    QVERIFY(plugin.start(info));
    QTRY_VERIFY(plugin.process.hasLoggedInOrder(
        {QStringLiteral("尝试启动插件成功"), QStringLiteral("加载字体..."),
         QStringLiteral("fontJson: ") + info, QStringLiteral("/no/such/font.ttf loaded failed"),
         QStringLiteral(" loaded failed")}));
}

QTEST_GUILESS_MAIN(tst_CommandLine)
#include "tst_commandline.moc"
