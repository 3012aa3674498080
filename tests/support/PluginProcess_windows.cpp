#include "tests/support/PluginProcess.h"

#include <windows.h>

namespace {

struct Search
{
    DWORD process;
    HWND found;
};

/// The plugin's window, which is never shown, is the one with its title.
BOOL CALLBACK takeWindow(HWND window, LPARAM parameter)
{
    auto *const search = reinterpret_cast<Search *>(parameter);
    DWORD process = 0;
    wchar_t title[32] = {};
    GetWindowThreadProcessId(window, &process);
    GetWindowTextW(window, title, ARRAYSIZE(title));
    if (process != search->process ||
        QString::fromWCharArray(title) != QLatin1String("QtSystemMonitor"))
        return TRUE;
    search->found = window;
    return FALSE;
}

} // namespace

void PluginProcess::detach() {}

QString PluginProcess::usualPlatform()
{
    return QStringLiteral("windows");
}

void PluginProcess::pressConsoleHotKey()
{
    Search search{static_cast<DWORD>(processId()), nullptr};
    EnumWindows(takeWindow, reinterpret_cast<LPARAM>(&search));
    PostMessageW(search.found, WM_HOTKEY, 1, 0);
}
