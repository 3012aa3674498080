#pragma once

#include "deck_simulator/deck/DeckPlace.h"

#include <QByteArray>
#include <QColor>
#include <QJsonObject>
#include <QJsonValue>
#include <QRegularExpression>
#include <QSize>
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
        Settings,    ///< Changes the key's settings; the whole set is sent.
        Press,       ///< keyDown and keyUp; on a dial, dialPress twice.
        Rotate,      ///< dialRotate.
        Send,        ///< Any message, as it stands.
        ServicePort, ///< The hardware-information service goes to another port.
        HostDies,
        Machine, ///< The readings are those of another recording from now on.
        Expect,  ///< Waits for a title or a picture on a key.
        Snapshot,
    };

    Kind kind = Kind::Send;
    std::chrono::milliseconds at{0}; ///< Counted from the appearance of the keys.
    int line = 0;                    ///< In the script, from 1.
    DeckPlace place;
    DeckPlace to;
    QString action;
    QJsonObject object; ///< Changes of "titleParameters", or the message to send.
    /// The key's new "display", whatever it is; undefined: it stays as it is; null: it goes.
    QJsonValue display{QJsonValue::Undefined};
    std::chrono::milliseconds hold{0}; ///< Between the two messages of a press.
    int ticks = 0;
    bool pressed = false;
    // What is expected; without any of it, the next picture.
    std::optional<QRegularExpression> title;
    QColor color;      ///< Somewhere in the picture.
    QSize pictureSize; ///< Pixels.
    std::chrono::milliseconds within{5000};
    QString file; ///< Of a snapshot or a machine.
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
