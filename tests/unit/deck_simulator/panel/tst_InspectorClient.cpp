#include "deck_simulator/panel/InspectorClient.h"
#include "tests/support/Waits.h"

#include <QHostAddress>
#include <QSignalSpy>
#include <QWebSocket>
#include <QWebSocketServer>
#include <QtTest>

using namespace deck;

class tst_InspectorClient : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void asksAgainAndAgain();
    void asksForSomethingElseAtOnce();
    void givesUpWithoutRequests();
    void comesBackToAServer();

private:
    void takeClient();

    std::unique_ptr<QWebSocketServer> m_server;
    std::unique_ptr<QWebSocket> m_link;
    QStringList m_asked;
};

void tst_InspectorClient::init()
{
    m_link.reset();
    m_asked.clear();
    m_server = std::make_unique<QWebSocketServer>(QStringLiteral("data server"),
                                                  QWebSocketServer::NonSecureMode);
    QVERIFY(m_server->listen(QHostAddress::LocalHost));
    connect(m_server.get(), &QWebSocketServer::newConnection, this,
            &tst_InspectorClient::takeClient);
}

void tst_InspectorClient::takeClient()
{
    m_link.reset(m_server->nextPendingConnection());
    connect(m_link.get(), &QWebSocket::textMessageReceived, this, [this](const QString &text) {
        m_asked.append(text);
        m_link->sendTextMessage(QStringLiteral("reply to ") + text);
    });
}

void tst_InspectorClient::asksAgainAndAgain()
{
    InspectorClient client(m_server->serverPort());
    QSignalSpy replies(&client, &InspectorClient::replied);
    QVERIFY(!client.isConnected());
    client.setRequests({QStringLiteral("one"), QStringLiteral("two")});
    QTRY_COMPARE(replies.count(), 4);
    QVERIFY(client.isConnected());
    QCOMPARE(m_asked.join(QLatin1Char(' ')), QStringLiteral("one two one two"));
    QCOMPARE(replies.at(1).at(0).toByteArray(), QByteArray("reply to two"));
}

void tst_InspectorClient::asksForSomethingElseAtOnce()
{
    InspectorClient client(m_server->serverPort());
    QSignalSpy replies(&client, &InspectorClient::replied);
    client.setRequests({QStringLiteral("one")});
    QTRY_COMPARE(replies.count(), 1);
    client.setRequests({QStringLiteral("two")});
    QTRY_COMPARE(replies.count(), 2);
    QCOMPARE(m_asked.last(), QStringLiteral("two"));
}

void tst_InspectorClient::givesUpWithoutRequests()
{
    InspectorClient client(m_server->serverPort());
    QSignalSpy changes(&client, &InspectorClient::connectedChanged);
    client.setRequests({QStringLiteral("one")});
    QTRY_VERIFY(client.isConnected());
    client.setRequests({});
    QTRY_VERIFY(!client.isConnected());
    QTRY_COMPARE(changes.count(), 2);
}

void tst_InspectorClient::comesBackToAServer()
{
    const quint16 port = m_server->serverPort();
    m_server->close();
    InspectorClient client(port);
    QSignalSpy replies(&client, &InspectorClient::replied);
    client.setRequests({QStringLiteral("one")});
    QVERIFY(m_server->listen(QHostAddress::LocalHost, port));
    QTRY_VERIFY(replies.count() > 0);
    m_link->abort();
    QTRY_VERIFY(!client.isConnected());
    replies.clear();
    QTRY_VERIFY(replies.count() > 0);
}

QTEST_GUILESS_MAIN(tst_InspectorClient)
#include "tst_InspectorClient.moc"
