#include "SDK/Logger/Logger.h"
#include "shell/ConsoleLog.h"
#include "shell/console.h"
#include "shell/console_windows.h"
#include "tests/support/TemporaryWorkingDirectory.h"

#include <QApplication>
#include <QProcess>
#include <QTemporaryFile>
#include <QTimer>
#include <QtTest>

#include <windows.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <vector>

/// The console belongs to processes of this program's own, which have none at their start.
class tst_ConsoleLog_windows : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void printsEveryMessageInAWindow();
    void opensAnewAfterItsClosing_data();
    void opensAnewAfterItsClosing();
    void failedAttemptIsNotRepeated();
    void failedAttemptKeepsStandardError();
    void selectingTextStopsNothing();
    void interruptKeepsItsDefaultCourse();
    void takesTheClosedWindowAlone_data();
    void takesTheClosedWindowAlone();
};

namespace {

constexpr int noWindow = 9;

int closings = 0;

QString firstLines(int count)
{
    HANDLE screen =
        CreateFileW(L"CONOUT$", GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                    nullptr, OPEN_EXISTING, 0, nullptr);
    CONSOLE_SCREEN_BUFFER_INFO info = {};
    GetConsoleScreenBufferInfo(screen, &info);
    QStringList lines;
    for (SHORT y = 0; y < count; ++y) {
        std::vector<wchar_t> line(static_cast<std::size_t>(info.dwSize.X));
        DWORD read = 0;
        ReadConsoleOutputCharacterW(screen, line.data(), DWORD(line.size()), {0, y}, &read);
        lines += QString::fromWCharArray(line.data(), int(read)).trimmed();
    }
    CloseHandle(screen);
    return lines.join(QLatin1Char('\n'));
}

bool write(const char *fileName, const QString &text)
{
    QFile file(QString::fromLatin1(fileName));
    return file.open(QIODevice::WriteOnly) && file.write(text.toUtf8()) >= 0;
}

/// The life of a console.
int useTheConsole()
{
    ConsoleLog::instance()->openOnce();
    if (!GetConsoleWindow())
        return noWindow;
    LogDebug(QStringLiteral("first message"));
    qWarning("a warning without quotes");
    ConsoleLog::instance()->openOnce();
    const bool topMost = (GetWindowLongW(GetConsoleWindow(), GWL_EXSTYLE) & WS_EX_TOPMOST) != 0;
    if (!ConsoleLog::isOpen() || !IsWindowVisible(GetConsoleWindow()) || !topMost)
        return 2;
    return write("screen.txt", firstLines(5)) ? 0 : 3;
}

bool closeTheConsole()
{
    return console::takesControlEvent(CTRL_CLOSE_EVENT) && !ConsoleLog::isOpen() &&
           !GetConsoleWindow();
}

/// Files that are opened between two consoles, and get the numbers that the first has left free.
class FilesBetween
{
public:
    FilesBetween()
    {
        for (QTemporaryFile &file : m_files)
            file.open();
    }

    /// Whether all are still open, with nothing in them.
    bool areUntouched()
    {
        return std::all_of(m_files.begin(), m_files.end(), [](QTemporaryFile &file) {
            return file.size() == 0 && file.write("mine") == 4 && file.flush() && file.size() == 4;
        });
    }

private:
    std::array<QTemporaryFile, 6> m_files;
};

/// The life of one console after the other.
int reopenTheConsole()
{
    ConsoleLog::instance()->openOnce();
    if (!GetConsoleWindow())
        return noWindow;
    for (int i = 1; i <= 2; ++i) {
        if (!closeTheConsole())
            return 2;
        FilesBetween files;
        LogDebug(QStringLiteral("to nobody"));
        ConsoleLog::instance()->openOnce();
        LogDebug(QStringLiteral("opening %1").arg(i));
        if (!ConsoleLog::isOpen() || !IsWindowVisible(GetConsoleWindow()))
            return 3;
        if (!files.areUntouched())
            return 5;
    }
    std::puts("standard output");
    std::fflush(stdout);
    return write("screen.txt", firstLines(5)) ? 0 : 4;
}

/// Where a console is already attached.
int useASecondConsole()
{
    if (!AllocConsole())
        return 4;
    ConsoleLog::instance()->openOnce();
    LogDebug(QStringLiteral("after the attempt"));
    return ConsoleLog::isOpen() ? 0 : 5;
}

int selectText()
{
    ConsoleLog::instance()->openOnce();
    if (!GetConsoleWindow())
        return noWindow;
    HANDLE keyboard = CreateFileW(L"CONIN$", GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                  nullptr, OPEN_EXISTING, 0, nullptr);
    DWORD mode = 0;
    if (!GetConsoleMode(keyboard, &mode))
        return 6;
    // Without the second flag the first says nothing.
    const DWORD flags = mode & (ENABLE_QUICK_EDIT_MODE | ENABLE_EXTENDED_FLAGS);
    // What is typed there is still read by the line.
    return flags == ENABLE_EXTENDED_FLAGS && (mode & ENABLE_LINE_INPUT) != 0 ? 0 : 7;
}

int interrupt()
{
    ConsoleLog::instance()->openOnce();
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer,
                     [] { GenerateConsoleCtrlEvent(CTRL_C_EVENT, 0); });
    timer.start(100);
    return QApplication::exec();
}

void run(QProcess &process, const char *mode)
{
    process.start(QCoreApplication::applicationFilePath(), {QString::fromLatin1(mode)});
    QVERIFY(process.waitForFinished());
}

} // namespace

