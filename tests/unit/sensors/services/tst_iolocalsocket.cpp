#include "sensors/services/IoLocalSocket.h"
#include "tests/support/MessageCapture.h"

#include <QElapsedTimer>
#include <QLocalServer>
#include <QLocalSocket>
#include <QSemaphore>
#include <QThread>
#include <QtTest>

#include <memory>

namespace {

QString quoted(const QString &text)
{
    return MessageCapture::quoted(text);
}

/// The service, on a thread of its own because the client blocks its caller.
class Service : public QThread
{
public:
    enum class Answer { Reply, Silence, HangUp };

    /// Answers the first request of one connection.
    explicit Service(Answer answer, const QByteArray &reply = QByteArray())
        : m_answer(answer)
        , m_reply(reply)
    {
        start();
        m_listening.acquire();
    }
    ~Service() override
    {
        m_done.release();
        wait();
    }
    Q_DISABLE_COPY(Service)

    QByteArray request;

private:
    void run() override
    {
        QLocalServer::removeServer(QStringLiteral("MyPersistentServiceSocket"));
        QLocalServer server;
        if (!server.listen(QStringLiteral("MyPersistentServiceSocket")))
            qFatal("The local socket is taken");
        m_listening.release();
        server.waitForNewConnection(10000);
        const std::unique_ptr<QLocalSocket> client(server.nextPendingConnection());
        if (client && client->waitForReadyRead(10000))
            answer(*client);
        m_done.acquire();
    }

    void answer(QLocalSocket &client)
    {
        request = client.readAll();
        if (m_answer == Answer::HangUp)
            client.abort();
        if (m_answer != Answer::Reply)
            return;
        client.write(m_reply);
        client.waitForBytesWritten(1000);
    }

    const Answer m_answer;
    const QByteArray m_reply;
    QSemaphore m_listening;
    QSemaphore m_done;
};

class ImpatientClient : public IoLocalSocket
{
public:
    explicit ImpatientClient(int attempts)
        : IoLocalSocket(false)
    {
        maximumAttempts = attempts;
    }
    using IoLocalSocket::fetch;
    int attempts() const { return maximumAttempts; }
};

} // namespace

class tst_IoLocalSocket : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void doesNothingWithoutTheSwitch();
    void fetchesWithTheSwitch();
    void logsAReplyWhole();
    void readsWhatHasCome_data();
    void readsWhatHasCome();
    void reportsASilentService();
    void reportsAServiceThatDies();
    void triesAgainWhenNobodyListens();
    void skipsBytesOfTheErrorLabel_data();
    void skipsBytesOfTheErrorLabel();
};

void tst_IoLocalSocket::doesNothingWithoutTheSwitch()
{
    const MessageCapture capture;
    const IoLocalSocket client(false);
    QVERIFY(!client.isConnected());
    QCOMPARE(MessageCapture::messages(), QStringList());
}

void tst_IoLocalSocket::fetchesWithTheSwitch()
{
    const QString reply = QStringLiteral(R"({"code":0,"result":{"a":1}})");
    const Service service(Service::Answer::Reply, reply.toUtf8());
    const MessageCapture capture;
    const IoLocalSocket client(true);
    QVERIFY(client.isConnected());
    QCOMPARE(service.request, QByteArray(R"({"method":"getAllSensorsData"})"));
    QCOMPARE(MessageCapture::messages(),
             (QStringList{quoted(QStringLiteral("尝试连接第 1 次...")),
                          quoted(QStringLiteral("IoServer连接成功！")),
                          quoted(QStringLiteral("收到响应: ") + reply),
                          quoted(QStringLiteral("alldatajson: {\n    \"code\": 0,\n    \"result\": "
                                                "{\n        \"a\": 1\n    }\n}\n"))}));
}

void tst_IoLocalSocket::logsAReplyWhole()
{
    const QByteArray reply = QByteArrayLiteral("{\"a\0b\":1}");
    const Service service(Service::Answer::Reply, reply);
    const MessageCapture capture;
    ImpatientClient client(1);
    client.connectToService();
    QCOMPARE(client.fetch().size(), 1);
    const QString text = QString::fromLatin1(reply.constData(), reply.size());
    QCOMPARE(MessageCapture::messages().constLast(), quoted(QStringLiteral("收到响应: ") + text));
}

void tst_IoLocalSocket::readsWhatHasCome_data()
{
    QTest::addColumn<QByteArray>("reply");
    QTest::addColumn<QString>("error");
    QTest::newRow("cut off") << QByteArray(R"({"code":0,)")
                             << QStringLiteral("unterminated object");
    QTest::newRow("no JSON") << QByteArray("hello") << QStringLiteral("illegal value");
    QTest::newRow("array") << QByteArray("[1]") << QString();
}

