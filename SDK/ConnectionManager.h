#pragma once

#include "SDK/Backlog.h"

#include <QAbstractSocket>
#include <QJsonObject>
#include <QObject>
#include <QString>

class BasePlugin;
class QWebSocket;
class WebSocketServer;

/// The one link to the deck host: a WebSocket client on the loopback interface. It registers the
/// plugin, turns each inbound message into a call on the plugin and sends titles, images and
/// settings. All of it runs on the main thread. There is no reconnection: losing the host ends the
/// process with status 0.
class ConnectionManager : public QObject
{
    Q_OBJECT

public:
    /// \a eventReceiver is not owned and may be null; this object dies with it. \a info is not
    /// kept.
    ConnectionManager(int hostPort, const QString &uuid, const QString &eventName,
                      const QString &info, BasePlugin *eventReceiver, QObject *parent = nullptr);

    /// Starts the property-inspector data server and opens the link; returns at once.
    void Run();

    /// The outbound commands send nothing before Run. A negative \a state is left out.
    ///
    /// While the host leaves 32 MiB or more unread, titles and pictures are dropped until it has
    /// caught up: the next pass sends them again. From 64 MiB on, settings are dropped too.
    void SetTitle(const QString &title, const QString &context, int target, int state);
    /// \a image is base64 PNG data, with or without the prefix "data:image/png;base64,".
    void SetImage(const QString &image, const QString &context, int target, int state);
    void SetSettings(const QJsonObject &payload, const QString &context);

    /// Parses one inbound message and makes the one call that its event names.
    void OnMessage(const QString &text);

private:
    void OnConnected();
    void OnDisconnected();
    void OnError(QAbstractSocket::SocketError error);
    void send(const QString &message);
    void measure(Backlog &backlog) const;

    int port;
    QString pluginUUID;
    QString registerEvent;
    BasePlugin *plugin;
    QWebSocket *webSocket = nullptr;
    WebSocketServer *dataServer = nullptr;
    Backlog updateBacklog; ///< Of titles and pictures.
    Backlog settingsBacklog;
};
