#include "sensors/services/LibreHardwareWebSocket.h"
#include "tests/support/FakeHardwareService.h"
#include "tests/support/MessageCapture.h"
#include "tests/support/PeakMemory.h"
#include "tests/support/RawWebSocketService.h"
#include "tests/support/Sanitizers.h"
#include "tests/support/Waits.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QWebSocket>
#include <QWebSocketServer>
#include <QtTest>

#include <memory>

namespace {

/// Bytes of the longest frame or message that the client accepts.
constexpr int longestReply = 4 * 1024 * 1024;

const QByteArray request = R"({"method":"getAllSensorsData"})";

QString quoted(const QString &text)
{
    return MessageCapture::quoted(text);
}

/// The path of the service's configuration on \a drive.
QString configuration(const QString &drive)
{
    return drive + QStringLiteral("/ProgramData/ParvaneCraftServe/ServeConfig.ini");
}

bool writeConfiguration(const QString &drive, const QByteArray &content)
{
    QFile file(configuration(drive));
    return QDir().mkpath(QFileInfo(file).path()) && file.open(QIODevice::WriteOnly) &&
           file.write(content) == content.size();
}

} // namespace

class tst_LibreHardwareWebSocket : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void readsTheConfiguredPort_data();
    void readsTheConfiguredPort();
    void looksOnTheSystemDrive_data();
    void looksOnTheSystemDrive();
    void keepsItsPortWithoutAConfiguredOne_data();
    void keepsItsPortWithoutAConfiguredOne();
    void connectsAndGreets();
    void fetchesOnConnect();
    void returnsTheResult_data();
    void returnsTheResult();
    void logsTheCodeAsACharacter_data();
    void logsTheCodeAsACharacter();
    void secondFrameOfAWaitIsDropped();
    void frameWithoutARequestIsDropped();
    void givesUpOnASilentService();
    void reconnectsForARequest();
    void givesUpWhenTheServiceDies();
    void changesThePort();
    void takesLittleOfAFlood_data();
    void takesLittleOfAFlood();
    void takesALongReply();
    void threeAttemptsWhenTheServiceIsDown();
    void errorIsAWarning();

private:
    std::unique_ptr<MessageCapture> m_capture;
    std::unique_ptr<FakeHardwareService> m_service;
};

void tst_LibreHardwareWebSocket::init()
{
    m_capture = std::make_unique<MessageCapture>();
    m_service = std::make_unique<FakeHardwareService>();
}

void tst_LibreHardwareWebSocket::cleanup()
{
    m_service.reset();
    m_capture.reset();
}

void tst_LibreHardwareWebSocket::readsTheConfiguredPort_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<int>("port");
    QTest::newRow("port") << QByteArray("[HWInfoServe]\nport=16000\n") << 16000;
    QTest::newRow("carriage returns") << QByteArray("[HWInfoServe]\r\nport=16000\r\n") << 16000;
    QTest::newRow("other group") << QByteArray("[Other]\nport=16000\n") << -1;
    QTest::newRow("no key") << QByteArray("[HWInfoServe]\nname=x\n") << -1;
    QTest::newRow("not a number") << QByteArray("[HWInfoServe]\nport=abc\n") << 0;
    QTest::newRow("empty value") << QByteArray("[HWInfoServe]\nport=\n") << 0;
    QTest::newRow("empty file") << QByteArray() << -1;
    QTest::newRow("binary") << QByteArray("\x7f\0\xff[HW", 6) << -1;
}

void tst_LibreHardwareWebSocket::readsTheConfiguredPort()
{
    QFETCH(QByteArray, content);
    const QTemporaryDir drive;
    QVERIFY(writeConfiguration(drive.path(), content));
    qputenv("SystemDrive", drive.path().toLocal8Bit());
    QTEST(LibreHardwareWebSocket::readConfiguredPort(), "port");
}

void tst_LibreHardwareWebSocket::looksOnTheSystemDrive_data()
{
    QTest::addColumn<QByteArray>("drive");
    QTest::addColumn<QString>("path");
    QTest::newRow("none") << QByteArray() << configuration(QStringLiteral("C:"));
    QTest::newRow("named") << QByteArray("/no/such") << configuration(QStringLiteral("/no/such"));
    QTest::newRow("cleaned") << QByteArray("/no/./such/")
                             << configuration(QStringLiteral("/no/such"));
}

