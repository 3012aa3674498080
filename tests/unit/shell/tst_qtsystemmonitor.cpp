#include "shell/QtSystemMonitor.h"

#include "SDK/ConnectionManager.h"
#include "SDK/PluginLauncher.h"
#include "sensors/systemInfor.h"
#include "shell/ConsoleLog.h"
#include "tests/support/FakeHardwareService.h"
#include "tests/support/MessageCapture.h"
#include "tests/support/TemporaryWorkingDirectory.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <QWebSocketServer>
#include <QtTest>

#include <cstdlib>
#include <memory>
#include <vector>

namespace {

const char *const pressTheHotKey = "press-the-hot-key";

/// Losing the host ends the process with status 0, which must not pass for a test that has passed.
bool finished = false;

void failUnlessFinished()
{
    if (!finished)
        std::_Exit(EXIT_FAILURE);
}

QString quoted(const char *text)
{
    return MessageCapture::quoted(QString::fromUtf8(text));
}

/// The hot key pressed in a process of its own that has no terminal.
int pressHotKeys()
{
    QtSystemMonitor window;
    const bool other = window.handleHotKey(2);
    const bool openAfterOther = ConsoleLog::isOpen();
    const bool first = window.handleHotKey(1);
    const bool second = window.handleHotKey(1);
    return !other && !openAfterOther && first && second && ConsoleLog::isOpen() ? 0 : 1;
}

} // namespace

class tst_QtSystemMonitor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();

    void startsOnceAfterAFailedStart();
    void otherNativeMessagesGoToTheWidget();
    void hotKeyOpensOneConsole();

private:
    static bool start(QtSystemMonitor &window, QList<QByteArray> arguments);
};

void tst_QtSystemMonitor::initTestCase()
{
    std::atexit(failUnlessFinished);
}

void tst_QtSystemMonitor::cleanupTestCase()
{
    finished = true;
}

bool tst_QtSystemMonitor::start(QtSystemMonitor &window, QList<QByteArray> arguments)
{
    std::vector<char *> argv;
    for (QByteArray &argument : arguments)
        argv.push_back(argument.data());
    return window.StartPlugin(static_cast<int>(argv.size()), argv.data());
}

void tst_QtSystemMonitor::startsOnceAfterAFailedStart()
{
    const TemporaryWorkingDirectory directory;
    const FakeHardwareService service;
    const MessageCapture capture;
    QtSystemMonitor window;

    QVERIFY(!start(window, {"x", "-port", "1"}));
    QVERIFY(!processConnectionManager());
    QCOMPARE(MessageCapture::messages().constFirst(), quoted("插件第一次启动 初始化插件模块"));
    QCOMPARE(
        MessageCapture::messages().mid(MessageCapture::messages().size() - 3),
        (QStringList{quoted("尝试启动插件"), quoted("Invalid number of parameters 3 instead of 9"),
                     quoted("尝试启动插件失败...")}));

    QWebSocketServer host(QStringLiteral("host"), QWebSocketServer::NonSecureMode);
    QVERIFY(host.listen(QHostAddress::LocalHost));
    const QByteArray info = "{'fonts':[{'name':'x','url':'/no/such/file'}]}";
    MessageCapture::clear();
    QVERIFY(start(window, {"x", "-port", QByteArray::number(host.serverPort()), "-pluginUUID", "u",
                           "-registerEvent", "r", "-info", info}));
    QElapsedTimer sinceStart;
    sinceStart.start();
    // No plugin was left of the failed start, so this one was a first start again.
    QCOMPARE(MessageCapture::messages().constFirst(), quoted("插件第一次启动 初始化插件模块"));
    QVERIFY(processConnectionManager());
    QCOMPARE(MessageCapture::messages().mid(MessageCapture::messages().size() - 4),
             (QStringList{
                 quoted("尝试启动插件成功"), quoted("加载字体..."),
                 MessageCapture::quoted(QStringLiteral("fontJson: ") + QString::fromLatin1(info)),
                 quoted("/no/such/file loaded failed")}));

    MessageCapture::clear();
    QVERIFY(!start(window, {"x"}));
    QCOMPARE(MessageCapture::messages(), QStringList(quoted("插件并非第一次启动, 不执行任何操作")));
    // The link lives as long as the plugin that it belongs to.
    QVERIFY(processConnectionManager());

    // The plugin of the failed start is gone: only one of the two makes a pass a second.
    QTRY_COMPARE(MessageCapture::count(quoted("updateImages")), 2);
    QVERIFY(sinceStart.elapsed() >= 1900);
    QVERIFY(!window.isVisible());
    delete processConnectionManager();
}

void tst_QtSystemMonitor::otherNativeMessagesGoToTheWidget()
{
    class Window : public QtSystemMonitor
    {
    public:
        using QtSystemMonitor::nativeEvent;
    };
    Window window;
    const MessageCapture capture;
    long result = 7;
    QVERIFY(!window.nativeEvent("xcb_generic_event_t", nullptr, &result));
    QCOMPARE(result, 7L);
    QCOMPARE(MessageCapture::messages(), QStringList());
}

void tst_QtSystemMonitor::hotKeyOpensOneConsole()
{
    const TemporaryWorkingDirectory directory;
    QProcess process;
    process.start(QStringLiteral("setsid"),
                  {QCoreApplication::applicationFilePath(), QString::fromLatin1(pressTheHotKey)});
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitCode(), 0);
    const QString before = QString::fromUtf8(process.readAllStandardError());
    QVERIFY(before.endsWith(QStringLiteral("\"outPutName: output.txt\"\n"
                                           "\"nativeEvent Ctrl+Backspace pressed!\"\n"
                                           "\"尝试打开控制台...\"\n")));
    QCOMPARE(QString::fromUtf8(directory.content(QStringLiteral("debug-console.txt"))),
             QStringLiteral("\"child window open\"\n"
                            "\"打开控制台完成\"\n"
                            "\"nativeEvent Ctrl+Backspace pressed!\"\n"));
}

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    if (argc == 2 && qstrcmp(argv[1], pressTheHotKey) == 0)
        return pressHotKeys();
    tst_QtSystemMonitor test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_qtsystemmonitor.moc"
