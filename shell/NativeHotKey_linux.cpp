#include "shell/NativeHotKey.h"

std::optional<quint64> hotKeyIdentifier(const QByteArray & /*eventType*/, const void * /*message*/)
{
    return std::nullopt;
}
