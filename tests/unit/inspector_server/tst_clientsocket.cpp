#include "inspector_server/ClientSocket.h"
#include "tests/support/Waits.h"

#include <QHostAddress>
#include <QTcpServer>
#include <QtTest>

#include <memory>

namespace {

class Listener : public QTcpServer
{
protected:
    void incomingConnection(qintptr handle) override
    {
        auto *const socket = new ClientSocket(this);
        socket->setSocketDescriptor(handle);
        addPendingConnection(socket);
    }
};

/// A masked frame; the mask is 0.
QByteArray frame(char first, int payloadSize)
{
    QByteArray bytes(1, first);
    if (payloadSize < 126) {
        bytes += static_cast<char>(0x80 | payloadSize);
    } else {
        bytes += '\xff' + QByteArray(4, '\0');
        for (int shift = 24; shift >= 0; shift -= 8)
            bytes += static_cast<char>(payloadSize >> shift);
    }
    return bytes + QByteArray(4, '\0') + QByteArray(payloadSize, 'x');
}

constexpr char text = '\x81';
constexpr char firstPart = '\x01';
constexpr char middlePart = '\x00';
constexpr char lastPart = '\x80';
constexpr char ping = '\x89';

} // namespace

class tst_ClientSocket : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void showsAllAtFirst();
    void handsOnFrameByFrame();
    void waitsForTheWholeFrame();
    void handsOnTheHeadOfWhatIsTooLong();
    void countsFrames();
    void countsWhatItHolds();
    void stopsReading();
    void readsOnOnceThereIsRoomAgain();

private:
    void receive(const QByteArray &bytes);

    std::unique_ptr<Listener> m_listener;
    std::unique_ptr<QTcpSocket> m_client;
    ClientSocket *m_socket = nullptr;
    std::unique_ptr<QObject> m_reader;
    QByteArray m_read;
};

void tst_ClientSocket::init()
{
    m_listener = std::make_unique<Listener>();
    QVERIFY(m_listener->listen(QHostAddress::LocalHost));
    m_client = std::make_unique<QTcpSocket>();
    m_client->connectToHost(m_listener->serverAddress(), m_listener->serverPort());
    QTRY_VERIFY(m_listener->hasPendingConnections());
    m_socket = qobject_cast<ClientSocket *>(m_listener->nextPendingConnection());
    QVERIFY(m_socket);
    // It takes everything that it finds, and is notified by an event.
    m_read.clear();
    m_reader = std::make_unique<QObject>();
    connect(
        m_socket, &QTcpSocket::readyRead, m_reader.get(),
        [this] { m_read += m_socket->read(m_socket->bytesAvailable()); }, Qt::QueuedConnection);
}

void tst_ClientSocket::cleanup()
{
    m_reader.reset();
    m_client.reset();
    m_listener.reset();
}

void tst_ClientSocket::receive(const QByteArray &bytes)
{
    const qint64 before = m_socket->buffered();
    m_client->write(bytes);
    QTRY_COMPARE(m_socket->buffered(), before + bytes.size());
    QCoreApplication::processEvents();
}

void tst_ClientSocket::showsAllAtFirst()
{
    m_client->write("GET / HTTP/1.1\r\n\r\n");
    QTRY_COMPARE(m_read, QByteArray("GET / HTTP/1.1\r\n\r\n"));
}

void tst_ClientSocket::handsOnFrameByFrame()
{
    m_socket->holdBack();
    const QList<QByteArray> frames{frame(text, 5), frame(ping, 0), frame(text, 1000)};
    receive(frames.join());
    QVERIFY(m_read.isEmpty());
    QCOMPARE(m_socket->bytesAvailable(), 0LL);
    for (const QByteArray &next : frames) {
        m_read.clear();
        QVERIFY(m_socket->hasFrame());
        QCOMPARE(m_socket->handOnFrame(m_reader.get()), qint64(next.size()));
        QCOMPARE(m_read, next);
        QVERIFY(!m_socket->isHandingOn());
    }
    QVERIFY(!m_socket->hasFrame());
}

void tst_ClientSocket::waitsForTheWholeFrame()
{
    m_socket->holdBack();
    const QByteArray whole = frame(text, ClientSocket::longestPayload);
    receive(whole.left(1));
    QVERIFY(!m_socket->hasFrame());
    receive(whole.mid(1, whole.size() - 2));
    QVERIFY(!m_socket->hasFrame());
    receive(whole.right(1));
    QVERIFY(m_socket->hasFrame());
    QCOMPARE(m_socket->handOnFrame(m_reader.get()), qint64(whole.size()));
    QCOMPARE(m_read, whole);
}

void tst_ClientSocket::handsOnTheHeadOfWhatIsTooLong()
{
    m_socket->holdBack();
    const QByteArray start = frame(text, ClientSocket::longestPayload + 1).left(100);
    receive(start);
    QVERIFY(m_socket->hasFrame());
    QCOMPARE(m_socket->handOnFrame(m_reader.get()), qint64(FrameHead::longest));
    QCOMPARE(m_read, start.left(FrameHead::longest));
}

void tst_ClientSocket::countsFrames()
{
    m_socket->holdBack();
    QCOMPARE(m_socket->frameCount(), 0);
    receive(frame(text, 5) + frame(ping, 125) + frame(text, 300));
    QCOMPARE(m_socket->frameCount(), 3);
    receive(frame(text, 300).left(299));
    QCOMPARE(m_socket->frameCount(), 3);
}

void tst_ClientSocket::countsWhatItHolds()
{
    m_socket->holdBack();
    const auto handOn = [this](const QByteArray &bytes) {
        receive(bytes);
        m_socket->handOnFrame(m_reader.get());
        return m_socket->held();
    };
    // Unfinished texts are stored with two bytes per letter.
    QCOMPARE(handOn(frame(firstPart, 1000)), 2000LL);
    QCOMPARE(handOn(frame(ping, 125)), 2000LL);
    QCOMPARE(handOn(frame(middlePart, 500)), 3000LL);
    QCOMPARE(handOn(frame(lastPart, 500)), 0LL);
    QCOMPARE(handOn(frame(text, 500)), 0LL);
    receive(frame(text, 100));
    QCOMPARE(m_socket->held(), 106LL);
    m_socket->write(QByteArray(1000, 'x'));
    QCOMPARE(m_socket->held(), 1106LL);
}

void tst_ClientSocket::stopsReading()
{
    m_socket->holdBack();
    receive(frame(text, 5));
    m_socket->stopReading();
    const qint64 before = m_socket->buffered();
    m_client->write(frame(text, 1000));
    QTRY_COMPARE(m_client->bytesToWrite(), 0LL);
    QTest::qWait(50);
    QCOMPARE(m_socket->buffered(), before);
    m_socket->readUpTo(ClientSocket::longestPayload);
    QTRY_COMPARE(m_socket->frameCount(), 2);
}

void tst_ClientSocket::readsOnOnceThereIsRoomAgain()
{
    m_socket->holdBack();
    const QByteArray first = frame(text, 1000);
    const qint64 room = first.size() + 200; // Includes a part of the second.
    m_socket->readUpTo(room);
    m_client->write(first + frame(text, 500));
    QTRY_COMPARE(m_socket->buffered(), room);
    QTest::qWait(50); // Qt finds the buffer full and stops by itself.
    m_socket->stopReading();
    m_socket->handOnFrame(m_reader.get());
    QVERIFY(!m_socket->hasFrame());
    m_socket->readUpTo(room);
    QTRY_VERIFY(m_socket->hasFrame());
}

QTEST_GUILESS_MAIN(tst_ClientSocket)
#include "tst_clientsocket.moc"
