#include "inspector_server/WebSocketServer.h"

#include "inspector_server/Acceptor.h"
#include "inspector_server/ClientSocket.h"
#include "inspector_server/RequestTable.h"
#include "sensors/SystemMonitorLibOwner.h"
#include "sensors/VqSystemMonitorLib.h"

#include <QCoreApplication>
#include <QDebug>
#include <QHostAddress>
#include <QJsonDocument>
#include <QWebSocket>
#include <QWebSocketServer>

#include <algorithm>

using namespace std::chrono_literals;

namespace {

/// More requests than a panel ever has waiting; they fit into what is read of a client at once.
constexpr int mostWaiting = 1000;

/// How long a client may read nothing of a reply.
constexpr std::chrono::seconds readTimeout = 5s;
constexpr std::chrono::seconds unreadInterval = 1s;

QString compact(const QJsonObject &object)
{
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

VqSystemMonitorLib *libraryOf(QObject *plugin)
{
    const auto *const owner = qobject_cast<SystemMonitorLibOwner *>(plugin);
    return owner ? owner->systemMonitorLib() : nullptr;
}

void readOn(ClientSocket *socket)
{
    socket->readUpTo(ClientSocket::longestPayload + FrameHead::longest);
}

} // namespace

WebSocketServer::WebSocketServer(quint16 port, QObject *parent)
    : QObject(parent)
    , m_pWebSocketServer(new QWebSocketServer(QStringLiteral("Echo Server"),
                                              QWebSocketServer::NonSecureMode, this))
    , m_acceptor(new Acceptor(this))
{
    connect(&m_turns, &QTimer::timeout, this, &WebSocketServer::serveClients);
    m_unreadTimer.setInterval(unreadInterval);
    connect(&m_unreadTimer, &QTimer::timeout, this, &WebSocketServer::dropWhoReadsNothing);
    connect(m_acceptor, &Acceptor::handshakeArrived, this, &WebSocketServer::shakeHands);
    // Compatibility: all-interfaces
    if (m_acceptor->listen(QHostAddress::Any, port)) {
        qDebug() << "WebSocket server started on port" << m_acceptor->serverPort();
        connect(m_pWebSocketServer, &QWebSocketServer::newConnection, this,
                &WebSocketServer::onNewConnection);
    } else {
        qDebug() << "WebSocket server failed to start!";
    }
}

WebSocketServer::~WebSocketServer()
{
    m_acceptor->close();
    m_pWebSocketServer->close();
    for (const Connection &connection : qAsConst(m_connections))
        connection.socket->disconnect(this);
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
    return m_acceptor->serverPort();
}

/// The whole request has arrived, so Qt answers it at once, and onNewConnection() is called before
/// this returns.
void WebSocketServer::shakeHands(ClientSocket *socket)
{
    m_newcomer = socket;
    m_pWebSocketServer->handleConnection(socket);
    // Qt would read the request in a separate event. Here its time is counted.
    QCoreApplication::sendPostedEvents(m_pWebSocketServer, QEvent::MetaCall);
    socket->flush();
    const bool isRefused = m_newcomer != nullptr;
    m_newcomer = nullptr;
    if (isRefused) {
        socket->abort();
        socket->deleteLater();
    }
}

void WebSocketServer::onNewConnection()
{
    QWebSocket *const client = m_pWebSocketServer->nextPendingConnection();
    if (!client)
        return;
    client->setMaxAllowedIncomingFrameSize(ClientSocket::longestPayload);
    client->setMaxAllowedIncomingMessageSize(ClientSocket::longestPayload);
    m_clients.append(client);
    watch(client, m_newcomer);
    m_newcomer = nullptr;
    qDebug() << "New connection established. Total connections:" << m_clients.size();
    connect(client, &QWebSocket::textMessageReceived, this,
            &WebSocketServer::onTextMessageReceived);
    connect(client, &QWebSocket::disconnected, this, &WebSocketServer::onDisconnected);
    // A new client is still accepted, because it may be an instance that looks for this one.
    if (m_clients.size() > mostClients)
        m_clients.constFirst()->abort();
}

void WebSocketServer::watch(QWebSocket *client, ClientSocket *socket)
{
    m_connections.insert(client, {socket, m_turns.now(), 0});
    countHeld(client);
    connect(socket, &QTcpSocket::readyRead, this,
            [this, client, socket] { onReadyRead(client, socket); });
    connect(socket, &QTcpSocket::bytesWritten, this,
            [this, client](qint64 bytes) { onBytesWritten(client, bytes); });
    if (!m_unreadTimer.isActive()) // Or a run of newcomers would put it off for ever.
        m_unreadTimer.start();
    m_turns.startSoon(); // Its first requests may have come already.
}

void WebSocketServer::onDisconnected()
{
    auto *const client = qobject_cast<QWebSocket *>(sender());
    if (!client)
        return;
    m_clients.removeAll(client);
    const Connection connection = m_connections.take(client);
    m_held -= connection.held;
    if (connection.socket)
        connection.socket->disconnect(this);
    if (m_clients.isEmpty())
        m_unreadTimer.stop();
    client->deleteLater();
    qDebug() << "Connection disconnected. Remaining connections:" << m_clients.size();
}

void WebSocketServer::onReadyRead(QWebSocket *client, ClientSocket *socket)
{
    if (socket->isHandingOn())
        return;
    const std::chrono::nanoseconds began = m_turns.now();
    countHeld(client);
    if (socket->hasFrame() || m_budget.isSpent(began)) {
        socket->stopReading();
        m_turns.startSoon();
    }
    if (socket->frameCount() > mostWaiting)
        client->abort();
    m_budget.takeTime(m_turns.now() - began + TurnTimer::wakeCost);
}

void WebSocketServer::onBytesWritten(QWebSocket *client, qint64 bytes)
{
    m_budget.takeOut(bytes);
    countHeld(client);
    const auto connection = m_connections.find(client);
    if (connection == m_connections.end())
        return;
    connection->lastProgress = m_turns.now();
    if (connection->socket->hasFrame())
        m_turns.startSoon();
}

void WebSocketServer::serveClients()
{
    const std::chrono::nanoseconds began = m_turns.now();
    for (const Connection &connection : qAsConst(m_connections)) {
        if (!connection.socket->hasFrame())
            readOn(connection.socket);
    }
    m_turns.work(began, m_budget, [this] { return serveNext(); });
}

bool WebSocketServer::serveNext()
{
    dropWhoHoldsMost();
    QWebSocket *const client = nextInTurn();
    if (!client)
        return false;
    serve(client);
    countHeld(client);
    return true;
}

/// The next client with a waiting request whose last reply has been sent; null when there is none.
QWebSocket *WebSocketServer::nextInTurn()
{
    const int count = static_cast<int>(m_clients.size());
    for (int step = 0; step < count; ++step) {
        const int place = (m_turnOf + step) % count;
        QWebSocket *const client = m_clients.at(place);
        ClientSocket *const socket = m_connections.value(client).socket;
        if (socket->hasFrame() && socket->bytesToWrite() == 0) {
            m_turnOf = place + 1;
            return client;
        }
    }
    return nullptr;
}

void WebSocketServer::serve(QWebSocket *client)
{
    Connection &connection = m_connections[client];
    connection.lastProgress = m_turns.now(); // It has read all so far.
    const QPointer<ClientSocket> socket = connection.socket;
    const qint64 before = socket->buffered();
    m_budget.takeIn(socket->handOnFrame(client));
    if (!m_connections.contains(client))
        return;
    if (socket->buffered() == before) { // It is closing and reads no more.
        client->abort();
        return;
    }
    socket->flush();
    if (m_connections.contains(client) && !socket->hasFrame())
        readOn(socket);
}

/// Called whenever \a client may hold more or less than before.
void WebSocketServer::countHeld(QWebSocket *client)
{
    const auto connection = m_connections.find(client);
    if (connection == m_connections.end())
        return;
    const qint64 held = connection->socket->held();
    m_held += held - connection->held;
    connection->held = held;
}

void WebSocketServer::dropWhoHoldsMost()
{
    while (m_held > mostHeld) {
        const auto greediest = std::max_element(
            m_connections.cbegin(), m_connections.cend(),
            [](const Connection &one, const Connection &other) { return one.held < other.held; });
        greediest.key()->abort();
    }
}

void WebSocketServer::dropWhoReadsNothing()
{
    const std::chrono::nanoseconds now = m_turns.now();
    const QList<QWebSocket *> clients = m_clients;
    for (QWebSocket *const client : clients) {
        const Connection connection = m_connections.value(client);
        if (connection.socket && connection.socket->bytesToWrite() > 0 &&
            now - connection.lastProgress >= readTimeout)
            client->abort();
    }
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
