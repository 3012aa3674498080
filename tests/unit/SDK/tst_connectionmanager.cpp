#include "SDK/ConnectionManager.h"

#include "SDK/BasePlugin.h"
#include "tests/support/MessageCapture.h"
#include "tests/support/TemporaryWorkingDirectory.h"
#include "tests/support/Waits.h"

#include <QJsonDocument>
#include <QPointer>
#include <QSignalSpy>
#include <QWebSocket>
#include <QWebSocketServer>
#include <QtTest>

#include <cstdlib>
#include <memory>
#include <stdexcept>

namespace {

/// Losing the host ends the process with status 0, which must not look like a passed test.
bool finished = false;

void failUnlessFinished()
{
    if (!finished)
        std::_Exit(EXIT_FAILURE);
}

class CountingPlugin : public BasePlugin
{
public:
    int keyDowns = 0;
    int wakeUps = 0;

    ConnectionManager *connectionManager() const { return mConnectionManager; }

    void KeyDownForAction(const QString & /*action*/, const QString & /*context*/,
                          const QJsonObject & /*payload*/, const QString & /*deviceId*/) override
    {
        ++keyDowns;
    }
    void SystemDidWakeUp() override
    {
        ++wakeUps;
        throw std::runtime_error("the plugin stumbles");
    }
};

} // namespace

class tst_ConnectionManager : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase();

    void introducesItselfToThePlugin();
    void diesWithThePlugin();
    void sendsNothingBeforeRun();
    void registersAndWritesTheFileLog();
    void runsOnce();
    void sendsTitles_data();
    void sendsTitles();
    void sendsImages_data();
    void sendsImages();
    void sendsSettings();
    void dropsPicturesWhileTheHostDoesNotRead();
    void dropsSettingsWhileTheHostDoesNotRead();
    void handsEventsToThePlugin();
    void survivesAnEventThatThrows();
    void ignoresWhatNamesNoEvent_data();
    void ignoresWhatNamesNoEvent();
    void logsMessagesWithoutAPlugin();

private:
    void connectToHost();
    QJsonObject lastMessage() const;

    std::unique_ptr<TemporaryWorkingDirectory> m_directory;
    std::unique_ptr<MessageCapture> m_capture;
    std::unique_ptr<QWebSocketServer> m_host;
    std::unique_ptr<CountingPlugin> m_plugin;
    std::unique_ptr<ConnectionManager> m_manager;
    QPointer<QWebSocket> m_link;
    QStringList m_received;
};

void tst_ConnectionManager::initTestCase()
{
    std::atexit(failUnlessFinished);
}

void tst_ConnectionManager::init()
{
    m_directory = std::make_unique<TemporaryWorkingDirectory>();
    m_capture = std::make_unique<MessageCapture>();
    m_host =
        std::make_unique<QWebSocketServer>(QStringLiteral("host"), QWebSocketServer::NonSecureMode);
    QVERIFY(m_host->listen(QHostAddress::LocalHost));
    m_plugin = std::make_unique<CountingPlugin>();
    m_manager = std::make_unique<ConnectionManager>(m_host->serverPort(), QStringLiteral("A1"),
                                                    QStringLiteral("registerPlugin"),
                                                    QStringLiteral("{}"), m_plugin.get());
    m_received.clear();
}

void tst_ConnectionManager::cleanup()
{
    m_manager.reset();
    m_plugin.reset();
    delete m_link;
    m_host.reset();
    m_capture.reset();
    m_directory.reset();
}

void tst_ConnectionManager::cleanupTestCase()
{
    finished = true;
}

void tst_ConnectionManager::connectToHost()
{
    // Accepted at once, because the registration follows immediately.
    connect(m_host.get(), &QWebSocketServer::newConnection, this, [this] {
        m_link = m_host->nextPendingConnection();
        connect(m_link, &QWebSocket::textMessageReceived, this,
                [this](const QString &text) { m_received.append(text); });
    });
    m_manager->Run();
    QTRY_COMPARE(m_received.size(), 1);
}

QJsonObject tst_ConnectionManager::lastMessage() const
{
    return QJsonDocument::fromJson(m_received.constLast().toUtf8()).object();
}

void tst_ConnectionManager::introducesItselfToThePlugin()
{
    QCOMPARE(m_plugin->connectionManager(), m_manager.get());
}

void tst_ConnectionManager::diesWithThePlugin()
{
    const QPointer<ConnectionManager> manager = m_manager.release();
    m_plugin.reset();
    QVERIFY(manager);
    QTRY_VERIFY(!manager);
}

void tst_ConnectionManager::sendsNothingBeforeRun()
{
    m_manager->SetTitle(QStringLiteral("t"), QStringLiteral("c"), 0, -1);
    m_manager->SetImage(QStringLiteral("i"), QStringLiteral("c"), 0, -1);
    m_manager->SetSettings({}, QStringLiteral("c"));
    connectToHost();
    QVERIFY(m_received.constFirst().contains(QLatin1String("registerPlugin")));
}

