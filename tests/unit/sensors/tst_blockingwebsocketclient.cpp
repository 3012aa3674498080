#include "sensors/services/BlockingWebSocketClient.h"
#include "tests/support/MessageCapture.h"

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
    void returnsEarlyWhenRefused();
    void returnsEarlyForAnAddressThatIsNone();
    void givesUpOnASilentListener();
    void failsOnAListenerThatHangsUp();
    void deliversOtherEventsMeanwhile();

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
    QVERIFY(timer.elapsed() >= 190);
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

QTEST_GUILESS_MAIN(tst_BlockingWebSocketClient)
#include "tst_blockingwebsocketclient.moc"
