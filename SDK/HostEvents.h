#pragma once

#include <QString>

class BasePlugin;

/// Parses one inbound message and makes the one call on \a plugin that its "event" names. Text
/// that is not a JSON object and unknown events make no call.
void dispatchHostEvent(const QString &text, BasePlugin &plugin);
