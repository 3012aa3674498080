#include "sensors/services/BlockingWebSocketClient.h"
#include "tests/support/MessageCapture.h"
#include "tests/support/PeakMemory.h"
#include "tests/support/RawWebSocketService.h"
#include "tests/support/Sanitizers.h"
#include "tests/support/Waits.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>
#include <QUrl>
#include <QWebSocket>
#include <QWebSocketServer>
#include <QtTest>

#include <memory>

class tst_BlockingWebSocketClient : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void connectsAndClosesNormally();
    void sendsNothingButACloseFrame();
    void returnsEarlyWhenRefused();
    void returnsEarlyForAnAddressThatIsNone();
    void givesUpOnASilentListener();
    void failsOnAListenerThatHangsUp();
    void deliversOtherEventsMeanwhile();
    void takesLittleOfAFlood_data();
    void takesLittleOfAFlood();

private:
    static QUrl url(quint16 port) { return QUrl(QStringLiteral("ws://127.0.0.1:%1").arg(port)); }
    static QString quoted(const char *text)
    {
        return MessageCapture::quoted(QString::fromLatin1(text));
    }
};

void tst_BlockingWebSocketClient::connectsAndClosesNormally()
{
    QWebSocketServer server(QStringLiteral("s"), QWebSocketServer::NonSecureMode);
    QVERIFY(server.listen(QHostAddress::LocalHost));
    const MessageCapture capture;
    auto client = std::make_unique<BlockingWebSocketClient>(url(server.serverPort()), 1500U);
    QVERIFY(client->isConnected());
    QCOMPARE(
        MessageCapture::messages().mid(0, 3),
        (QStringList{quoted(qPrintable(QStringLiteral("Attempting to connect tows://127.0.0.1:%1")
                                           .arg(server.serverPort()))),
                     quoted("WebSocket connected."), quoted("Connection successful!")}));

    QTRY_VERIFY(server.hasPendingConnections());
    const std::unique_ptr<QWebSocket> peer(server.nextPendingConnection());
    const QSignalSpy messages(peer.get(), &QWebSocket::textMessageReceived);
    const QSignalSpy disconnected(peer.get(), &QWebSocket::disconnected);
    client.reset();
    QTRY_COMPARE(disconnected.size(), 1);
    QCOMPARE(peer->closeCode(), QWebSocketProtocol::CloseCodeNormal);
    QCOMPARE(peer->closeReason(), QString());
    QCOMPARE(messages.size(), 0);
}

void tst_BlockingWebSocketClient::sendsNothingButACloseFrame()
{
    const MessageCapture capture;
    const RawWebSocketService service;
    auto client = std::make_unique<BlockingWebSocketClient>(url(service.port()), 30000U);
    QVERIFY(client->isConnected());
    client.reset();
    QTRY_VERIFY(service.isForsaken());
    // A whole close frame, masked, of two bytes: a code without a reason.
    const QByteArray frame = service.received();
    QCOMPARE(frame.size(), 8);
    QCOMPARE(frame.left(2), QByteArray("\x88\x82"));
    const QByteArray code{1, static_cast<char>(frame.at(6) ^ frame.at(2))};
    QCOMPARE(code + static_cast<char>(frame.at(7) ^ frame.at(3)), QByteArray("\x03\xe8")); // 1000
}

void tst_BlockingWebSocketClient::returnsEarlyWhenRefused()
{
    QTcpServer placeholder;
    QVERIFY(placeholder.listen(QHostAddress::LocalHost));
    const quint16 freePort = placeholder.serverPort();
    placeholder.close();

    const MessageCapture capture;
    QElapsedTimer timer;
    timer.start();
    const BlockingWebSocketClient client(url(freePort), 30000);
    QVERIFY(timer.elapsed() < 15000);
    QVERIFY(!client.isConnected());
    QVERIFY(MessageCapture::messages().contains(quoted("WebSocket error:Connection refused")));
    QCOMPARE(MessageCapture::messages().constLast(), quoted("Connection failed or timed out."));
}

