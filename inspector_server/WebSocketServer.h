#pragma once

#include "inspector_server/RequestRate.h"

#include <QElapsedTimer>
#include <QHash>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QTimer>

class QWebSocket;
class QWebSocketServer;

/// Answers the settings panel's requests, bare request names, with one JSON text each, and marks
/// the running instance by listening. It sends nothing unasked.
///
/// It listens on all interfaces, so that what a stranger can cost is bounded: a client that sends
/// more than 64 KiB at once or asks more than a panel would is dropped; so is the one that leaves
/// most unread when all together leave 16 MiB, answers or replies to pings, and the oldest when
/// there are more than mostClients.
class WebSocketServer : public QObject
{
    Q_OBJECT

public:
    static constexpr int mostClients = 128;

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
    void acceptAgainSoon();
    bool isTooBusy(QWebSocket *client);
    void dropWhoReadsTooLittle();

    QWebSocketServer *m_pWebSocketServer;
    QList<QWebSocket *> m_clients; ///< In the order of connection; owned.
    QHash<QWebSocket *, RequestRate> m_rates;
    QElapsedTimer m_clock;
    QTimer m_unreadTimer; ///< Runs while there are clients.
    QPointer<QObject> m_plugin;
};
