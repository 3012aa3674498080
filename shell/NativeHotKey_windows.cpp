#include "shell/NativeHotKey.h"

#include <windows.h>

std::optional<quint64> hotKeyIdentifier(const QByteArray &eventType, const void *message)
{
    if (eventType != "windows_generic_MSG" && eventType != "windows_dispatcher_MSG")
        return std::nullopt;
    const auto *const native = static_cast<const MSG *>(message);
    if (native->message != WM_HOTKEY)
        return std::nullopt;
    return native->wParam;
}