void tst_BlockingWebSocketClient::returnsEarlyForAnAddressThatIsNone()
{
    const MessageCapture capture;
    QElapsedTimer timer;
    timer.start();
    const BlockingWebSocketClient client(QUrl(QStringLiteral("ws://127.0.0.1:99999")), 30000);
    QVERIFY(timer.elapsed() < 15000);
    QVERIFY(!client.isConnected());
}

void tst_BlockingWebSocketClient::givesUpOnASilentListener()
{
    QTcpServer silent;
    QVERIFY(silent.listen(QHostAddress::LocalHost));
    QElapsedTimer timer;
    timer.start();
    const MessageCapture capture;
    const BlockingWebSocketClient client(url(silent.serverPort()), 200);
    // A coarse timer may fire 5 % early, and each clock truncates to milliseconds.
    QVERIFY(timer.elapsed() >= 185);
    QVERIFY(!client.isConnected());
    QCOMPARE(MessageCapture::messages().constLast(), quoted("Connection failed or timed out."));
}

void tst_BlockingWebSocketClient::failsOnAListenerThatHangsUp()
{
    QTcpServer rude;
    QVERIFY(rude.listen(QHostAddress::LocalHost));
    connect(&rude, &QTcpServer::newConnection, &rude,
            [&rude] { rude.nextPendingConnection()->abort(); });
    QElapsedTimer timer;
    timer.start();
    const MessageCapture capture;
    const BlockingWebSocketClient client(url(rude.serverPort()), 30000);
    QVERIFY(timer.elapsed() < 15000);
    QVERIFY(!client.isConnected());
}

void tst_BlockingWebSocketClient::deliversOtherEventsMeanwhile()
{
    QTcpServer silent;
    QVERIFY(silent.listen(QHostAddress::LocalHost));
    bool delivered = false;
    QTimer::singleShot(0, this, [&delivered] { delivered = true; });
    const MessageCapture capture;
    const BlockingWebSocketClient client(url(silent.serverPort()), 100);
    QVERIFY(delivered);
}

void tst_BlockingWebSocketClient::takesLittleOfAFlood_data()
{
    QTest::addColumn<bool>("shakesHands");
    QTest::addColumn<QByteArray>("begin");
    QTest::addColumn<QByteArray>("part");
    const QByteArray megabyte(1024 * 1024, 'x');
    const QByteArray nothing;
    QTest::newRow("one frame") << true << RawWebSocketService::header('\x81', 400 * megabyte.size())
                               << megabyte;
    const QByteArray fragment = megabyte.left(64 * 1024);
    QTest::newRow("fragments without end")
        << true << RawWebSocketService::header('\x01', fragment.size()) + fragment
        << RawWebSocketService::header('\0', fragment.size()) + fragment;
    QTest::newRow("a handshake without end") << false << nothing << megabyte;
}

void tst_BlockingWebSocketClient::takesLittleOfAFlood()
{
    QFETCH(bool, shakesHands);
    QFETCH(QByteArray, begin);
    QFETCH(QByteArray, part);
    constexpr qint64 total = 400LL * 1024 * 1024;
    constexpr qint64 little = 32LL * 1024 * 1024;
    const int parts = static_cast<int>(total / part.size());
    const MessageCapture capture;
    RawWebSocketService service;
    if (!shakesHands)
        service.sendInsteadOfAHandshake(part, parts);
    const qint64 before = peakMemory();
    QVERIFY(before > 0);
    const BlockingWebSocketClient client(url(service.port()), shakesHands ? 30000 : 1000);
    QCOMPARE(client.isConnected(), shakesHands);
    if (shakesHands) {
        service.send(begin, part, parts);
        QTRY_VERIFY(service.isForsaken());
    }
    QVERIFY2(service.taken() < little, qPrintable(QString::number(service.taken())));
    const qint64 more = peakMemory() - before;
    if (!isSanitized) // A sanitizer keeps freed memory.
        QVERIFY2(more < little, qPrintable(QString::number(more)));
}

QTEST_GUILESS_MAIN(tst_BlockingWebSocketClient)
#include "tst_blockingwebsocketclient.moc"
