#include "qt/QtVersions.h"
#include "shell/ConsoleLog.h"
#include "shell/QtSystemMonitor.h"
#include "tests/support/MessageCapture.h"

#include <QApplication>
#include <QProcess>
#include <QTimer>
#include <QtTest>

#include <windows.h>

/// The window is a real one, found by its title as whoever posts messages finds it.
class tst_QtSystemMonitor_windows : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void passesAnotherHotKeyOn();
    void hotKeyOpensOneConsole();
    void closingTheWindowEndsNothing();
    void tellsTheEndOfASession();
};

namespace {

const char *const pressTheHotKey = "press-the-hot-key";

struct HotKey
{
    quint64 identifier;
    bool handled;
    NativeEventResult result;
};

/// Keeps what became of the hot keys.
class Window : public QtSystemMonitor
{
public:
    QVector<HotKey> hotKeys;

protected:
    bool nativeEvent(const QByteArray &eventType, void *message, NativeEventResult *result) override
    {
        NativeEventResult given = -1;
        const bool handled = QtSystemMonitor::nativeEvent(eventType, message, &given);
        const auto *const native = static_cast<const MSG *>(message);
        if (native->message == WM_HOTKEY)
            hotKeys.append({native->wParam, handled, given});
        if (handled)
            *result = given;
        return handled;
    }
};

/// Null where there is no display to have windows on.
HWND findWindow()
{
    return FindWindowW(nullptr, L"QtSystemMonitor");
}

/// Posts the hot key and waits until the window has seen it.
bool press(const Window &window, quint64 identifier)
{
    const int before = window.hotKeys.size();
    return PostMessageW(findWindow(), WM_HOTKEY, identifier, 0) &&
           QTest::qWaitFor([&] { return window.hotKeys.size() == before + 1; });
}

/// The hot key pressed in a process of its own that has no console.
int pressHotKeys()
{
    const Window window;
    if (!press(window, 1) || !ConsoleLog::isOpen())
        return 1;
    HWND console = GetConsoleWindow();
    if (!console || !press(window, 1) || GetConsoleWindow() != console)
        return 2;
    for (const HotKey &hotKey : window.hotKeys) {
        if (!hotKey.handled || hotKey.result != 0)
            return 3;
    }
    return 0;
}

} // namespace

void tst_QtSystemMonitor_windows::init()
{
    const QtSystemMonitor window;
    HWND found = findWindow();
    if (!found)
        QSKIP("No display to have windows on");
    QCOMPARE(found, reinterpret_cast<HWND>(window.winId()));
}

void tst_QtSystemMonitor_windows::passesAnotherHotKeyOn()
{
    const Window window;
    const MessageCapture capture;
    QVERIFY(press(window, 2));
    QVERIFY(!window.hotKeys.constFirst().handled);
    QCOMPARE(window.hotKeys.constFirst().result, -1L);
    QVERIFY(!ConsoleLog::isOpen());
    QCOMPARE(MessageCapture::messages(), QStringList());
}

void tst_QtSystemMonitor_windows::hotKeyOpensOneConsole()
{
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(), {QString::fromLatin1(pressTheHotKey)});
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitCode(), 0);
    // The second press is a line of the console's.
    const QByteArray errors = process.readAllStandardError();
    QCOMPARE(errors.count("\"nativeEvent Ctrl+Backspace pressed!\""), 1);
    QVERIFY(errors.contains("\"outPutName: output.txt\""));
}

void tst_QtSystemMonitor_windows::closingTheWindowEndsNothing()
{
    constexpr int endedByTest = 7;
    Window window;
    window.hide();
    HWND const handle = findWindow();
    QTimer::singleShot(0, &window, [&window] {
        const bool posted = PostMessageW(findWindow(), WM_CLOSE, 0, 0);
        // The window still takes hot keys after it.
        if (posted && press(window, 2))
            QTimer::singleShot(100, &window, [] { QCoreApplication::exit(endedByTest); });
        else
            QCoreApplication::exit(1);
    });
    QCOMPARE(QApplication::exec(), endedByTest);
    QCOMPARE(findWindow(), handle);
}

void tst_QtSystemMonitor_windows::tellsTheEndOfASession()
{
    Window window;
    window.hide();
    int told = 0;
    connect(qApp, &QGuiApplication::commitDataRequest, &window, [&told] { ++told; });
    // Anything but 0 lets the session end.
    QVERIFY(SendMessageW(findWindow(), WM_QUERYENDSESSION, 0, 0) != 0);
    QCOMPARE(told, 1);
}

int main(int argc, char **argv)
{
    // The offscreen platform has no native windows.
    qputenv("QT_QPA_PLATFORM", "windows");
    QApplication application(argc, argv);
    if (argc == 2 && qstrcmp(argv[1], pressTheHotKey) == 0)
        return pressHotKeys();
    tst_QtSystemMonitor_windows test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_qtsystemmonitor_windows.moc"