void tst_IoLocalSocket::readsWhatHasCome()
{
    QFETCH(QByteArray, reply);
    QFETCH(QString, error);
    const Service service(Service::Answer::Reply, reply);
    const MessageCapture capture;
    ImpatientClient client(1);
    client.connectToService();
    QVERIFY(client.fetch().isEmpty());
    QCOMPARE(MessageCapture::count(quoted(QStringLiteral("IoServerJSON 解析失败:") + error)),
             error.isEmpty() ? 0 : 1);
}

void tst_IoLocalSocket::reportsASilentService()
{
    const Service service(Service::Answer::Silence);
    const MessageCapture capture;
    ImpatientClient client(1);
    client.connectToService();
    QElapsedTimer timer;
    timer.start();
    QVERIFY(client.fetch().isEmpty());
    QVERIFY(timer.elapsed() >= 2800);
    const QStringList messages = MessageCapture::messages();
    QCOMPARE(messages.at(messages.size() - 4), quoted(QStringLiteral("等待响应超时")));
    QCOMPARE(messages.at(messages.size() - 3),
             quoted(QStringLiteral("socket 状态:%1").arg(int(QLocalSocket::ConnectedState))));
    // On Windows, where the socket is a named pipe, a time-out is not reported as an error.
    const QStringList labels{quoted(socketErrorLabel(QLocalSocket::SocketTimeoutError)),
                             quoted(socketErrorLabel(QLocalSocket::UnknownSocketError))};
    QVERIFY(labels.contains(messages.at(messages.size() - 2)));
    QVERIFY(messages.constLast().startsWith(QStringLiteral("\"socket 错误描述:")));
}

void tst_IoLocalSocket::reportsAServiceThatDies()
{
    const Service service(Service::Answer::HangUp);
    const MessageCapture capture;
    ImpatientClient client(1);
    client.connectToService();
    QElapsedTimer timer;
    timer.start();
    QVERIFY(client.fetch().isEmpty());
    QVERIFY(timer.elapsed() < 2800);
    const QStringList messages = MessageCapture::messages();
    QCOMPARE(messages.size(), 6);
    QCOMPARE(messages.at(2), quoted(QStringLiteral("等待响应超时")));
    QCOMPARE(messages.at(3),
             quoted(QStringLiteral("socket 状态:%1").arg(int(QLocalSocket::UnconnectedState))));
    // On Windows, where the socket is a named pipe, it may end without an error.
    const bool isPipe = QSysInfo::kernelType() == QLatin1String("winnt");
    const QString unknown = quoted(socketErrorLabel(QLocalSocket::UnknownSocketError));
    QVERIFY(messages.at(4) == quoted(socketErrorLabel(QLocalSocket::PeerClosedError)) ||
            (isPipe && messages.at(4) == unknown));
    QVERIFY(messages.constLast().startsWith(QStringLiteral("\"socket 错误描述:")));
}

void tst_IoLocalSocket::triesAgainWhenNobodyListens()
{
    QLocalServer::removeServer(QStringLiteral("MyPersistentServiceSocket"));
    const MessageCapture capture;
    QCOMPARE(ImpatientClient(100).attempts(), 100);
    ImpatientClient client(2);
    QElapsedTimer timer;
    timer.start();
    client.connectToService();
    QVERIFY(timer.elapsed() >= 1900);
    QVERIFY(!client.isConnected());
    QVERIFY(client.fetch().isEmpty());
    const QStringList messages = MessageCapture::messages();
    QCOMPARE(messages.size(), 5);
    QCOMPARE(messages.at(0), quoted(QStringLiteral("尝试连接第 1 次...")));
    QVERIFY(messages.at(1).startsWith(QStringLiteral("\"IoServer连接失败: QLocalSocket")));
    QCOMPARE(messages.at(2), quoted(QStringLiteral("尝试连接第 2 次...")));
    QCOMPARE(messages.at(4), quoted(QStringLiteral("多次连接失败，退出。")));
}

void tst_IoLocalSocket::skipsBytesOfTheErrorLabel_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("label");
    QTest::newRow("none") << 0 << QStringLiteral("socket 错误:");
    QTest::newRow("five") << 5 << QStringLiteral("t 错误:");
    QTest::newRow("all letters") << 7 << QStringLiteral("错误:");
    QTest::newRow("unknown error") << -1 << QStringLiteral("socket 错误:");
    QTest::newRow("more than there are") << 1000 << QString();
}

void tst_IoLocalSocket::skipsBytesOfTheErrorLabel()
{
    QFETCH(int, code);
    QTEST(socketErrorLabel(code), "label");
}

QTEST_GUILESS_MAIN(tst_IoLocalSocket)
#include "tst_iolocalsocket.moc"