void tst_ConsoleLog_windows::printsEveryMessageInAWindow()
{
    const TemporaryWorkingDirectory directory;
    QProcess process;
    run(process, "console");
    if (process.exitCode() == noWindow)
        QSKIP("No display to show a console's window on");
    QCOMPARE(process.exitCode(), 0);
    const QString screen = QString::fromUtf8(directory.content(QStringLiteral("screen.txt")));
    const QStringList lines = screen.split(QLatin1Char('\n'));
    QCOMPARE(lines.value(0), QStringLiteral("\"child window open\""));
    // The console's code page may lack the letters of line 1.
    QVERIFY(lines.value(1).startsWith(QLatin1Char('"')));
    QCOMPARE(lines.value(2), QStringLiteral("\"first message\""));
    QCOMPARE(lines.value(3), QStringLiteral("a warning without quotes"));
    QCOMPARE(lines.value(4), QString());
    const QString before = QString::fromUtf8(process.readAllStandardError());
    QVERIFY2(before.contains(QStringLiteral("\"X: ")), qPrintable(before));
}

void tst_ConsoleLog_windows::opensAnewAfterItsClosing_data()
{
    QTest::addColumn<bool>("hasStreams");
    QTest::newRow("of a host that reads its streams") << true;
    QTest::newRow("of a host that gives it no streams") << false;
}

void tst_ConsoleLog_windows::opensAnewAfterItsClosing()
{
    QFETCH(bool, hasStreams);
    const TemporaryWorkingDirectory directory;
    QProcess process;
    if (!hasStreams) {
        process.setCreateProcessArgumentsModifier([](QProcess::CreateProcessArguments *arguments) {
            arguments->startupInfo->dwFlags &= ~DWORD(STARTF_USESTDHANDLES);
            arguments->inheritHandles = FALSE;
        });
    }
    run(process, "reopened console");
    if (process.exitCode() == noWindow)
        QSKIP("No display to show a console's window on");
    QCOMPARE(process.exitCode(), 0);
    const QString screen = QString::fromUtf8(directory.content(QStringLiteral("screen.txt")));
    const QStringList lines = screen.split(QLatin1Char('\n'));
    QCOMPARE(lines.value(0), QStringLiteral("\"child window open\""));
    QVERIFY(lines.value(1).startsWith(QLatin1Char('"')));
    QCOMPARE(lines.value(2), QStringLiteral("\"opening 2\""));
    QCOMPARE(lines.value(3), QStringLiteral("standard output"));
    QCOMPARE(lines.value(4), QString());
}

void tst_ConsoleLog_windows::failedAttemptIsNotRepeated()
{
    QProcess process;
    run(process, "second console");
    QCOMPARE(process.exitCode(), 0);
    const QString errors = QString::fromUtf8(process.readAllStandardError());
    QVERIFY2(!errors.contains(QStringLiteral("child window open")), qPrintable(errors));
}

void tst_ConsoleLog_windows::failedAttemptKeepsStandardError()
{
    QProcess process;
    run(process, "second console");
    QCOMPARE(process.exitCode(), 0);
    const QString errors = QString::fromUtf8(process.readAllStandardError());
    QVERIFY2(errors.contains(QStringLiteral("\"after the attempt\"")), qPrintable(errors));
}

void tst_ConsoleLog_windows::selectingTextStopsNothing()
{
    QProcess process;
    run(process, "select text");
    if (process.exitCode() == noWindow)
        QSKIP("No display to show a console's window on");
    QCOMPARE(process.exitCode(), 0);
}

void tst_ConsoleLog_windows::interruptKeepsItsDefaultCourse()
{
    QProcess process;
    // It ends by that alone; Wine gives such an end the status 0.
    run(process, "interrupt");
    const std::array<uint, 2> statuses{STATUS_CONTROL_C_EXIT, 0};
    QVERIFY(std::count(statuses.begin(), statuses.end(), uint(process.exitCode())) == 1);
}

void tst_ConsoleLog_windows::takesTheClosedWindowAlone_data()
{
    QTest::addColumn<uint>("event");
    QTest::addColumn<bool>("taken");
    QTest::newRow("closed") << uint(CTRL_CLOSE_EVENT) << true;
    QTest::newRow("Ctrl+C") << uint(CTRL_C_EVENT) << false;
    QTest::newRow("Ctrl+Break") << uint(CTRL_BREAK_EVENT) << false;
    QTest::newRow("log-off") << uint(CTRL_LOGOFF_EVENT) << false;
    QTest::newRow("shutdown") << uint(CTRL_SHUTDOWN_EVENT) << false;
}

void tst_ConsoleLog_windows::takesTheClosedWindowAlone()
{
    QFETCH(uint, event);
    QFETCH(bool, taken);
    closings = 0;
    console::onClosed([] { ++closings; });
    QCOMPARE(console::takesControlEvent(event), taken);
    QCOMPARE(closings, taken ? 1 : 0);
}

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    const QByteArray mode = argc == 2 ? argv[1] : "";
    if (mode == "console")
        return useTheConsole();
    if (mode == "reopened console")
        return reopenTheConsole();
    if (mode == "select text")
        return selectText();
    if (mode == "second console")
        return useASecondConsole();
    if (mode == "interrupt")
        return interrupt();
    tst_ConsoleLog_windows test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_consolelog_windows.moc"
