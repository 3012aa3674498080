#pragma once

#include "deck_simulator/deck/DeckPlace.h"

#include <QByteArray>
#include <QJsonObject>
#include <QRegularExpression>
#include <QString>
#include <QVector>

#include <chrono>
#include <optional>

namespace deck {

/// One step of a script. Which members are used depends on its kind.
struct ScriptStep
{
    enum class Kind {
        Put,         ///< An action on a place; whatever lay there goes.
        Remove,      ///< The key on a place.
        Move,        ///< The key on a place to another one.
        Settings,    ///< Changes members of the key's "titleParameters"; the whole set is sent.
        Press,       ///< keyDown and keyUp; on a dial, dialPress twice.
        Rotate,      ///< dialRotate.
        Send,        ///< Any message, as it stands.
        ServicePort, ///< The hardware-information service goes to another port.
        HostDies,
        Expect, ///< Waits for a title on a key, or for its next picture.
        Snapshot,
    };

    Kind kind = Kind::Send;
    std::chrono::milliseconds at{0}; ///< Counted from the appearance of the keys.
    int line = 0;                    ///< In the script, from 1.
    DeckPlace place;
    DeckPlace to;
    QString action;
    QJsonObject object; ///< Settings, or the message to send.
    int ticks = 0;
    bool pressed = false;
    std::optional<QRegularExpression> title; ///< Nothing: a picture is expected.
    std::chrono::milliseconds within{5000};
    QString file;
};

/// A script, or a description of its errors, possibly several lines, each with its line number.
struct ParsedScript
{
    QVector<ScriptStep> steps; ///< In the order of their times.
    QString error;
};

/// \a text has one JSON object a line; empty lines and lines that begin with "#" are passed over:
///
///     {"at": 0.5, "do": "put", "key": [0, 1], "action": "com.quellor.stream.system.cpu"}
///     {"at": 1, "do": "settings", "key": [0, 1], "set": {"text": "Load", "color": "red"}}
///     {"at": 2, "do": "expect", "key": [0, 1], "title": "^Load: \\d+%$", "within": 3}
///
/// Times are seconds; a step without "at" comes right after the one before. Keys are named by
/// column and row from 0, dials by {"dial": NUMBER}.
ParsedScript parseScript(const QByteArray &text);

} // namespace deck
