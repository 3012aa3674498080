#include "shell/QtSystemMonitor.h"

#include "SDK/ConnectionManager.h"
#include "SDK/PluginLauncher.h"
#include "sensors/systemInfor.h"
#include "tests/support/FakeHardwareService.h"
#include "tests/support/MessageCapture.h"
#include "tests/support/TemporaryWorkingDirectory.h"
#include "tests/support/Waits.h"

#include <QApplication>
#include <QCloseEvent>
#include <QElapsedTimer>
#include <QTimer>
#include <QWebSocketServer>
#include <QWindow>
#include <QtTest>

#include <cstdlib>
#include <vector>

namespace {

/// Losing the host ends the process with status 0, which must not look like a passed test.
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

} // namespace

class tst_QtSystemMonitor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();

    void startsOnceAfterAFailedStart();
    void otherNativeMessagesGoToTheWidget();
    void closingTheWindowEndsNothing();
    void isNotAskedWhenASessionEnds();

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
    QElapsedTimer sinceStart;
    sinceStart.start();
    QVERIFY(start(window, {"x", "-port", QByteArray::number(host.serverPort()), "-pluginUUID", "u",
                           "-registerEvent", "r", "-info", info}));
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
    NativeEventResult result = 7;
    QVERIFY(!window.nativeEvent("xcb_generic_event_t", nullptr, &result));
    QCOMPARE(result, NativeEventResult{7});
    QCOMPARE(MessageCapture::messages(), QStringList());
}

void tst_QtSystemMonitor::closingTheWindowEndsNothing()
{
    constexpr int endedByTest = 7;
    QtSystemMonitor window;
    window.hide();
    QTimer::singleShot(0, &window, [&window] {
        // As the window system requests it.
        QCloseEvent event;
        QCoreApplication::sendEvent(window.windowHandle(), &event);
        QTimer::singleShot(100, &window, [] { QCoreApplication::exit(endedByTest); });
    });
    QCOMPARE(QApplication::exec(), endedByTest);
    // Its native window still takes messages.
    QVERIFY(window.windowHandle()->handle());
}

void tst_QtSystemMonitor::isNotAskedWhenASessionEnds()
{
    class Window : public QtSystemMonitor
    {
    public:
        int asked = 0;

    protected:
        void closeEvent(QCloseEvent *event) override
        {
            ++asked;
            QtSystemMonitor::closeEvent(event);
        }
    };
    Window window;
    window.hide();
    // A window that refuses to close would stop the end of the session.
    QApplication::closeAllWindows();
    QCOMPARE(window.asked, 0);
    window.close();
    QCOMPARE(window.asked, 1);
}

QTEST_MAIN(tst_QtSystemMonitor)
#include "tst_qtsystemmonitor.moc"
