#include "tests/support/Stranger.h"

#include "tests/support/DataServerClient.h"

#include <QHostAddress>
#include <QtEndian>

#include <utility>

namespace {

constexpr char handshake[] =
    "GET / HTTP/1.1\r\nHost: localhost\r\nUpgrade: websocket\r\n"
    "Connection: Upgrade\r\nSec-WebSocket-Key: dGhlIHNhbXBsZSBub25jZQ==\r\n"
    "Sec-WebSocket-Version: 13\r\n\r\n";

constexpr char text = '\x81';
constexpr char ping = '\x89';
constexpr char unfinishedText = '\x01';
constexpr char continuation = '\x00';

/// Bytes that may wait in this process.
constexpr qint64 mostUnsent = 256LL * 1024;

QByteArray maskedFrame(char first, const QByteArray &payload)
{
    QByteArray frame(1, first);
    if (payload.size() < 126) {
        frame += static_cast<char>(0x80 | payload.size());
    } else {
        QByteArray length(2, '\0');
        qToBigEndian(static_cast<quint16>(payload.size()), length.data());
        frame += '\xfe' + length;
    }
    return frame + QByteArray(4, '\0') + payload;
}

} // namespace

Stranger::Stranger(Attack attack, bool reads)
    : m_attack(std::move(attack))
    , m_reads(reads)
{
    if (!reads)
        m_socket.setReadBufferSize(1024);
    connect(&m_socket, &QTcpSocket::readyRead, this, &Stranger::onReadyRead);
    connect(&m_socket, &QTcpSocket::connected, this, [this] {
        // Each write is a packet of its own.
        m_socket.setSocketOption(QAbstractSocket::LowDelayOption, 1);
        m_socket.write(handshake);
    });
    m_timer.setTimerType(Qt::PreciseTimer);
    m_timer.setInterval(1000 / m_attack.perSecond);
    connect(&m_timer, &QTimer::timeout, this, &Stranger::attack);
    m_timer.start();
    connectAnew();
}

void Stranger::connectAnew()
{
    m_isServed = false;
    m_sentFrames = 0;
    m_socket.abort();
    m_socket.connectToHost(QHostAddress(QHostAddress::LocalHost), DataServerClient::port);
}

void Stranger::onReadyRead()
{
    m_isServed = true;
    if (m_reads)
        m_socket.readAll();
}

QByteArray Stranger::nextBytes()
{
    switch (m_attack.manner) {
    case Attack::Manner::Ping:
        return maskedFrame(ping, m_attack.payload);
    case Attack::Manner::Unfinished:
        // Two payloads would make a message that is too long.
        return m_sentFrames++ == 0 ? maskedFrame(unfinishedText, m_attack.payload)
                                   : maskedFrame(continuation, QByteArray());
    case Attack::Manner::Trickle: {
        static const QByteArray request = maskedFrame(text, QByteArray(60 * 1024, 'x'));
        return request.mid(m_sentFrames++ % request.size(), 1);
    }
    case Attack::Manner::Ask:
    case Attack::Manner::Connect:
        break;
    }
    return maskedFrame(text, m_attack.payload);
}

void Stranger::send(const QByteArray &bytes)
{
    m_sent += m_socket.write(bytes);
    m_socket.flush();
}

void Stranger::attack()
{
    if (m_socket.state() == QAbstractSocket::UnconnectedState) {
        connectAnew();
        return;
    }
    if (!m_isServed)
        return;
    if (m_attack.manner == Attack::Manner::Connect) {
        connectAnew();
        return;
    }
    for (int time = 0; time < m_attack.atOnce && m_socket.bytesToWrite() < mostUnsent; ++time)
        send(nextBytes());
}
