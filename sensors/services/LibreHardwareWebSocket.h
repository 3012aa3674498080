#pragma once

#include <QAbstractSocket>
#include <QJsonObject>
#include <QObject>
#include <QUrl>
#include <QWebSocket>

/// The client of the local hardware-information service: one WebSocket connection to 127.0.0.1 and
/// blocking requests over it. Waits run nested event loops on the calling thread, so a request must
/// not be started from a handler that runs inside one. There is no reconnection of its own: the
/// next request or setPort connects again. A frame or message of more than 4 MiB ends the
/// connection unread.
class LibreHardwareWebSocket : public QObject
{
    Q_OBJECT

public:
    /// Takes the port that the service's configuration names, else 15501, and connects: up to about
    /// 12 seconds when nothing answers. \a fetchOnConnect asks for all sensor data once and logs
    /// them.
    explicit LibreHardwareWebSocket(bool fetchOnConnect, QObject *parent = nullptr);

    /// Connects to another port; the former connection is not closed first.
    void setPort(int port);

    /// The port in "/ProgramData/ParvaneCraftServe/ServeConfig.ini" on the drive that the
    /// environment variable SystemDrive names (else "C:"): group "HWInfoServe", key "port". -1
    /// without file or key, 0 when it is no number.
    static int readConfiguredPort();

    /// Makes \a attempts of \a timeoutMs milliseconds each, a second apart.
    bool connectWithRetries(int attempts, int timeoutMs);

    /// Sends one text frame and waits up to three seconds for the next one, whose "result" is
    /// returned: an empty object when none arrives or it is not JSON.
    QJsonObject request(const QByteArray &text);

    const QUrl &address() const { return url; }

private Q_SLOTS:
    void onConnected();
    void onDisconnected();
    /// Not connected to anything: a failed attempt logs its error itself.
    void onError(QAbstractSocket::SocketError error);
    void onTextMessage(const QString &msg);

private:
    void usePort(int newPort);
    void connectAndFetch();
    bool isConnected() const;
    void reportTimeout();

    QWebSocket socket;
    int port = 15501;
    QUrl url;
    bool waiting = false;
    QString lastMessage;
    QJsonObject result;
    bool fetchOnConnect;
};

/// The "result" of a reply of the service, which is logged with its "method" and "code"; an empty
/// object when there is none.
QJsonObject serviceResult(const QString &message);
