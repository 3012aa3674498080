#pragma once

#include "inspector_server/TokenBucket.h"
#include "inspector_server/TurnTimer.h"

#include <QList>
#include <QTcpServer>

class ClientSocket;

/// Accepts connections and collects their requests for a handshake, within a budget of its own, so
/// that a newcomer gets in however much the others ask for. What exceeds the budget waits.
class Acceptor : public QTcpServer
{
    Q_OBJECT

public:
    /// Connections that have not asked for a handshake; of more the oldest is dropped.
    static constexpr int mostNewcomers = 32;

    /// Bytes of a request for a handshake that are read; Qt itself takes a megabyte.
    static constexpr qint64 longestHandshake = 16LL * 1024;

    /// Time of the one thread, of each second and at once.
    static constexpr std::chrono::milliseconds timePerSecond{15};
    static constexpr std::chrono::milliseconds timeBurst{30};

    explicit Acceptor(QObject *parent = nullptr);

Q_SIGNALS:
    /// The request can be read from \a socket during the signal. Who is told owns the socket.
    void handshakeArrived(ClientSocket *socket);

protected:
    void incomingConnection(qintptr handle) override;

private:
    void work();
    bool takeConnection();
    bool handOnHandshake();
    void onReadyRead(ClientSocket *socket);
    void forget(ClientSocket *socket);
    void take(std::chrono::nanoseconds time);

    QList<ClientSocket *> m_newcomers; ///< In the order of connection; owned.
    QList<ClientSocket *> m_complete;  ///< Those whose request has come, in that order.
    TokenBucket m_budget;
    TurnTimer m_turns;
};