void tst_ConnectionManager::registersAndWritesTheFileLog()
{
    connectToHost();
    QCOMPARE(m_received.constFirst(), QStringLiteral(R"({"event":"registerPlugin","uuid":"A1"})"));

    const QByteArray port = QByteArray::number(m_host->serverPort());
    QTRY_COMPARE(m_directory->content(QStringLiteral("log.txt")).count("\r\n"), 3);
    QList<QByteArray> lines = m_directory->content(QStringLiteral("log.txt")).split('\n');
    QVERIFY(lines.at(0).endsWith("] SDK/Logger ws://127.0.0.1:" + port + '\r'));
    QVERIFY(lines.at(1).endsWith("] SDK/Logger {\"event\":\"registerPlugin\",\"uuid\":\"A1\"}\r"));
    QVERIFY(lines.at(2).endsWith("] SDK/Logger Connect-serverPort: " + port + '\r'));
}

void tst_ConnectionManager::runsOnce()
{
    connectToHost();
    const QSignalSpy connections(m_host.get(), &QWebSocketServer::newConnection);
    m_manager->Run();
    m_manager->SetSettings({}, QStringLiteral("c"));
    QTRY_COMPARE(m_received.size(), 2);
    QCOMPARE(connections.size(), 0);
    QCOMPARE(m_directory->content(QStringLiteral("log.txt")).count("ws://127.0.0.1"), 1);
}

void tst_ConnectionManager::sendsTitles_data()
{
    QTest::addColumn<int>("target");
    QTest::addColumn<int>("state");
    QTest::addColumn<QString>("message");
    QTest::newRow("no state")
        << 0 << -1
        << QStringLiteral(
               R"({"context":"c","event":"setTitle","payload":{"target":0,"title":"网速"}})");
    QTest::newRow("state 0")
        << 1 << 0
        << QStringLiteral(
               R"({"context":"c","event":"setTitle","payload":{"state":0,"target":1,"title":"网速"}})");
    QTest::newRow("state 1")
        << 0 << 1
        << QStringLiteral(
               R"({"context":"c","event":"setTitle","payload":{"state":1,"target":0,"title":"网速"}})");
}

void tst_ConnectionManager::sendsTitles()
{
    QFETCH(int, target);
    QFETCH(int, state);
    QFETCH(QString, message);
    connectToHost();
    m_manager->SetTitle(QStringLiteral("网速"), QStringLiteral("c"), target, state);
    QTRY_COMPARE(m_received.size(), 2);
    QCOMPARE(m_received.constLast(), message);
}

void tst_ConnectionManager::sendsImages_data()
{
    QTest::addColumn<QString>("image");
    QTest::addColumn<QString>("sent");
    QTest::newRow("bare") << QStringLiteral("AAAA") << QStringLiteral("data:image/png;base64,AAAA");
    QTest::newRow("with the prefix") << QStringLiteral("data:image/png;base64,AAAA")
                                     << QStringLiteral("data:image/png;base64,AAAA");
    QTest::newRow("the prefix alone")
        << QStringLiteral("data:image/png;base64,") << QStringLiteral("data:image/png;base64,");
    QTest::newRow("the prefix in capitals")
        << QStringLiteral("DATA:IMAGE/PNG;BASE64,AAAA")
        << QStringLiteral("data:image/png;base64,DATA:IMAGE/PNG;BASE64,AAAA");
    QTest::newRow("empty") << QString() << QString();
}

void tst_ConnectionManager::sendsImages()
{
    QFETCH(QString, image);
    QFETCH(QString, sent);
    connectToHost();
    m_manager->SetImage(image, QStringLiteral("c"), 0, -1);
    QTRY_COMPARE(m_received.size(), 2);
    QCOMPARE(lastMessage(), (QJsonObject{{QStringLiteral("event"), QStringLiteral("setImage")},
                                         {QStringLiteral("context"), QStringLiteral("c")},
                                         {QStringLiteral("payload"),
                                          QJsonObject{{QStringLiteral("image"), sent},
                                                      {QStringLiteral("target"), 0}}}}));
}

void tst_ConnectionManager::sendsSettings()
{
    connectToHost();
    m_manager->SetSettings({{QStringLiteral("a"), 1}}, QStringLiteral("c"));
    QTRY_COMPARE(m_received.size(), 2);
    QCOMPARE(m_received.constLast(),
             QStringLiteral(R"({"context":"c","event":"setSettings","payload":{"a":1}})"));
}

