#include "inspector_server/WebSocketServer.h"

#include "inspector_server/RequestTable.h"
#include "sensors/SystemMonitorLibOwner.h"
#include "sensors/VqSystemMonitorLib.h"

#include <QDebug>
#include <QHostAddress>
#include <QJsonDocument>
#include <QTcpServer>
#include <QTcpSocket>
#include <QWebSocket>
#include <QWebSocketServer>

#include <algorithm>
#include <chrono>

using namespace std::chrono_literals;

namespace {

/// Far above the longest request name and far below harm.
constexpr quint64 longestRequest = 64ULL * 1024;

/// Bytes that the clients may leave unread: dozens of the largest answers.
constexpr qint64 mostUnread = 16LL * 1024 * 1024;

/// Qt replies to pings without a word, so that what is unread is looked at this often.
constexpr std::chrono::milliseconds unreadInterval = 100ms;

/// An instance that starts beside this one gives up after half of this.
constexpr std::chrono::milliseconds handshakeTimeout = 3s;

/// Bytes of a request for a connection; Qt itself takes a megabyte.
constexpr qint64 longestHandshake = 16LL * 1024;

/// Until descriptors may be free again.
constexpr std::chrono::milliseconds acceptPause = 1s;

QString compact(const QJsonObject &object)
{
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

/// The sockets that Qt has accepted and that have not shaken hands yet are its server's children.
void boundHandshakes(const QTcpServer *acceptor)
{
    const auto sockets = acceptor->findChildren<QTcpSocket *>();
    for (QTcpSocket *const socket : sockets) {
        if (socket->readBufferSize() == 0)
            socket->setReadBufferSize(longestHandshake);
    }
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
    m_clock.start();
    m_unreadTimer.setInterval(unreadInterval);
    connect(&m_unreadTimer, &QTimer::timeout, this, &WebSocketServer::dropWhoReadsTooLittle);
    m_pWebSocketServer->setHandshakeTimeout(handshakeTimeout);
    connect(m_pWebSocketServer, &QWebSocketServer::acceptError, this,
            &WebSocketServer::acceptAgainSoon);
    if (const auto *const acceptor = m_pWebSocketServer->findChild<QTcpServer *>())
        connect(acceptor, &QTcpServer::newConnection, this,
                [acceptor] { boundHandshakes(acceptor); });
    // Compatibility: all-interfaces
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
    client->setReadBufferSize(2 * static_cast<qint64>(longestRequest));
    client->setMaxAllowedIncomingFrameSize(longestRequest);
    client->setMaxAllowedIncomingMessageSize(longestRequest);
    m_clients.append(client);
    if (!m_unreadTimer.isActive()) // Or a run of newcomers would put it off for ever.
        m_unreadTimer.start();
    qDebug() << "New connection established. Total connections:" << m_clients.size();
    connect(client, &QWebSocket::textMessageReceived, this,
            &WebSocketServer::onTextMessageReceived);
    connect(client, &QWebSocket::disconnected, this, &WebSocketServer::onDisconnected);
    // A newcomer is let in all the same: it may be an instance that looks for this one.
    if (m_clients.size() > mostClients)
        m_clients.constFirst()->abort();
}

/// The server stops accepting when descriptors run out.
void WebSocketServer::acceptAgainSoon()
{
    QTimer::singleShot(acceptPause, m_pWebSocketServer, &QWebSocketServer::resumeAccepting);
}

void WebSocketServer::onDisconnected()
{
    auto *const client = qobject_cast<QWebSocket *>(sender());
    if (!client)
        return;
    m_clients.removeAll(client);
    m_rates.remove(client);
    if (m_clients.isEmpty())
        m_unreadTimer.stop();
    client->deleteLater();
    qDebug() << "Connection disconnected. Remaining connections:" << m_clients.size();
}

bool WebSocketServer::isTooBusy(QWebSocket *client)
{
    return client->bytesToWrite() > mostUnread || !m_rates[client].admits(m_clock.elapsed());
}

void WebSocketServer::dropWhoReadsTooLittle()
{
    QList<QWebSocket *> clients = m_clients;
    std::sort(clients.begin(), clients.end(), [](const QWebSocket *left, const QWebSocket *right) {
        return left->bytesToWrite() < right->bytesToWrite();
    });
    qint64 unread = 0;
    for (QWebSocket *const client : qAsConst(clients)) {
        unread += client->bytesToWrite();
        if (unread > mostUnread)
            client->abort();
    }
}

void WebSocketServer::onTextMessageReceived(const QString &message)
{
    auto *const client = qobject_cast<QWebSocket *>(sender());
    if (!client)
        return;
    if (isTooBusy(client)) {
        client->abort();
        return;
    }
    qDebug() << "Message received from client:" << message;
    VqSystemMonitorLib *const library = libraryOf(m_plugin);
    if (!library)
        return;
    const bool everything = message == QLatin1String("GetAllSensorsData");
    client->sendTextMessage(
        compact(everything ? library->getAllSensorsData() : answerRequest(message)));
}
