#include "tests/support/RawWebSocketService.h"

#include <QCryptographicHash>
#include <QHostAddress>
#include <QTcpSocket>
#include <QtEndian>

namespace {

/// The value of Sec-WebSocket-Accept in the answer to \a request.
QByteArray acceptOf(const QByteArray &request)
{
    const QByteArray name = QByteArrayLiteral("sec-websocket-key:");
    const auto begin = request.toLower().indexOf(name) + name.size();
    const QByteArray key = request.mid(begin, request.indexOf('\r', begin) - begin).trimmed();
    const QByteArray salted = key + "258EAFA5-E914-47DA-95CA-C5AB0DC85B11";
    return QCryptographicHash::hash(salted, QCryptographicHash::Sha1).toBase64();
}

} // namespace

RawWebSocketService::RawWebSocketService()
{
    if (!m_server.listen(QHostAddress::LocalHost))
        qFatal("No port for the service");
    connect(&m_server, &QTcpServer::newConnection, this, &RawWebSocketService::takeConnection);
}

void RawWebSocketService::send(const QByteArray &begin, const QByteArray &part, int parts)
{
    m_part = part;
    m_parts = parts;
    m_client->write(begin);
}

void RawWebSocketService::sendInsteadOfAHandshake(const QByteArray &part, int parts)
{
    m_answersHandshake = false;
    m_part = part;
    m_parts = parts;
}

QByteArray RawWebSocketService::header(char firstByte, qint64 length)
{
    constexpr char eightBytesFollow = 127;
    QByteArray size(8, '\0');
    qToBigEndian(length, size.data());
    return QByteArray(1, firstByte) + eightBytesFollow + size;
}

void RawWebSocketService::takeConnection()
{
    m_client = m_server.nextPendingConnection();
    m_client->setParent(this);
    connect(m_client, &QTcpSocket::readyRead, this, &RawWebSocketService::read);
    connect(m_client, &QTcpSocket::bytesWritten, this, [this](qint64 bytes) {
        m_taken += bytes;
        goOn();
    });
    connect(m_client, &QTcpSocket::disconnected, this, [this] { m_isForsaken = true; });
}

void RawWebSocketService::read()
{
    m_received += m_client->readAll();
    const auto end = m_received.indexOf("\r\n\r\n");
    if (!m_hasShakenHands && end >= 0)
        shakeHands();
}

void RawWebSocketService::shakeHands()
{
    const auto end = m_received.indexOf("\r\n\r\n") + 4;
    const QByteArray request = m_received.left(end);
    m_received.remove(0, end);
    m_hasShakenHands = true;
    if (m_answersHandshake) {
        m_client->write("HTTP/1.1 101 Switching Protocols\r\nUpgrade: websocket\r\n"
                        "Connection: Upgrade\r\nSec-WebSocket-Accept: " +
                        acceptOf(request) + "\r\n\r\n");
    } else {
        goOn();
    }
}

void RawWebSocketService::goOn()
{
    if (m_client->bytesToWrite() > 0 || m_parts == 0)
        return;
    --m_parts;
    m_client->write(m_part);
}
