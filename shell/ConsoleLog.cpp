#include "shell/ConsoleLog.h"

#include "SDK/Logger/Logger.h"
#include "shell/console.h"

#include <atomic>
#include <cstdio>

namespace {

/// Cleared on the thread, whichever it is, that reports the closing of the console.
std::atomic<bool> consoleOpen = false;

void printMessage(QtMsgType /*type*/, const QMessageLogContext & /*context*/,
                  const QString &message)
{
    // Compatibility: bare-console-lines
    std::fprintf(stderr, "%s\n", message.toLocal8Bit().constData());
    std::fflush(stderr);
}

void onConsoleClosed()
{
    console::detach();
    consoleOpen = false;
}

void showConsoleWindow(const QPoint &position)
{
    LogDebug(QStringLiteral("尝试显示出来"));
    LogDebug(QStringLiteral("X: %1,y: %2").arg(position.x()).arg(position.y()));
    console::showWindow();
}

} // namespace

ConsoleLog *ConsoleLog::instance()
{
    static auto *const log = new ConsoleLog;
    return log;
}

ConsoleLog::ConsoleLog()
{
    LogDebug(labelled("outPutName: ", QString::fromLatin1(outputName)));
}

bool ConsoleLog::isOpen()
{
    return consoleOpen;
}

void ConsoleLog::openOnce()
{
    // Compatibility: failed-console-stays-open
    if (!consoleOpen.exchange(true))
        OpenConsole();
}

void ConsoleLog::OpenConsole()
{
    LogDebug(QStringLiteral("尝试打开控制台..."));
    if (!console::attach())
        return;
    if (const auto position = console::windowPosition())
        showConsoleWindow(*position);
    console::redirectStandardStreams();
    qInstallMessageHandler(printMessage);
    console::onClosed(onConsoleClosed);
    LogDebug(QStringLiteral("child window open"));
    consoleOpen = true;
    LogDebug(QStringLiteral("打开控制台完成"));
}
