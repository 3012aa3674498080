#pragma once

#include "inspector_server/FrameHead.h"

#include <QTcpSocket>

/// The connection of one client. What has come is kept here, and its reader, a QWebSocket, which
/// takes all that it finds, finds one frame at a time: so requests can wait.
class ClientSocket : public QTcpSocket
{
    Q_OBJECT

public:
    /// Bytes of the longest payload that is kept for the reader; of a longer one it gets the head,
    /// by which it drops the client.
    static constexpr qint64 longestPayload = 64LL * 1024;

    using QTcpSocket::QTcpSocket;

    /// What the reader may take.
    qint64 bytesAvailable() const override;

    /// What has come and was not taken, held back or not.
    qint64 buffered() const { return QTcpSocket::bytesAvailable(); }

    /// Bytes that the client takes in this process: what has come, unfinished messages, and what it
    /// has not read.
    qint64 held() const;

    /// The reader finds only what is handed on from now on.
    void holdBack();

    /// Lets the reader take the first \a bytes until the next holdBack().
    void handOn(qint64 bytes);
    bool isHandingOn() const { return !m_isHoldingBack; }

    /// Whether a frame waits to be handed on.
    bool hasFrame() { return frameSize() > 0; }
    int frameCount();

    /// Has \a reader take the first frame, which is there, and tells the frame's bytes.
    qint64 handOnFrame(QObject *reader);

    /// Reads from the network until \a most bytes are kept.
    void readUpTo(qint64 most);

    /// Leaves the rest to the system, which has the client wait once its own room is filled.
    void stopReading();

private:
    FrameHead head();
    qint64 frameSize();

    bool m_isHoldingBack = false;
    qint64 m_heldBack = 0;
    qint64 m_unfinished = 0; ///< Payload of a message whose last frame has not been handed on.
};
