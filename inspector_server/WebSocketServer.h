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
/// It listens on all interfaces, so the cost of all clients together is limited (ClientBudget,
/// Acceptor). What exceeds the limit waits, in the order of clients, and a client's next request
/// waits until the system has taken its last reply. A client is dropped if it sends more than 64
/// KiB at once, has more than 1000 requests waiting, or reads nothing of a reply for five seconds.
/// While all clients together hold more than mostHeld, the one that holds most is dropped; when
/// there are more than mostClients, the oldest is dropped.
class WebSocketServer : public QObject
{
    Q_OBJECT

public:
    static constexpr int mostClients = 128;

    /// Bytes that are kept for all clients: waiting requests and unread replies.
    static constexpr qint64 mostHeld = 12LL * 1024 * 1024;

    /// Listens on all interfaces; if the port is taken, this is logged and not tried again. Port 0
    /// takes any free one.
    explicit WebSocketServer(quint16 port, QObject *parent = nullptr);
    ~WebSocketServer() override;
    Q_DISABLE_COPY(WebSocketServer)

    /// \a plugin is a SystemMonitorLibOwner and is not owned. Without one, requests are not
    /// answered.
    void setPlugin(QObject *plugin);

    /// The port listened on; 0 when listening failed.
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
        qint64 held = 0;                          ///< Its part of m_held.
    };

    void shakeHands(ClientSocket *socket);
    void watch(QWebSocket *client, ClientSocket *socket);
    void onReadyRead(QWebSocket *client, ClientSocket *socket);
    void onBytesWritten(QWebSocket *client, qint64 bytes);
    void countHeld(QWebSocket *client);
    void serveClients();
    bool serveNext();
    QWebSocket *nextInTurn();
    void serve(QWebSocket *client);
    void dropWhoHoldsMost();
    void dropWhoReadsNothing();

    QWebSocketServer *m_pWebSocketServer; ///< Shakes hands; m_acceptor listens for it.
    Acceptor *m_acceptor;
    ClientSocket *m_newcomer = nullptr; ///< Whose hand is being shaken.
    QList<QWebSocket *> m_clients;      ///< In the order of connection; owned.
    QHash<QWebSocket *, Connection> m_connections;
    qint64 m_held = 0; ///< What all connections hold.
    int m_turnOf = 0;  ///< Place of the client that is served next, if it waits.
    ClientBudget m_budget;
    TurnTimer m_turns;
    QTimer m_unreadTimer; ///< Runs while there are clients.
    QPointer<QObject> m_plugin;
};
