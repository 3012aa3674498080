#include "shell/console_windows.h"

#include "shell/console.h"

#include <windows.h>

#include <atomic>
#include <cstdio>

namespace {

/// Called on a thread of the system.
std::atomic<void (*)()> closedHandler = nullptr;

/// Some C runtimes use their streams' handles as the process's standard handles. The system closes
/// those with the console; their numbers could then be reused for other files and sockets, to which
/// the streams would print, and which reopening the streams would close.
void keepStreamsFromTheConsolesEnd()
{
    for (const DWORD stream : {STD_INPUT_HANDLE, STD_OUTPUT_HANDLE, STD_ERROR_HANDLE})
        SetStdHandle(stream, nullptr);
}

/// Selecting text with the mouse would block printing, and with it the main thread.
void switchQuickEditOff()
{
    HANDLE input =
        CreateFileW(L"CONIN$", GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                    nullptr, OPEN_EXISTING, 0, nullptr);
    if (input == INVALID_HANDLE_VALUE)
        return;
    DWORD mode = 0;
    if (GetConsoleMode(input, &mode))
        SetConsoleMode(input, (mode & ~DWORD(ENABLE_QUICK_EDIT_MODE)) | ENABLE_EXTENDED_FLAGS);
    CloseHandle(input);
}

BOOL WINAPI controlHandler(DWORD event)
{
    return console::takesControlEvent(event) ? TRUE : FALSE;
}

} // namespace

namespace console {

bool attach()
{
    if (!AllocConsole())
        return false;
    switchQuickEditOff();
    return true;
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
    keepStreamsFromTheConsolesEnd();
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
