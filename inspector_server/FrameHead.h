#pragma once

#include <QtGlobal>

/// The head of a WebSocket frame.
struct FrameHead
{
    /// The maximum size of a head in bytes.
    static constexpr int longest = 14;

    enum class Kind { Continuation, Data, Control };

    int size = 0; ///< Of the head itself, in bytes; 0 when not all of it is there.
    quint64 payloadSize = 0;
    Kind kind = Kind::Data;
    bool isFinal = true; ///< Whether no continuation follows.
};

/// Reads the head at \a bytes, of which \a count are available.
FrameHead frameHead(const char *bytes, qint64 count);
