#include "SDK/ConnectionManager.h"

#include "SDK/BasePlugin.h"
#include "SDK/HostEvents.h"
#include "SDK/HostMessages.h"
#include "SDK/Logger/Logger.h"
#include "inspector_server/WebSocketServer.h"
#include "qt/QtVersions.h"

#include <QCoreApplication>
#include <QUrl>
#include <QWebSocket>

#include <cstdlib>

namespace {

/// The port on which settings panels ask for readings and other instances look for a running one.
constexpr quint16 dataServerPort = 24509;

/// Bytes that the host may leave unread: the pictures of a large deck for one minute.
constexpr qint64 mostUnread = 32LL * 1024 * 1024;

/// Settings are not sent again by themselves, but the host requests them, and may do so forever.
constexpr qint64 mostUnreadWithSettings = 2 * mostUnread;

} // namespace

ConnectionManager::ConnectionManager(int hostPort, const QString &uuid, const QString &eventName,
                                     const QString & /*info*/, BasePlugin *eventReceiver,
                                     QObject *parent)
    : QObject(parent)
    , port(hostPort)
    , pluginUUID(uuid)
    , registerEvent(eventName)
    , plugin(eventReceiver)
    , updateBacklog(mostUnread, "The host does not read: pictures are dropped until it does")
    , settingsBacklog(mostUnreadWithSettings,
                      "The host does not read: settings are dropped until it does")
{
    if (plugin) {
        plugin->SetConnectionManager(this);
        connect(plugin, &QObject::destroyed, this, &QObject::deleteLater);
    }
}

void ConnectionManager::Run()
{
    if (webSocket)
        return;
    dataServer = new WebSocketServer(dataServerPort, nullptr);
    dataServer->setPlugin(plugin);

    webSocket = new QWebSocket(QString(), QWebSocketProtocol::Version13);
    connect(webSocket, &QWebSocket::connected, this, &ConnectionManager::OnConnected);
    connect(webSocket, &QWebSocket::disconnected, this, &ConnectionManager::OnDisconnected);
    connect(webSocket, webSocketError<QWebSocket>(), this, &ConnectionManager::OnError);
    connect(webSocket, &QWebSocket::textMessageReceived, this, &ConnectionManager::OnMessage);

    const QString address = QStringLiteral("ws://127.0.0.1:%1").arg(port);
    Logger(address);
    webSocket->open(QUrl(address));
}

void ConnectionManager::SetTitle(const QString &title, const QString &context, int target,
                                 int state)
{
    measure(updateBacklog);
    if (!updateBacklog.isDropping())
        send(hostmessages::setTitle(title, context, target, state));
}

void ConnectionManager::SetImage(const QString &image, const QString &context, int target,
                                 int state)
{
    measure(updateBacklog);
    if (!updateBacklog.isDropping())
        send(hostmessages::setImage(image, context, target, state));
}

void ConnectionManager::SetSettings(const QJsonObject &payload, const QString &context)
{
    measure(settingsBacklog);
    if (!settingsBacklog.isDropping())
        send(hostmessages::setSettings(payload, context));
}

void ConnectionManager::OnMessage(const QString &text)
{
    LogDebug(labelled("OnMessage: ", text));
    if (!plugin)
        return;
    try {
        dispatchHostEvent(text, *plugin);
    } catch (...) { // NOLINT(bugprone-empty-catch): one bad event must not end the plugin
    }
}

void ConnectionManager::OnConnected()
{
    const QString registration = hostmessages::registration(registerEvent, pluginUUID);
    webSocket->sendTextMessage(registration);
    Logger(registration);
    Logger(labelled("Connect-serverPort: ", webSocket->peerPort()));
}

void ConnectionManager::OnDisconnected()
{
    // Compatibility: log-misspellings
    Logger(labelled("Disonnected-serverPort: ", webSocket->peerPort()));
    Logger(labelled("Socket disconnected: ", webSocket->errorString()));
    // Compatibility: no-reconnection
    QCoreApplication::quit();
    deleteLater();
    std::exit(0); // NOLINT(concurrency-mt-unsafe)
}

void ConnectionManager::OnError(QAbstractSocket::SocketError /*error*/)
{
    Logger(labelled("Socket error: ", webSocket->errorString()));
}

void ConnectionManager::send(const QString &message)
{
    if (!webSocket)
        return;
    webSocket->sendTextMessage(message);
    // What does not fit into the system's buffer would wait for the event loop, and that waits
    // until all keys are painted. A receiver made with Qt closes the link when the rest of a frame
    // takes longer than five seconds.
    if (webSocket->bytesToWrite() > Backlog::caughtUp)
        webSocket->flush();
}

void ConnectionManager::measure(Backlog &backlog) const
{
    if (webSocket)
        backlog.setUnread(webSocket->bytesToWrite());
}
