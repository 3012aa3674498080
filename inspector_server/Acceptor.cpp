#include "inspector_server/Acceptor.h"

#include "inspector_server/ClientSocket.h"

using namespace std::chrono_literals;

namespace {

/// A starting instance that looks for this one gives up after half of this time.
constexpr std::chrono::milliseconds handshakeTimeout = 3s;

/// The wait until file descriptors may be free again.
constexpr std::chrono::milliseconds acceptPause = 1s;

/// Connections that Qt accepts by itself before they are fetched.
constexpr int mostAccepted = 8;

/// An upper estimate of the time to accept a connection, set it up and remove it.
constexpr std::chrono::microseconds connectionCost = 150us;

/// Bytes that the system buffers for a connection, in each direction, besides those kept here.
constexpr int systemBuffer = 32 * 1024;

/// The size of the request in bytes; 0 while it is incomplete.
qint64 handshakeSize(ClientSocket *socket)
{
    const QByteArray end = QByteArrayLiteral("\r\n\r\n");
    const auto found = socket->peek(socket->buffered()).indexOf(end);
    return found < 0 ? 0 : found + end.size();
}

} // namespace

Acceptor::Acceptor(QObject *parent)
    : QTcpServer(parent)
    , m_budget(timePerSecond, timeBurst)
{
    setMaxPendingConnections(mostAccepted);
    connect(&m_turns, &QTimer::timeout, this, &Acceptor::work);
    connect(this, &QTcpServer::newConnection, &m_turns, &TurnTimer::startSoon);
    // Accepting stops when descriptors run out.
    connect(this, &QTcpServer::acceptError, this,
            [this] { QTimer::singleShot(acceptPause, this, &QTcpServer::resumeAccepting); });
}

void Acceptor::incomingConnection(qintptr handle)
{
    m_budget.takeTime(connectionCost);
    auto *const socket = new ClientSocket(this);
    socket->stopReading();
    if (!socket->setSocketDescriptor(handle)) {
        delete socket;
        return;
    }
    socket->setSocketOption(QAbstractSocket::SendBufferSizeSocketOption, systemBuffer);
    socket->setSocketOption(QAbstractSocket::ReceiveBufferSizeSocketOption, systemBuffer);
    addPendingConnection(socket);
}

void Acceptor::work()
{
    const std::chrono::nanoseconds began = m_turns.now();
    for (ClientSocket *const socket : qAsConst(m_newcomers))
        socket->readUpTo(longestHandshake);
    m_turns.work(began, m_budget, [this] { return handOnHandshake() || takeConnection(); });
}

bool Acceptor::takeConnection()
{
    auto *const socket = qobject_cast<ClientSocket *>(nextPendingConnection());
    if (!socket)
        return false;
    if (socket->state() != QAbstractSocket::ConnectedState) {
        socket->deleteLater();
        return true;
    }
    m_newcomers.append(socket);
    connect(socket, &QTcpSocket::readyRead, this, [this, socket] { onReadyRead(socket); });
    connect(socket, &QTcpSocket::disconnected, this, [this, socket] {
        forget(socket);
        socket->deleteLater();
    });
    QTimer::singleShot(handshakeTimeout, socket, [this, socket] {
        if (m_newcomers.contains(socket))
            socket->abort();
    });
    socket->readUpTo(longestHandshake);
    if (m_newcomers.size() > mostNewcomers)
        m_newcomers.constFirst()->abort();
    return true;
}

void Acceptor::forget(ClientSocket *socket)
{
    socket->disconnect(this);
    m_newcomers.removeAll(socket);
    m_complete.removeAll(socket);
}

void Acceptor::onReadyRead(ClientSocket *socket)
{
    const std::chrono::nanoseconds before = m_turns.now();
    m_budget.takeTime(TurnTimer::wakeCost);
    if (handshakeSize(socket) > 0) {
        socket->stopReading();
        if (!m_complete.contains(socket))
            m_complete.append(socket);
    } else if (m_budget.isSpent(before)) {
        socket->stopReading();
    }
    m_budget.takeTime(m_turns.now() - before);
    m_turns.startSoon();
}

bool Acceptor::handOnHandshake()
{
    if (m_complete.isEmpty())
        return false;
    ClientSocket *const socket = m_complete.constFirst();
    forget(socket);
    socket->handOn(handshakeSize(socket));
    Q_EMIT handshakeArrived(socket);
    socket->holdBack();
    return true;
}