void tst_LibreHardwareWebSocket::looksOnTheSystemDrive()
{
    QFETCH(QByteArray, drive);
    QFETCH(QString, path);
    qputenv("SystemDrive", drive);
    QCOMPARE(LibreHardwareWebSocket::readConfiguredPort(), -1);
    QCOMPARE(MessageCapture::messages(),
             QStringList(QStringLiteral("Config file not found: ") + quoted(path)));
}

void tst_LibreHardwareWebSocket::keepsItsPortWithoutAConfiguredOne_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("no file") << QByteArray();
    QTest::newRow("no port") << QByteArray("[HWInfoServe]\nname=x\n");
}

void tst_LibreHardwareWebSocket::keepsItsPortWithoutAConfiguredOne()
{
    QFETCH(QByteArray, content);
    const QTemporaryDir drive;
    if (!content.isEmpty())
        QVERIFY(writeConfiguration(drive.path(), content));
    qputenv("SystemDrive", drive.path().toLocal8Bit());
    // Saves the three attempts; it does not matter when the port is taken.
    QWebSocketServer server(QString(), QWebSocketServer::NonSecureMode);
    server.listen(QHostAddress::LocalHost, 15501);
    const LibreHardwareWebSocket client(false);
    QCOMPARE(client.address(), QUrl(QStringLiteral("ws://127.0.0.1:15501")));
}

void tst_LibreHardwareWebSocket::connectsAndGreets()
{
    const LibreHardwareWebSocket client(false);
    QCOMPARE(client.address(), QUrl(QStringLiteral("ws://127.0.0.1:%1").arg(m_service->port())));
    QCOMPARE(MessageCapture::messages(),
             (QStringList{quoted(QStringLiteral("WebSocket 尝试连接第 1 次...")),
                          quoted(QStringLiteral("WebSocket connected")),
                          quoted(QStringLiteral("WebSocket 连接成功"))}));
    QTRY_COMPARE(m_service->received, QStringList(QStringLiteral("哈喽哈喽")));
}

void tst_LibreHardwareWebSocket::fetchesOnConnect()
{
    m_service->replies =
        QStringList{QStringLiteral(R"({"method":"m","code":65,"result":{"a":1}})")};
    const LibreHardwareWebSocket client(true);
    QCOMPARE(MessageCapture::messages().constLast(),
             quoted(QStringLiteral("alldatajson:{\n    \"a\": 1\n}\n")));
    QCOMPARE(m_service->received.constLast(), QString::fromUtf8(request));
}

void tst_LibreHardwareWebSocket::returnsTheResult_data()
{
    QTest::addColumn<QString>("reply");
    QTest::addColumn<QJsonObject>("result");
    const QJsonObject none;
    QTest::newRow("result") << QStringLiteral(R"({"method":"x","code":0,"result":{"a":1}})")
                            << QJsonObject{{QStringLiteral("a"), 1}};
    QTest::newRow("of another method") << QStringLiteral(R"({"method":"other","result":{"a":1}})")
                                       << QJsonObject{{QStringLiteral("a"), 1}};
    QTest::newRow("no result") << QStringLiteral(R"({"code":1})") << none;
    QTest::newRow("result of another type") << QStringLiteral(R"({"result":[1]})") << none;
    QTest::newRow("array") << QStringLiteral("[1]") << none;
    QTest::newRow("no JSON") << QStringLiteral("hello") << none;
    QTest::newRow("empty") << QStringLiteral("") << none;
}

void tst_LibreHardwareWebSocket::returnsTheResult()
{
    QFETCH(QString, reply);
    LibreHardwareWebSocket client(false);
    m_service->replies = QStringList{reply};
    QElapsedTimer timer;
    timer.start();
    QTEST(client.request(request), "result");
    QVERIFY(timer.elapsed() < 2900);
    QCOMPARE(MessageCapture::count(quoted(QStringLiteral("收到消息:") + reply)), 1);
}

void tst_LibreHardwareWebSocket::logsTheCodeAsACharacter_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QChar>("character");
    QTest::newRow("A") << 65 << QChar(QLatin1Char('A'));
    QTest::newRow("of the upper half") << 0xE9 << QChar(0xE9);
    QTest::newRow("beyond") << 0x141 << QChar(QLatin1Char('A'));
}

