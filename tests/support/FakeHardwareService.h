#pragma once

#include <QByteArray>
#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QTemporaryDir>
#include <QWebSocketServer>

class QWebSocket;

/// Plays the hardware-information service on a free loopback port. While it exists, the environment
/// variable SystemDrive names a folder whose configuration file announces that port.
class FakeHardwareService : public QObject
{
    Q_OBJECT

public:
    FakeHardwareService();
    ~FakeHardwareService() override;
    Q_DISABLE_COPY(FakeHardwareService)

    int port() const { return m_server.serverPort(); }

    /// The value of SystemDrive with which programs find it.
    QString drive() const { return m_drive.path(); }

    /// What it sends, frame by frame, on the next requests.
    QStringList replies;

    /// Hangs up instead of answering.
    bool diesOnRequest = false;

    /// The received frames, including the greetings.
    QStringList received;
    int connections = 0;

    /// Lets programs that this one starts find it where SystemDrive does not reach them.
    void announceToPrograms();

private:
    void announceIn(const QString &drive);
    void takeConnection();
    void answer(QWebSocket *client, const QString &message);

    QWebSocketServer m_server;
    QTemporaryDir m_drive;
    QStringList m_files;
    QByteArray m_previousDrive;
};
