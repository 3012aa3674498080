#pragma once

#include <QJsonObject>
#include <QObject>
#include <QString>

class QLocalSocket;

/// A client of the persistent local service behind a named local socket. All waits block the
/// calling thread.
class IoLocalSocket : public QObject
{
    Q_OBJECT

public:
    /// \a connectAndFetch connects, asks once for all sensor data and logs them; without it nothing
    /// happens.
    explicit IoLocalSocket(bool connectAndFetch, QObject *parent = nullptr);

    /// Tries up to 100 times, with up to three seconds for each and a second between them.
    void connectToService();

    bool isConnected() const { return connected; }

protected:
    /// The whole reply; an empty object when not connected, when no reply arrives within three
    /// seconds, or when the data received by then is not JSON.
    QJsonObject fetch();

private:
    void reportTimeout();

    QLocalSocket *socket;
    QString serverName = QStringLiteral("MyPersistentServiceSocket");

protected:
    int maximumAttempts = 100;
    int retryInterval = 1000; ///< Milliseconds; the pause between attempts is a second in any case.

private:
    bool connected = false;
};

/// The text "socket 错误:" as a timeout logs it: shortened at the front by \a errorCode bytes.
QString socketErrorLabel(int errorCode);

/// The object in a reply of the service; if it is not JSON, a line is logged and the object is
/// empty.
QJsonObject parseServiceReply(const QByteArray &reply);