void tst_LibreHardwareWebSocket::logsTheCodeAsACharacter()
{
    QFETCH(int, code);
    QFETCH(QChar, character);
    LibreHardwareWebSocket client(false);
    m_service->replies =
        QStringList{QStringLiteral(R"({"method":"m","code":%1,"result":{}})").arg(code)};
    client.request(request);
    QCOMPARE(
        MessageCapture::messages().constLast(),
        quoted(QStringLiteral("method:m code:") + character + QStringLiteral(" result:{\n}\n")));
}

void tst_LibreHardwareWebSocket::secondFrameOfAWaitIsDropped()
{
    LibreHardwareWebSocket client(false);
    m_service->replies = QStringList{QStringLiteral(R"({"result":{"n":1}})"),
                                     QStringLiteral(R"({"result":{"n":2}})")};
    const QJsonObject first{{QStringLiteral("n"), 1}};
    QCOMPARE(client.request(request), first);
    m_service->replies = QStringList{QStringLiteral(R"({"result":{"n":3}})")};
    QCOMPARE(client.request(request).size(), 1);
    QCOMPARE(MessageCapture::count(quoted(QStringLiteral("收到消息:{\"result\":{\"n\":2}}"))), 0);
}

void tst_LibreHardwareWebSocket::frameWithoutARequestIsDropped()
{
    const LibreHardwareWebSocket client(false);
    QTRY_COMPARE(m_service->received.size(), 1);
    auto *const link = m_service->findChild<QWebSocket *>();
    QVERIFY(link);
    QSignalSpy pong(link, &QWebSocket::pong);
    MessageCapture::clear();
    link->sendTextMessage(QStringLiteral(R"({"result":{"early":1}})"));
    link->ping(); // Its answer shows that the frame has arrived as well.
    QTRY_COMPARE(pong.count(), 1);
    QCOMPARE(MessageCapture::messages(), QStringList());
}

void tst_LibreHardwareWebSocket::givesUpOnASilentService()
{
    LibreHardwareWebSocket client(false);
    QElapsedTimer timer;
    timer.start();
    QVERIFY(client.request(request).isEmpty());
    QVERIFY(timer.elapsed() >= 2800);
    const QStringList messages = MessageCapture::messages();
    QCOMPARE(messages.at(messages.size() - 3), QStringLiteral("等待响应超时"));
    QCOMPARE(messages.at(messages.size() - 2),
             QStringLiteral("socket 状态: QAbstractSocket::ConnectedState"));
    QVERIFY(messages.constLast().startsWith(QStringLiteral("socket 错误: \"")));
}

void tst_LibreHardwareWebSocket::reconnectsForARequest()
{
    LibreHardwareWebSocket client(false);
    for (QWebSocket *const link : m_service->findChildren<QWebSocket *>())
        link->close();
    QTRY_COMPARE(MessageCapture::count(quoted(QStringLiteral("WebSocket disconnected"))), 1);
    m_service->replies = QStringList{QStringLiteral(R"({"result":{"n":1}})")};
    QCOMPARE(client.request(request).size(), 1);
    QCOMPARE(m_service->connections, 2);
}

void tst_LibreHardwareWebSocket::givesUpWhenTheServiceDies()
{
    LibreHardwareWebSocket client(false);
    m_service->diesOnRequest = true;
    QVERIFY(client.request(request).isEmpty());
    QVERIFY(MessageCapture::messages().contains(QStringLiteral("等待响应超时")));
    QVERIFY(MessageCapture::messages().contains(
        QStringLiteral("socket 状态: QAbstractSocket::UnconnectedState")));
}

void tst_LibreHardwareWebSocket::changesThePort()
{
    LibreHardwareWebSocket client(false);
    FakeHardwareService other;
    client.setPort(other.port());
    QCOMPARE(client.address(), QUrl(QStringLiteral("ws://127.0.0.1:%1").arg(other.port())));
    other.replies = QStringList{QStringLiteral(R"({"result":{"other":1}})")};
    QVERIFY(client.request(request).contains(QStringLiteral("other")));
    QCOMPARE(other.connections, 1);
}

