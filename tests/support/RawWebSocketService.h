#pragma once

#include <QObject>
#include <QPointer>
#include <QTcpServer>

class QTcpSocket;

/// A WebSocket server on a free loopback port that speaks the protocol byte by byte: it takes one
/// client, and sends frames that no well-behaved server would.
class RawWebSocketService : public QObject
{
    Q_OBJECT

public:
    RawWebSocketService();

    quint16 port() const { return m_server.serverPort(); }

    /// Sends the client \a begin, then \a part up to \a parts times, each as the client takes the
    /// one before.
    void send(const QByteArray &begin, const QByteArray &part, int parts);

    /// What the client gets in place of an answer to its handshake: \a part, \a parts times.
    void sendInsteadOfAHandshake(const QByteArray &part, int parts);

    /// Bytes that the client's system has taken, with the answer to the handshake.
    qint64 taken() const { return m_taken; }

    /// What the client sent behind its handshake.
    QByteArray received() const { return m_received; }

    /// Whether there was a client and it has gone.
    bool isForsaken() const { return m_isForsaken; }

    /// The header of an unmasked frame of 64 KiB or more; its first byte is \x81 for a whole text.
    static QByteArray header(char firstByte, qint64 length);

private:
    void takeConnection();
    void read();
    void shakeHands();
    void goOn();

    QTcpServer m_server;
    QPointer<QTcpSocket> m_client;
    QByteArray m_part;
    int m_parts = 0;
    bool m_answersHandshake = true;
    bool m_hasShakenHands = false;
    bool m_isForsaken = false;
    qint64 m_taken = 0;
    QByteArray m_received;
};
