#include "tests/support/DataServerClient.h"
#include "tests/support/KeyUuids.h"
#include "tests/support/RunningPlugin.h"
#include "tests/support/Waits.h"

#include <QTcpServer>
#include <QtTest>

#include <csignal>
#include <memory>

/// The plugin has no terminal, so that its console is a file.
class tst_DebugConsole_linux : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void opensOnTheHotKey();
    void opensOnce();
    void outlivesItsClosing();
    void opensOnAPressDuringTheStart();
    void opensWithoutStandardStreams();

private:
    QByteArray console() const;
    bool consoleHas(const QString &text, int times = 1) const;

    std::unique_ptr<RunningPlugin> m_plugin;
};

namespace {

const QString pressed = QStringLiteral("nativeEvent Ctrl+Backspace pressed!");
const QString opening = QStringLiteral("尝试打开控制台...");
const QString openMark = QStringLiteral("child window open");
const QString opened = QStringLiteral("打开控制台完成");
const QString updated = QStringLiteral("-------------------updateImages over---------------------");

} // namespace

void tst_DebugConsole_linux::init()
{
    m_plugin = std::make_unique<RunningPlugin>();
    QVERIFY(m_plugin->start());
    // From here on it is in its event loop.
    QTRY_VERIFY(m_plugin->process.hasLogged(updated));
}

void tst_DebugConsole_linux::cleanup()
{
    m_plugin.reset();
}

QByteArray tst_DebugConsole_linux::console() const
{
    return m_plugin->process.content(QStringLiteral("debug-console.txt"));
}

bool tst_DebugConsole_linux::consoleHas(const QString &text, int times) const
{
    return console().split('\n').count(PluginProcess::quoted(text).toUtf8()) >= times;
}

void tst_DebugConsole_linux::opensOnTheHotKey()
{
    PluginProcess &process = m_plugin->process;
    QVERIFY(console().isNull());
    process.pressConsoleHotKey();
    QTRY_VERIFY(consoleHas(opened));
    QTRY_VERIFY(
        process.hasLoggedInOrder({QStringLiteral("outPutName: output.txt"), pressed, opening}));
    QTRY_VERIFY(consoleHas(updated));

    // All of standard error goes there.
    const QStringList lines = process.lines();
    QCOMPARE(lines.mid(lines.indexOf(PluginProcess::quoted(opening)) + 1), QStringList());
    QVERIFY(console().startsWith(PluginProcess::quoted(openMark).toUtf8() + '\n' +
                                 PluginProcess::quoted(opened).toUtf8() + '\n'));
    QVERIFY(console().endsWith('\n'));
    QVERIFY(!console().contains('\r'));
}

void tst_DebugConsole_linux::opensOnce()
{
    PluginProcess &process = m_plugin->process;
    process.pressConsoleHotKey();
    QTRY_VERIFY(consoleHas(opened));
    process.pressConsoleHotKey();
    QTRY_VERIFY(consoleHas(pressed));
    QTRY_VERIFY(consoleHas(updated));
    QVERIFY(!consoleHas(opening));
    QVERIFY(!consoleHas(opened, 2));
}

void tst_DebugConsole_linux::outlivesItsClosing()
{
    PluginProcess &process = m_plugin->process;
    FakeHost &host = m_plugin->host;
    const QString key = QStringLiteral("key");
    process.pressConsoleHotKey();
    QTRY_VERIFY(consoleHas(opened));
    ::kill(static_cast<pid_t>(process.processId()), SIGHUP);

    // An update after the closing leaves no trace in the console.
    host.appear(keyuuid::cpu, key);
    QVERIFY(host.waitForUpdate(key));
    const QByteArray left = console();
    QVERIFY(host.waitForUpdate(key));
    QCOMPARE(console(), left);

    process.pressConsoleHotKey();
    QTRY_VERIFY(consoleHas(opened, 2));
    QVERIFY(host.waitForUpdate(key));
    QTRY_VERIFY(console().size() > left.size() && console().endsWith('\n'));
    QVERIFY(process.isRunning());
}

void tst_DebugConsole_linux::opensOnAPressDuringTheStart()
{
    m_plugin.reset();
    // It makes the start wait for an answer.
    QTcpServer silent;
    QVERIFY(silent.listen(QHostAddress::Any, DataServerClient::port));
    m_plugin = std::make_unique<RunningPlugin>();
    PluginProcess &process = m_plugin->process;
    process.launch(m_plugin->host.arguments());
    QTRY_VERIFY(silent.hasPendingConnections());
    process.pressConsoleHotKey();
    QTRY_VERIFY(consoleHas(opened));
    QTRY_VERIFY(process.timesLogged(pressed) == 1);
    QTRY_VERIFY(consoleHas(QStringLiteral("尝试启动插件成功")));
}

void tst_DebugConsole_linux::opensWithoutStandardStreams()
{
    m_plugin = std::make_unique<RunningPlugin>();
    PluginProcess &process = m_plugin->process;
    FakeHost &host = m_plugin->host;
    const QString key = QStringLiteral("key");
    process.setProgram(QStringLiteral("/bin/sh"));
    process.launch(QStringList{QStringLiteral("-c"), QStringLiteral("exec \"$@\" <&- >&- 2>&-"),
                               QStringLiteral("sh"), PluginProcess::executable()} +
                   host.arguments());
    QVERIFY(host.waitForRegistration());
    host.appear(keyuuid::cpu, key);
    QVERIFY(host.waitForUpdate(key));
    // Nothing that was printed was mistaken for the hot key.
    QVERIFY(console().isNull());

    process.pressConsoleHotKey();
    QTRY_VERIFY(consoleHas(opened));
    QVERIFY(host.waitForUpdate(key));
    QTRY_VERIFY(consoleHas(updated));
    QVERIFY(!consoleHas(pressed));
    QVERIFY(!consoleHas(opened, 2));
    QVERIFY(process.isRunning());
}

QTEST_GUILESS_MAIN(tst_DebugConsole_linux)
#include "tst_debugconsole_linux.moc"
