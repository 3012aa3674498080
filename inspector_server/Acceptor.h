#pragma once

#include "inspector_server/TimeBudget.h"
#include "inspector_server/TurnTimer.h"

#include <QList>
#include <QTcpServer>

class ClientSocket;

/// Accepts connections and collects their handshake requests, within a budget of its own, so that a
/// new client gets in even if the others are busy. What exceeds the budget waits.
class Acceptor : public QTcpServer
{
    Q_OBJECT

public:
    /// Connections that have not sent a complete handshake request; beyond that the oldest is
    /// dropped.
    static constexpr int mostNewcomers = 32;

    /// The longest handshake request in bytes; Qt itself would accept a megabyte.
    static constexpr qint64 longestHandshake = 16LL * 1024;

    /// Time on the main thread, per second and as a burst.
    static constexpr std::chrono::milliseconds timePerSecond{15};
    static constexpr std::chrono::milliseconds timeBurst{30};

    explicit Acceptor(QObject *parent = nullptr);

Q_SIGNALS:
    /// The request can be read from \a socket during the signal. The receiver takes ownership of
    /// the socket.
    void handshakeArrived(ClientSocket *socket);

protected:
    void incomingConnection(qintptr handle) override;

private:
    void work();
    bool takeConnection();
    bool handOnHandshake();
    void onReadyRead(ClientSocket *socket);
    void forget(ClientSocket *socket);

    QList<ClientSocket *> m_newcomers; ///< In the order of connection; owned.
    QList<ClientSocket *> m_complete;  ///< Those whose request has come, in that order.
    TimeBudget m_budget;
    TurnTimer m_turns;
};
