#include "inspector_server/WebSocketServer.h"

#include "inspector_server/RequestTable.h"
#include "sensors/SystemMonitorLibOwner.h"
#include "sensors/VqSystemMonitorLib.h"

#include <QDebug>
#include <QHostAddress>
#include <QJsonDocument>
#include <QWebSocket>
#include <QWebSocketServer>

namespace {

/// Far above the longest request name and far below harm.
constexpr quint64 longestRequest = 64ULL * 1024;

QString compact(const QJsonObject &object)
{
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

VqSystemMonitorLib *libraryOf(QObject *plugin)
{
    const auto *const owner = qobject_cast<SystemMonitorLibOwner *>(plugin);
    return owner ? owner->systemMonitorLib() : nullptr;
}

} // namespace

WebSocketServer::WebSocketServer(quint16 port, QObject *parent)
    : QObject(parent)
    , m_pWebSocketServer(new QWebSocketServer(QStringLiteral("Echo Server"),
                                              QWebSocketServer::NonSecureMode, this))
{
    if (m_pWebSocketServer->listen(QHostAddress::Any, port)) {
        qDebug() << "WebSocket server started on port" << m_pWebSocketServer->serverPort();
        connect(m_pWebSocketServer, &QWebSocketServer::newConnection, this,
                &WebSocketServer::onNewConnection);
    } else {
        qDebug() << "WebSocket server failed to start!";
    }
}

WebSocketServer::~WebSocketServer()
{
    m_pWebSocketServer->close();
    for (QWebSocket *const client : qAsConst(m_clients))
        client->disconnect(this);
    qDeleteAll(m_clients);
}

void WebSocketServer::setPlugin(QObject *plugin)
{
    m_plugin = plugin;
}

quint16 WebSocketServer::port() const
{
    return m_pWebSocketServer->serverPort();
}

void WebSocketServer::onNewConnection()
{
    QWebSocket *const client = m_pWebSocketServer->nextPendingConnection();
    if (!client)
        return;
    client->setMaxAllowedIncomingFrameSize(longestRequest);
    client->setMaxAllowedIncomingMessageSize(longestRequest);
    m_clients.append(client);
    qDebug() << "New connection established. Total connections:" << m_clients.size();
    connect(client, &QWebSocket::textMessageReceived, this,
            &WebSocketServer::onTextMessageReceived);
    connect(client, &QWebSocket::disconnected, this, &WebSocketServer::onDisconnected);
}

void WebSocketServer::onDisconnected()
{
    auto *const client = qobject_cast<QWebSocket *>(sender());
    if (!client)
        return;
    m_clients.removeAll(client);
    client->deleteLater();
    qDebug() << "Connection disconnected. Remaining connections:" << m_clients.size();
}

void WebSocketServer::onTextMessageReceived(const QString &message)
{
    auto *const client = qobject_cast<QWebSocket *>(sender());
    if (!client)
        return;
    qDebug() << "Message received from client:" << message;
    VqSystemMonitorLib *const library = libraryOf(m_plugin);
    if (!library)
        return;
    const bool everything = message == QLatin1String("GetAllSensorsData");
    client->sendTextMessage(
        compact(everything ? library->getAllSensorsData() : answerRequest(message)));
}