void tst_ConnectionManager::dropsPicturesWhileTheHostDoesNotRead()
{
    connectToHost();
    const QString context = QStringLiteral("c");
    const QString megabyte(1024 * 1024, QLatin1Char('A'));
    // The host runs on this thread, so it reads nothing meanwhile.
    for (int picture = 0; picture < 200; ++picture)
        m_manager->SetImage(megabyte, context, 0, -1);
    m_manager->SetTitle(QStringLiteral("dropped"), context, 0, -1);
    m_manager->SetSettings({{QStringLiteral("kept"), 1}}, context);

    QTRY_VERIFY(m_received.constLast().contains(QStringLiteral("kept")));
    // The registration, the settings, and pictures between them; the system buffers some as well.
    const auto pictures = m_received.size() - 2;
    QVERIFY2(pictures >= 32 && pictures <= 64, qPrintable(QString::number(pictures)));
    QVERIFY(m_received.filter(QStringLiteral("dropped")).isEmpty());
    QCOMPARE(m_directory->content(QStringLiteral("log.txt"))
                 .count("The host does not read: pictures are dropped until it does\r\n"),
             1);

    m_manager->SetTitle(QStringLiteral("after"), context, 0, -1);
    m_manager->SetImage(megabyte, context, 0, -1);
    QTRY_COMPARE(m_received.size(), pictures + 4);
}

void tst_ConnectionManager::dropsSettingsWhileTheHostDoesNotRead()
{
    connectToHost();
    const QString context = QStringLiteral("c");
    const QJsonObject megabyte{{QStringLiteral("text"), QString(1024 * 1024, QLatin1Char('A'))}};
    // The host runs on this thread, so it reads nothing meanwhile.
    constexpr int sent = 200;
    for (int settings = 0; settings < sent; ++settings)
        m_manager->SetSettings(megabyte, context);
    m_manager->SetTitle(QStringLiteral("dropped"), context, 0, -1);

    const auto content = [this] { return m_directory->content(QStringLiteral("log.txt")); };
    QCOMPARE(content().count("The host does not read: settings are dropped until it does\r\n"), 1);
    // Repeatedly, because nothing else shows when the host has read on.
    const auto resend = [&] {
        m_manager->SetSettings({{QStringLiteral("after"), 1}}, context);
        return m_received.constLast().contains(QStringLiteral("after"));
    };
    QTRY_VERIFY(resend());
    // The system buffers some as well.
    const auto taken = m_received.filter(QStringLiteral("AAAA")).size();
    QVERIFY2(taken >= 64 && taken <= 128, qPrintable(QString::number(taken)));
    QVERIFY(m_received.filter(QStringLiteral("dropped")).isEmpty());
}

void tst_ConnectionManager::handsEventsToThePlugin()
{
    connectToHost();
    const QString text = QStringLiteral(R"({"event":"keyDown"})");
    m_link->sendTextMessage(text);
    QTRY_COMPARE(m_plugin->keyDowns, 1);
    QCOMPARE(MessageCapture::count(MessageCapture::quoted(QStringLiteral("OnMessage: ") + text)),
             1);
}

void tst_ConnectionManager::survivesAnEventThatThrows()
{
    connectToHost();
    m_link->sendTextMessage(QStringLiteral(R"({"event":"systemDidWakeUp"})"));
    m_link->sendTextMessage(QStringLiteral(R"({"event":"keyDown"})"));
    QTRY_COMPARE(m_plugin->keyDowns, 1);
    QCOMPARE(m_plugin->wakeUps, 1);
}

void tst_ConnectionManager::ignoresWhatNamesNoEvent_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("unknown event") << QStringLiteral(R"({"event":"keydown","action":"a"})");
    QTest::newRow("no event") << QStringLiteral(R"({"action":"a","context":"c"})");
    QTest::newRow("appearing without action")
        << QStringLiteral(R"({"event":"willAppear","context":"c"})");
    QTest::newRow("audio devices") << QStringLiteral(R"({"event":"GetAudioDevList"})");
    QTest::newRow("not JSON") << QStringLiteral("keyDown");
    QTest::newRow("empty") << QString();
}

void tst_ConnectionManager::ignoresWhatNamesNoEvent()
{
    QFETCH(QString, text);
    m_manager->OnMessage(text);
    QCOMPARE(MessageCapture::messages(),
             QStringList(MessageCapture::quoted(QStringLiteral("OnMessage: ") + text)));
    QVERIFY(m_directory->content(QStringLiteral("log.txt")).isEmpty());
    QCOMPARE(m_plugin->keyDowns + m_plugin->wakeUps, 0);
}

void tst_ConnectionManager::logsMessagesWithoutAPlugin()
{
    ConnectionManager manager(1, QStringLiteral("A1"), QStringLiteral("r"), QString(), nullptr);
    manager.OnMessage(QStringLiteral("{}"));
    QCOMPARE(MessageCapture::messages(), QStringList(QStringLiteral("\"OnMessage: {}\"")));
}

QTEST_GUILESS_MAIN(tst_ConnectionManager)
#include "tst_connectionmanager.moc"
