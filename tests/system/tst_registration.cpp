#include "tests/support/DataServerClient.h"
#include "tests/support/Json.h"
#include "tests/support/KeyUuids.h"
#include "tests/support/RunningPlugin.h"
#include "tests/support/TestFonts.h"
#include "tests/support/Waits.h"

#include <QDir>
#include <QElapsedTimer>
#include <QJsonArray>
#include <QTcpServer>
#include <QTemporaryDir>
#include <QtTest>

class tst_Registration : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void registersAndWritesTheFileLog_data();
    void registersAndWritesTheFileLog();
    void takesItsTime();
    void startsUpInOrder();
    void sendsAPictureInTheFirstPass();
    void loadsFontsOfAnyPath();
    void choosesItsPlatform_data();
    void choosesItsPlatform();
    void runsOnWhenItsPortIsTaken();
};

void tst_Registration::registersAndWritesTheFileLog_data()
{
    QTest::addColumn<QString>("language");
    QTest::newRow("no language") << QStringLiteral("C.UTF-8");
    QTest::newRow("a language with digits of its own") << QStringLiteral("fa_IR.UTF-8");
}

void tst_Registration::registersAndWritesTheFileLog()
{
    QFETCH(QString, language);
    const QDateTime before = QDateTime::currentDateTime();
    RunningPlugin plugin;
    plugin.process.setVariable(QStringLiteral("LC_ALL"), language);
    QVERIFY(plugin.start());

    const QString registration = plugin.host.texts().constFirst();
    const QJsonObject object = json(registration.toUtf8());
    QCOMPARE(object, json(R"({"event": "registerPlugin", "uuid": "plugin-1"})"));
    QCOMPARE(registration.toUtf8(), QJsonDocument(object).toJson(QJsonDocument::Compact));

    const QByteArray port = QByteArray::number(plugin.host.port());
    QTRY_COMPARE(plugin.process.content(QStringLiteral("log.txt")).count('\n'), 3);
    const QByteArray log = plugin.process.content(QStringLiteral("log.txt"));
    const QList<QByteArray> expected{"ws://127.0.0.1:" + port, registration.toUtf8(),
                                     "Connect-serverPort: " + port};
    QByteArray::size_type start = 0;
    for (const QByteArray &message : expected) {
        const QByteArray line = log.mid(start, log.indexOf('\n', start) + 1 - start);
        const QByteArray stamp = line.left(21);
        QCOMPARE(line, stamp + " SDK/Logger " + message + "\r\n");
        const QDateTime time = QDateTime::fromString(QString::fromLatin1(stamp),
                                                     QStringLiteral("'['yyyy-MM-dd hh:mm:ss']'"));
        QVERIFY2(time.isValid(), stamp.constData());
        QVERIFY(time >= before.addSecs(-1) && time <= QDateTime::currentDateTime());
        start += line.size();
    }
    QCOMPARE(start, log.size());
}

void tst_Registration::takesItsTime()
{
    constexpr qint64 specifiedWaits = 100 + 1000;
    constexpr qint64 longest = 10000;

    QElapsedTimer timer;
    timer.start();
    RunningPlugin plugin;
    QVERIFY(plugin.start());
    const qint64 taken = timer.elapsed();
    qDebug() << "From start to registration:" << taken << "ms";
    QVERIFY2(taken >= specifiedWaits, qPrintable(QString::number(taken)));
    QVERIFY2(taken < longest, qPrintable(QString::number(taken)));
}

void tst_Registration::startsUpInOrder()
{
    RunningPlugin plugin;
    QVERIFY(plugin.start());
    QTRY_VERIFY(plugin.process.hasPrinted(QStringLiteral("updateImages over")));
    QTRY_VERIFY(plugin.process.hasLoggedInOrder(
        {QStringLiteral("初始化翻译"),
         QStringLiteral("Attempting to connect to") + QStringLiteral("ws://localhost:24509"),
         QStringLiteral("Connection failed or timed out."),
         QStringLiteral("Connect to PROT: 24509 Failed, try to killProcess and Running.."),
         QStringLiteral("已终止所有同名进程。"), QStringLiteral("插件第一次启动 初始化插件模块"),
         QStringLiteral("插件启动"), QStringLiteral("连接关机，重启，注销信号"),
         QStringLiteral("initSystemMonitorLib success"), QStringLiteral("初始化性能监视器模块成功"),
         QStringLiteral("初始化系统信息"), QStringLiteral("尝试启动插件"),
         QStringLiteral("尝试启动插件成功"), QStringLiteral("加载字体..."),
         QStringLiteral("updateImages"),
         QStringLiteral("-------------------updateImages over---------------------")}));
    QTRY_VERIFY(plugin.process.hasPrinted(QStringLiteral("WebSocket server started on port")));
    // One line for each language without a table.
    QCOMPARE(plugin.process.lines()
                 .filter(QRegularExpression(QStringLiteral(
                     "Unable to open file :/JsonLanguage/[a-zA-Z_]+\\.json, error info: ")))
                 .size(),
             11);
}

