#pragma once

#include "inspector_server/ClientBudget.h"
#include "inspector_server/TurnTimer.h"

#include <QHash>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QTimer>

class Acceptor;
class ClientSocket;
class QWebSocket;
class QWebSocketServer;

/// Answers the settings panel's requests, bare request names, with one JSON text each, and marks
/// the running instance by listening. It sends nothing unasked.
///
/// It listens on all interfaces, so that what strangers can cost is bounded for all together
/// (ClientBudget, Acceptor). What exceeds that waits, in the order of clients, and a client's next
/// request waits until the system has taken its last reply. Dropped is who sends more than 64 KiB
/// at once, has more than 1000 requests waiting, or reads nothing of a reply for five seconds; the
/// one for whom most is kept when all together have more than mostHeld; and the oldest when there
/// are more than mostClients.
class WebSocketServer : public QObject
{
    Q_OBJECT

public:
    static constexpr int mostClients = 128;

    /// Bytes that are kept for all clients: requests that wait and replies that are unread.
    static constexpr qint64 mostHeld = 12LL * 1024 * 1024;

    /// Listens on all interfaces; a port that is taken is logged and not tried again. Port 0 takes
    /// any free one.
    explicit WebSocketServer(quint16 port, QObject *parent = nullptr);
    ~WebSocketServer() override;
    Q_DISABLE_COPY(WebSocketServer)

    /// \a plugin is a SystemMonitorLibOwner and is not owned. Without one, requests are left
    /// unanswered.
    void setPlugin(QObject *plugin);

    /// The port listened on, 0 when it could not be had.
    quint16 port() const;

private Q_SLOTS:
    void onNewConnection();
    void onTextMessageReceived(const QString &message);
    void onDisconnected();

private:
    struct Connection
    {
        ClientSocket *socket = nullptr;
        std::chrono::nanoseconds lastProgress{0}; ///< When the system last took bytes for it.
    };

    void shakeHands(ClientSocket *socket);
    void watch(QWebSocket *client, ClientSocket *socket);
    void onReadyRead(QWebSocket *client, ClientSocket *socket);
    void onBytesWritten(QWebSocket *client, qint64 bytes);
    void serveClients();
    QWebSocket *nextInTurn();
    void serve(QWebSocket *client);
    void dropWhoHoldsMost();
    void dropWhoReadsNothing();

    QWebSocketServer *m_pWebSocketServer; ///< Shakes hands; m_acceptor listens for it.
    Acceptor *m_acceptor;
    ClientSocket *m_newcomer = nullptr; ///< Whose hand is being shaken.
    QList<QWebSocket *> m_clients;      ///< In the order of connection; owned.
    QHash<QWebSocket *, Connection> m_connections;
    int m_turnOf = 0; ///< Place of the client that is served next, if it waits.
    ClientBudget m_budget;
    TurnTimer m_turns;
    QTimer m_unreadTimer; ///< Runs while there are clients.
    QPointer<QObject> m_plugin;
};
