#include "sensors/services/BlockingWebSocketClient.h"

#include "SDK/Logger/Logger.h"
#include "qt/QtVersions.h"
#include "sensors/services/BoundedWebSocket.h"

#include <QEventLoop>
#include <QTimer>
#include <QUrl>
#include <QWebSocket>

#include <chrono>

namespace {

/// The maximum size of messages in bytes; nobody reads them.
constexpr quint64 longestMessage = 64ULL * 1024;

} // namespace

BlockingWebSocketClient::BlockingWebSocketClient(const QUrl &url, unsigned timeoutMs,
                                                 QObject *parent)
    : QObject(parent)
    , socket(new QWebSocket(QString(), QWebSocketProtocol::Version13, this))
    , timeout(timeoutMs)
{
    connect(socket, &QWebSocket::connected, this, &BlockingWebSocketClient::onConnected);
    connect(socket, &QWebSocket::disconnected, this, &BlockingWebSocketClient::onDisconnected);
    connect(socket, webSocketError<QWebSocket>(), this, &BlockingWebSocketClient::onError);
    attempt(url);
}

BlockingWebSocketClient::~BlockingWebSocketClient()
{
    if (socket->state() == QAbstractSocket::ConnectedState)
        socket->close(QWebSocketProtocol::CloseCodeNormal, QString());
    delete socket;
}

void BlockingWebSocketClient::attempt(const QUrl &url)
{
    LogDebug(labelled("Attempting to connect to", url.toString()));
    QEventLoop loop;
    QTimer timer;
    connect(&timer, &QTimer::timeout, &loop, &QEventLoop::quit);
    // Queued, because an invalid address already fails inside open, before the loop runs.
    connect(socket, &QWebSocket::connected, &loop, &QEventLoop::quit, Qt::QueuedConnection);
    connect(socket, webSocketError<QWebSocket>(), &loop, &QEventLoop::quit, Qt::QueuedConnection);
    timer.start(std::chrono::milliseconds(timeout));
    openBounded(*socket, url, longestMessage);
    loop.exec();

    connected = socket->state() == QAbstractSocket::ConnectedState;
    LogDebug(connected ? QStringLiteral("Connection successful!")
                       : QStringLiteral("Connection failed or timed out."));
}

void BlockingWebSocketClient::onConnected()
{
    LogDebug(QStringLiteral("WebSocket connected."));
}

void BlockingWebSocketClient::onDisconnected()
{
    LogDebug(QStringLiteral("WebSocket disconnected."));
}

void BlockingWebSocketClient::onError(QAbstractSocket::SocketError /*error*/)
{
    LogDebug(labelled("WebSocket error:", socket->errorString()));
}