/// Counted in passes, which a busy machine delays but does not add to.
void tst_Registration::sendsAPictureInTheFirstPass()
{
    const QString context = QStringLiteral("key");
    RunningPlugin plugin;
    QVERIFY(plugin.start());
    plugin.host.appear(keyuuid::cpu, context);
    QVERIFY(plugin.host.waitForUpdate(context));
    QCOMPARE(plugin.host.events(context).mid(0, 3),
             (QStringList{QStringLiteral("setSettings"), QStringLiteral("setImage"),
                          QStringLiteral("setTitle")}));
    QVERIFY(FakeHost::hasInk(plugin.host.images(context).constFirst()));

    const QString painted =
        PluginProcess::quoted(QStringLiteral("get_operator->GetAction(): ") + keyuuid::cpu);
    QTRY_VERIFY(plugin.process.lines().contains(painted));
    const QStringList lines = plugin.process.lines();
    const auto appeared =
        lines.indexOf(PluginProcess::quoted(QStringLiteral("WillAppearForAction")));
    const auto begun =
        lines.indexOf(PluginProcess::quoted(QStringLiteral("updateImages")), appeared);
    QVERIFY(appeared >= 0);
    QCOMPARE(lines.value(begun + 1), painted);
    QCOMPARE(lines.mid(appeared, begun - appeared).filter(QStringLiteral("textToDraw")).size(), 0);
}

void tst_Registration::loadsFontsOfAnyPath()
{
    const QString installed = testfonts::find(QStringLiteral("Roboto-Bold.ttf"));
    if (installed.isEmpty())
        QSKIP("this machine has no Roboto fonts");
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("шрифты 字体"));
    QVERIFY(QDir().mkdir(path));
    const QString file = path + QStringLiteral("/粗体 é.ttf");
    QVERIFY(QFile::copy(installed, file));
    const QJsonObject font{{QStringLiteral("name"), QStringLiteral("粗体")},
                           {QStringLiteral("url"), file}};
    const QJsonObject info{{QStringLiteral("fonts"), QJsonArray{font}}};
    RunningPlugin plugin;
    QVERIFY(plugin.start(QString::fromUtf8(QJsonDocument(info).toJson(QJsonDocument::Compact))));
    QTRY_VERIFY(plugin.process.hasLogged(file + QStringLiteral(" loaded success, contains:")));
    QTRY_VERIFY(plugin.process.hasLogged(QStringLiteral("  Roboto  [Bold]")));

    plugin.host.appear(keyuuid::cpu, QStringLiteral("key"), FakeHost::keySettings());
    QVERIFY(plugin.host.waitForMessages(QStringLiteral("setSettings"), QStringLiteral("key"), 1));
    const QJsonArray fonts = plugin.host.settings(QStringLiteral("key"))
                                 .constFirst()
                                 .value(QStringLiteral("titleParameters"))
                                 .toObject()
                                 .value(QStringLiteral("FontList"))
                                 .toArray();
    const QString name = fonts.at(0).toObject().value(QStringLiteral("name")).toString();
    QVERIFY2(name.startsWith(QStringLiteral("粗体 é ")), qPrintable(name));
}

void tst_Registration::choosesItsPlatform_data()
{
    QTest::addColumn<QString>("variable");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("platform");
    QTest::newRow("no display") << QString() << QString() << PluginProcess::usualPlatform();
    QTest::newRow("an empty display")
        << QStringLiteral("DISPLAY") << QString() << PluginProcess::usualPlatform();
    QTest::newRow("the tester's choice") << QStringLiteral("QT_QPA_PLATFORM")
                                         << QStringLiteral("minimal") << QStringLiteral("minimal");
}

void tst_Registration::choosesItsPlatform()
{
    QFETCH(QString, variable);
    QFETCH(QString, value);
    QFETCH(QString, platform);

    RunningPlugin plugin;
    if (!variable.isEmpty())
        plugin.process.setVariable(variable, value);
    QVERIFY(plugin.start());
    QCOMPARE(plugin.process.platforms(), QStringList(platform));
    plugin.host.appear(keyuuid::cpu, QStringLiteral("key"));
    QVERIFY(plugin.host.waitForUpdate(QStringLiteral("key")));
    QVERIFY(!FakeHost::picture(plugin.host.images(QStringLiteral("key")).constFirst()).isNull());
}

void tst_Registration::runsOnWhenItsPortIsTaken()
{
    QTcpServer other;
    QVERIFY(other.listen(QHostAddress::Any, DataServerClient::port));
    RunningPlugin plugin;
    QVERIFY(plugin.start());
    QTRY_VERIFY(
        plugin.process.lines().contains(QStringLiteral("WebSocket server failed to start!")));
    plugin.host.appear(keyuuid::cpu, QStringLiteral("key"));
    QVERIFY(plugin.host.waitForUpdate(QStringLiteral("key")));
}

QTEST_GUILESS_MAIN(tst_Registration)
#include "tst_registration.moc"
