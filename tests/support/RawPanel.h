#pragma once

#include <QHostAddress>
#include <QTcpSocket>

/// A client of the data server that speaks the WebSocket protocol byte by byte, and never reads
/// what it is sent.
class RawPanel
{
public:
    explicit RawPanel(quint16 port, const QByteArray &handshake = wellFormedHandshake)
    {
        // So that what is not read here stays with the server.
        m_socket.setReadBufferSize(4096);
        m_socket.connectToHost(QHostAddress(QHostAddress::LocalHost), port);
        m_socket.write(handshake);
    }

    bool isConnected() const { return m_socket.state() == QAbstractSocket::ConnectedState; }
    /// Bytes that the system has not accepted yet.
    qint64 unsent() const { return m_socket.bytesToWrite(); }

    bool isGone()
    {
        // Wine does not always report that the other end is gone; a look at the socket shows it.
        // Who looks at a socket that is still connecting gives it up.
        return m_socket.state() == QAbstractSocket::UnconnectedState ||
               (isConnected() && m_socket.waitForDisconnected(1));
    }

    /// Whether the server has answered the handshake.
    bool isServed() { return m_socket.peek(4096).contains("101 Switching Protocols"); }

    /// Whether a part of an answer has arrived after the handshake.
    bool hasBegunToReceive()
    {
        const QByteArray received = m_socket.peek(4096);
        const auto end = received.indexOf("\r\n\r\n");
        return end >= 0 && received.size() > end + 4;
    }

    void abort() { m_socket.abort(); }

    void send(const QByteArray &bytes) { m_socket.write(bytes); }

    /// \a request is shorter than 126 letters.
    void ask(const QByteArray &request)
    {
        // One masked text frame; the mask is 0.
        send(QByteArray("\x81") + static_cast<char>(0x80 | request.size()) + QByteArray(4, '\0') +
             request);
    }

private:
    static constexpr char wellFormedHandshake[] =
        "GET / HTTP/1.1\r\nHost: localhost\r\nUpgrade: websocket\r\n"
        "Connection: Upgrade\r\nSec-WebSocket-Key: dGhlIHNhbXBsZSBub25jZQ==\r\n"
        "Sec-WebSocket-Version: 13\r\n\r\n";

    QTcpSocket m_socket;
};
