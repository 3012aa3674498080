#include "shell/console_windows.h"

#include "shell/console.h"

#include <windows.h>

#include <atomic>
#include <cstdio>

namespace {

/// Called on a thread of the system's.
std::atomic<void (*)()> closedHandler = nullptr;

BOOL WINAPI controlHandler(DWORD event)
{
    return console::takesControlEvent(event) ? TRUE : FALSE;
}

} // namespace

namespace console {

bool attach()
{
    return AllocConsole() != FALSE;
}

std::optional<QPoint> windowPosition()
{
    HWND window = GetConsoleWindow();
    if (!window)
        return std::nullopt;
    RECT rectangle = {};
    GetWindowRect(window, &rectangle);
    return QPoint(rectangle.left, rectangle.top);
}

void showWindow()
{
    HWND window = GetConsoleWindow();
    ShowWindow(window, SW_RESTORE);
    ShowWindow(window, SW_SHOW);
    SetWindowPos(window, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE);
    SetForegroundWindow(window);
}

void redirectStandardStreams()
{
    std::freopen("CONOUT$", "w", stdout);
    std::freopen("CONOUT$", "w", stderr);
    std::freopen("CONIN$", "r", stdin);
}

void onClosed(void (*handler)())
{
    closedHandler = handler;
    SetConsoleCtrlHandler(controlHandler, TRUE);
}

bool takesControlEvent(unsigned long event)
{
    if (event != CTRL_CLOSE_EVENT)
        return false;
    closedHandler.load()();
    return true;
}

void detach()
{
    FreeConsole();
}

} // namespace console
