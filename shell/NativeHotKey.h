#pragma once

#include <QByteArray>

#include <optional>

/// The identifier of the hot key that a native message reports: WM_HOTKEY of the event types
/// "windows_generic_MSG" and "windows_dispatcher_MSG". Nothing for any other message, and on Linux
/// for every message.
std::optional<quint64> hotKeyIdentifier(const QByteArray &eventType, const void *message);