void tst_LibreHardwareWebSocket::takesALongReply()
{
    LibreHardwareWebSocket client(false);
    const QString frame = QStringLiteral(R"({"result":{"a":"%1"}})");
    const auto letters = longestReply - frame.size() + 2;
    m_service->replies = QStringList{frame.arg(QString(letters, QLatin1Char('x')))};
    QCOMPARE(m_service->replies.constFirst().size(), longestReply);
    QCOMPARE(client.request(request).value(QLatin1String("a")).toString().size(), letters);
}

void tst_LibreHardwareWebSocket::takesLittleOfAFlood_data()
{
    QTest::addColumn<QByteArray>("begin");
    QTest::addColumn<QByteArray>("part");
    const QByteArray megabyte(1024 * 1024, 'x');
    const auto header = RawWebSocketService::header;
    QTest::newRow("one frame") << header('\x81', 400 * megabyte.size()) << megabyte;
    QTest::newRow("one binary frame") << header('\x82', 400 * megabyte.size()) << megabyte;
    QTest::newRow("one byte too much") << header('\x81', longestReply + 1) << megabyte;
    QTest::newRow("fragments without end")
        << header('\x01', megabyte.size()) + megabyte << header('\0', megabyte.size()) + megabyte;
}

void tst_LibreHardwareWebSocket::takesLittleOfAFlood()
{
    QFETCH(QByteArray, begin);
    QFETCH(QByteArray, part);
    constexpr qint64 little = 48LL * 1024 * 1024;
    LibreHardwareWebSocket client(false);
    RawWebSocketService service;
    client.setPort(service.port());
    const qint64 before = peakMemory();
    QVERIFY(before > 0);
    QElapsedTimer timer;
    timer.start();
    service.send(begin, part, 400);
    QTRY_VERIFY(service.isForsaken());
    // Qt would wait five seconds for the rest of a frame that is too long for its
    // buffer.
    QVERIFY2(timer.elapsed() < 4000, qPrintable(QString::number(timer.elapsed())));
    QVERIFY2(service.taken() < little, qPrintable(QString::number(service.taken())));
    const qint64 more = peakMemory() - before;
    if (!isSanitized) // A sanitizer keeps freed memory.
        QVERIFY2(more < little, qPrintable(QString::number(more)));

    client.setPort(m_service->port());
    m_service->replies = QStringList{QStringLiteral(R"({"result":{"n":1}})")};
    QCOMPARE(client.request(request).size(), 1);
}

void tst_LibreHardwareWebSocket::threeAttemptsWhenTheServiceIsDown()
{
    // A text that is not a number gives port 0, on which nobody can listen.
    QVERIFY(writeConfiguration(qEnvironmentVariable("SystemDrive"), "[HWInfoServe]\nport=abc\n"));

    QElapsedTimer timer;
    timer.start();
    const LibreHardwareWebSocket client(false);
    QVERIFY(timer.elapsed() >= 11500);
    QVERIFY(timer.elapsed() < 20000);
    QCOMPARE(client.address(), QUrl(QStringLiteral("ws://127.0.0.1:0")));
    QStringList expected;
    for (int attempt = 1; attempt <= 3; ++attempt) {
        expected += quoted(QStringLiteral("WebSocket 尝试连接第 %1 次...").arg(attempt));
        expected += quoted(QStringLiteral("WebSocket 连接失败:Connection refused"));
    }
    QStringList logged = MessageCapture::messages();
    QCOMPARE(logged.takeLast(), QStringLiteral("WebSocket 多次连接失败"));
    QCOMPARE(logged.removeAll(quoted(QStringLiteral("WebSocket disconnected"))), 3);
    QCOMPARE(logged, expected);
}

void tst_LibreHardwareWebSocket::errorIsAWarning()
{
    LibreHardwareWebSocket client(false);
    QVERIFY(QMetaObject::invokeMethod(
        &client, "onError", Q_ARG(QAbstractSocket::SocketError, QAbstractSocket::SocketError())));
    QVERIFY(
        MessageCapture::messages().constLast().startsWith(QStringLiteral("WebSocket error: \"")));
}

QTEST_GUILESS_MAIN(tst_LibreHardwareWebSocket)
#include "tst_librehardwarewebsocket.moc"
