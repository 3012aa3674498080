#pragma once

#include "inspector_server/FrameHead.h"

#include <QTcpSocket>

/// The connection of one client. Received data is kept here. Its reader, a QWebSocket, takes
/// everything it finds, so this socket shows it one frame at a time, and further requests can wait.
class ClientSocket : public QTcpSocket
{
    Q_OBJECT

public:
    /// The longest payload in bytes that is kept for the reader; of a longer one the reader gets
    /// only the head, which makes it drop the client.
    static constexpr qint64 longestPayload = 64LL * 1024;

    using QTcpSocket::QTcpSocket;

    /// What the reader may take now.
    qint64 bytesAvailable() const override;

    /// What has been received and not taken, whether it is held back or not.
    qint64 buffered() const { return QTcpSocket::bytesAvailable(); }

    /// Bytes that the client occupies in this process: received data, unfinished messages, and
    /// replies that it has not read.
    qint64 held() const;

    /// From now on the reader finds only what is handed on.
    void holdBack();

    /// Lets the reader take the first \a bytes until the next holdBack().
    void handOn(qint64 bytes);
    bool isHandingOn() const { return !m_isHoldingBack; }

    /// Whether a frame is waiting to be handed on.
    bool hasFrame() { return frameSize() > 0; }
    int frameCount();

    /// Lets \a reader take the first frame, which must be there, and returns its size in bytes.
    qint64 handOnFrame(QObject *reader);

    /// Reads from the network until at most \a most bytes are kept.
    void readUpTo(qint64 most);

    /// Leaves the rest to the system, which makes the client wait once its own buffer is full.
    void stopReading();

private:
    FrameHead head();
    qint64 frameSize();

    bool m_isHoldingBack = false;
    qint64 m_heldBack = 0;
    qint64 m_unfinished = 0; ///< Payload of a message whose last frame has not been handed on.
};
