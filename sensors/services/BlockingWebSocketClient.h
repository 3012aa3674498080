#pragma once

#include <QAbstractSocket>
#include <QObject>

class QUrl;
class QWebSocket;

/// One WebSocket connection whose outcome is known when the constructor returns. It sends nothing;
/// an established connection is held until the object is destroyed, which closes it with the code
/// for normal closure. A frame or message of more than 64 KiB ends it before.
class BlockingWebSocketClient : public QObject
{
    Q_OBJECT

public:
    /// Waits in a nested event loop until \a url is connected, refused or silent for
    /// \a timeoutMs milliseconds.
    BlockingWebSocketClient(const QUrl &url, unsigned timeoutMs, QObject *parent = nullptr);
    ~BlockingWebSocketClient() override;
    Q_DISABLE_COPY(BlockingWebSocketClient)

    /// The outcome of the constructor's attempt.
    bool isConnected() const { return connected; }

private:
    void attempt(const QUrl &url);
    void onConnected();
    void onDisconnected();
    void onError(QAbstractSocket::SocketError error);

    bool connected = false;
    QWebSocket *socket;
    unsigned timeout; ///< Milliseconds.
};
