#include "inspector_server/Acceptor.h"
#include "inspector_server/RequestTable.h"
#include "inspector_server/WebSocketServer.h"
#include "sensors/SystemMonitorLibOwner.h"
#include "sensors/VqSystemMonitorLib.h"
#include "sensors/systemInfor.h"
#include "tests/support/InMemoryLibrary.h"
#include "tests/support/MessageCapture.h"
#include "tests/support/RawPanel.h"
#include "tests/support/SampleSnapshot.h"
#include "tests/support/Waits.h"
#include "tests/support/Wine.h"

#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QMetaMethod>
#include <QSignalSpy>
#include <QWebSocket>
#include <QtTest>

#include <algorithm>
#include <memory>
#include <vector>

Q_DECLARE_METATYPE(int *)

namespace {

class LibraryOwner : public QObject, public SystemMonitorLibOwner
{
    Q_OBJECT
    Q_INTERFACES(SystemMonitorLibOwner)

public:
    VqSystemMonitorLib *systemMonitorLib() const override { return library.get(); }

    std::unique_ptr<VqSystemMonitorLib> library =
        std::make_unique<VqSystemMonitorLib>(false, nullptr);
};

QJsonValue answer(const char *request)
{
    return answerRequest(QString::fromLatin1(request)).value(QStringLiteral("info"));
}

QJsonArray array(const QByteArray &text)
{
    return QJsonDocument::fromJson(text).array();
}

QJsonObject sensorsOfSize(int bytes)
{
    return {{QStringLiteral("group"), QString(bytes, QLatin1Char('x'))}};
}

/// Pings of the maximum size, masked by 0.
QByteArray pings(int count)
{
    return (QByteArray("\x89\xfd") + QByteArray(4, '\0') + QByteArray(125, 'x')).repeated(count);
}

/// One settings panel.
class Panel
{
public:
    explicit Panel(quint16 port)
    {
        m_socket.open(QUrl(QStringLiteral("ws://127.0.0.1:%1").arg(port)));
    }

    bool isConnected() const { return m_socket.state() == QAbstractSocket::ConnectedState; }
    void ask(const QString &request) { m_socket.sendTextMessage(request); }
    void close() { m_socket.close(); }
    int replyCount() const { return static_cast<int>(m_replies.size()); }
    QString reply(int index) const { return m_replies.at(index).at(0).toString(); }
    QWebSocket &socket() { return m_socket; }

private:
    QWebSocket m_socket;
    QSignalSpy m_replies{&m_socket, &QWebSocket::textMessageReceived};
};

/// How many clients the server has let go. Who does not read need not notice it.
QStringList::size_type dropped()
{
    return MessageCapture::messages().filter(QStringLiteral("Connection disconnected")).size();
}

} // namespace

class tst_WebSocketServer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void hasItsSlotsInOrder();
    void answersRequests_data();
    void answersRequests();
    void answersWithSixDigits();
    void answersWithTheDriveTrees();
    void answersWithEveryDrive();
    void answersWithNoDrives();
    void answersWithEveryPlaybackDevice();
    void answersUnsigned_data();
    void answersUnsigned();
    void answersUnknownRequestsWithNothing_data();
    void answersUnknownRequestsWithNothing();
    void asksTheLibraryForAllSensors();
    void leavesRequestsUnansweredWithoutALibrary();
    void repliesToTheAskerOnly();
    void ignoresBinaryMessages();
    void dropsAClientThatSendsTooMuch();
    void takesLittleOfAHandshakeWithoutEnd();
    void takesFewConnectionsWithoutAHandshake();
    void refusesWhatIsNoHandshake();
    void answersWhatComesWithTheHandshake();
    void answersAllThatIsAskedAtOnce();
    void letsRequestsWait();
    void servesOneAfterTheOther();
    void dropsAClientThatAsksTooOften();
    void dropsAClientThatReadsNothing();
    void dropsAClientThatReadsNoPongs();
    void boundsWhatClientsLeaveUnreadTogether();
    void forgetsWhatClientsHaveRead();
    void outlivesAClientThatGoesInTheMiddleOfAnAnswer();
    void servesManyClients();
    void dropsTheOldestOfTooManyClients();
    void reportsAPortThatIsTaken();
    void closesItsClients();

private:
    std::unique_ptr<MessageCapture> m_capture;
    std::unique_ptr<LibraryOwner> m_owner;
    std::unique_ptr<WebSocketServer> m_server;
};

void tst_WebSocketServer::init()
{
    InMemoryLibrary::reset();
    fillSnapshot();
    m_capture = std::make_unique<MessageCapture>();
    m_owner = std::make_unique<LibraryOwner>();
    m_server = std::make_unique<WebSocketServer>(quint16(0));
    m_server->setPlugin(m_owner.get());
}

void tst_WebSocketServer::cleanup()
{
    m_server.reset();
    m_owner.reset();
    m_capture.reset();
}

void tst_WebSocketServer::hasItsSlotsInOrder()
{
    const QMetaObject &meta = WebSocketServer::staticMetaObject;
    QStringList slots;
    for (int index = meta.methodOffset(); index < meta.methodCount(); ++index) {
        const QMetaMethod method = meta.method(index);
        QCOMPARE(method.methodType(), QMetaMethod::Slot);
        slots.append(QString::fromLatin1(method.methodSignature()));
    }
    QCOMPARE(slots, (QStringList{QStringLiteral("onNewConnection()"),
                                 QStringLiteral("onTextMessageReceived(QString)"),
                                 QStringLiteral("onDisconnected()")}));
}

void tst_WebSocketServer::answersRequests_data()
{
    QTest::addColumn<QString>("info");
    QTest::newRow("Cpu Usage") << QStringLiteral("37%");
    QTest::newRow("Cpu Temperature") << QStringLiteral("45°C");
    QTest::newRow("Cpu Clock") << QStringLiteral("4200MHz");
    QTest::newRow("Cpu Power") << QStringLiteral("65.26W");
    QTest::newRow("Gpu Temperature") << QStringLiteral("51°C");
    QTest::newRow("Gpu Core Clock") << QStringLiteral("1905MHz");
    QTest::newRow("Gpu Core Utility") << QStringLiteral("99%");
    QTest::newRow("Gpu Memory Clock") << QStringLiteral("9501MHz");
    QTest::newRow("Gpu Memory Utility") << QStringLiteral("49.9%");
    QTest::newRow("Gpu Memory Used") << QStringLiteral("2048MB");
    QTest::newRow("Gpu Power") << QStringLiteral("3W");
    QTest::newRow("Cpu Model") << QStringLiteral("Ryzen 9 %1");
    QTest::newRow("Gpu Model") << QStringLiteral("integrated GPU");
    QTest::newRow("Gpu Voltage") << QStringLiteral("0.9127V");
    QTest::newRow("Cpu Voltage") << QStringLiteral("1.25V");
    QTest::newRow("Physical Memory Usage") << QStringLiteral("61%");
    QTest::newRow("Network Upload Speed") << QStringLiteral("1.24Kb/s");
    QTest::newRow("Network Download Speed") << QStringLiteral("3MB/s");
    QTest::newRow("Memory Used MB") << QStringLiteral("14592");
    QTest::newRow("Memory Free MB") << QStringLiteral("1536");
    QTest::newRow("Memory Total MB") << QStringLiteral("16128");
    QTest::newRow("Memory Model") << QStringLiteral("16");
    QTest::newRow("totalDisksFreeSpace") << QStringLiteral("120");
    QTest::newRow("totalDisksTotalSpace") << QStringLiteral("480");
    QTest::newRow("defaultAudioEndpointVolume") << QStringLiteral("35");
}

void tst_WebSocketServer::answersRequests()
{
    QFETCH(QString, info);
    const QString request = QString::fromLatin1(QTest::currentDataTag());
    Panel panel(m_server->port());
    QTRY_VERIFY(panel.isConnected());
    panel.ask(request);
    QTRY_COMPARE(panel.replyCount(), 1);
    QCOMPARE(panel.reply(0), QStringLiteral(R"({"event":"%1","info":"%2"})").arg(request, info));
}

void tst_WebSocketServer::answersWithSixDigits()
{
    systemInfor::GpuMemoryAllocated = 1234567;
    QCOMPARE(answer("Gpu Memory Used"), QJsonValue(QStringLiteral("1.23457e+06MB")));
}

void tst_WebSocketServer::answersWithEveryDrive()
{
    // The second drive does not answer, so it is missing in the other lists.
    QCOMPARE(answer("drives"),
             QJsonValue(array(R"([{"driveName":"C:\\","volumeName":"System","freeSpaceGB":120,
                                   "freeSpacePercent":25},
                                  {"driveName":"D:\\","volumeName":"","freeSpaceGB":0,
                                   "freeSpacePercent":0}])")));
}

void tst_WebSocketServer::answersWithNoDrives()
{
    systemInfor::DriveRoots.clear();
    QCOMPARE(answer("drives"), QJsonValue(QJsonArray()));
}

void tst_WebSocketServer::answersWithEveryPlaybackDevice()
{
    QCOMPARE(answer("AllAudioEndpointVolume"),
             QJsonValue(array(R"([{"AudioNames":"Speakers","AudioNameszf":35.5},
                                  {"AudioNames":"Headset","AudioNameszf":-1}])")));
    systemInfor::AudioDeviceVolumes = {0.1F};
    QCOMPARE(answer("AllAudioEndpointVolume")
                 .toArray()
                 .at(0)
                 .toObject()
                 .value(QStringLiteral("AudioNameszf")),
             QJsonValue(0.10000000149011612));
}

void tst_WebSocketServer::answersUnsigned_data()
{
    QTest::addColumn<int *>("reading");
    QTest::newRow("defaultAudioEndpointVolume") << &systemInfor::AudioVolume;
    QTest::newRow("Memory Model") << &systemInfor::MemoryTotalGBRounded;
}

void tst_WebSocketServer::answersUnsigned()
{
    QFETCH(int *, reading);
    *reading = -1;
    QCOMPARE(answer(QTest::currentDataTag()), QJsonValue(QStringLiteral("4294967295")));
}

void tst_WebSocketServer::answersWithTheDriveTrees()
{
    const QString request = QStringLiteral("Disk Temperature");
    QCOMPARE(answerRequest(request),
             (QJsonObject{{QStringLiteral("event"), request},
                          {QStringLiteral("info"), systemInfor::SmartInfo}}));
}

void tst_WebSocketServer::answersUnknownRequestsWithNothing_data()
{
    QTest::addColumn<QString>("request");
    QTest::newRow("lower case") << QStringLiteral("cpu usage");
    QTest::newRow("with a blank") << QStringLiteral("Cpu Usage ");
    QTest::newRow("JSON") << QStringLiteral(R"({"event":"Cpu Usage"})");
    QTest::newRow("chinese") << QStringLiteral("内存");
    QTest::newRow("long") << QString(10000, QLatin1Char('x'));
}

void tst_WebSocketServer::answersUnknownRequestsWithNothing()
{
    QFETCH(QString, request);
    Panel panel(m_server->port());
    QTRY_VERIFY(panel.isConnected());
    panel.ask(request);
    QTRY_COMPARE(panel.replyCount(), 1);
    QCOMPARE(panel.reply(0), QStringLiteral("{}"));
    QVERIFY(answerRequest(request).isEmpty());
}

void tst_WebSocketServer::asksTheLibraryForAllSensors()
{
    Panel panel(m_server->port());
    QTRY_VERIFY(panel.isConnected());
    for (const QString &group : {QStringLiteral("one"), QStringLiteral("two")}) {
        InMemoryLibrary::allSensors = {{group, QJsonObject()}};
        const int before = panel.replyCount();
        panel.ask(QStringLiteral("GetAllSensorsData"));
        QTRY_COMPARE(panel.replyCount(), before + 1);
        QCOMPARE(panel.reply(before), QStringLiteral(R"({"%1":{}})").arg(group));
    }
}

void tst_WebSocketServer::leavesRequestsUnansweredWithoutALibrary()
{
    const QString line = QStringLiteral("Message received from client: \"Cpu Usage\"");
    m_server->setPlugin(nullptr);
    Panel panel(m_server->port());
    QTRY_VERIFY(panel.isConnected());
    panel.ask(QStringLiteral("Cpu Usage"));
    QTRY_COMPARE(MessageCapture::count(line), 1);
    m_owner->library.reset();
    m_server->setPlugin(m_owner.get());
    panel.ask(QStringLiteral("Cpu Usage"));
    QTRY_COMPARE(MessageCapture::count(line), 2);
    {
        LibraryOwner other;
        m_server->setPlugin(&other);
    }
    panel.ask(QStringLiteral("Cpu Usage"));
    QTRY_COMPARE(MessageCapture::count(line), 3);

    // The reply to this request is the first one.
    m_owner->library = std::make_unique<VqSystemMonitorLib>(false, nullptr);
    m_server->setPlugin(m_owner.get());
    panel.ask(QStringLiteral("x"));
    QTRY_COMPARE(panel.replyCount(), 1);
    QCOMPARE(panel.reply(0), QStringLiteral("{}"));
}

void tst_WebSocketServer::repliesToTheAskerOnly()
{
    Panel first(m_server->port());
    QTRY_VERIFY(first.isConnected());
    Panel second(m_server->port());
    QTRY_VERIFY(second.isConnected());
    QTRY_COMPARE(
        MessageCapture::count(QStringLiteral("New connection established. Total connections: 2")),
        1);
    first.ask(QStringLiteral("Cpu Usage"));
    second.ask(QStringLiteral("Memory Model"));
    QTRY_COMPARE(first.replyCount(), 1);
    QTRY_COMPARE(second.replyCount(), 1);
    QVERIFY(first.reply(0).contains(QStringLiteral("37%")));
    QVERIFY(second.reply(0).contains(QStringLiteral("16")));

    first.close();
    QTRY_COMPARE(
        MessageCapture::count(QStringLiteral("Connection disconnected. Remaining connections: 1")),
        1);
    second.ask(QStringLiteral("Cpu Usage"));
    QTRY_COMPARE(second.replyCount(), 2);
}

void tst_WebSocketServer::ignoresBinaryMessages()
{
    Panel panel(m_server->port());
    QTRY_VERIFY(panel.isConnected());
    panel.socket().sendBinaryMessage("Cpu Usage");
    panel.ask(QStringLiteral("Memory Model"));
    QTRY_COMPARE(panel.replyCount(), 1);
    QVERIFY(panel.reply(0).contains(QStringLiteral("Memory Model")));
}

void tst_WebSocketServer::dropsAClientThatSendsTooMuch()
{
    Panel flood(m_server->port());
    QTRY_VERIFY(flood.isConnected());
    flood.ask(QString(1024 * 1024, QLatin1Char('x')));
    QTRY_VERIFY(!flood.isConnected());

    Panel next(m_server->port());
    QTRY_VERIFY(next.isConnected());
    next.ask(QStringLiteral("Cpu Usage"));
    QTRY_COMPARE(next.replyCount(), 1);
}

void tst_WebSocketServer::takesLittleOfAHandshakeWithoutEnd()
{
    constexpr int most = 16 * 1024;
    RawPanel endless(m_server->port(), "GET /" + QByteArray(40 * most, 'x'));
    const auto taken = [this] {
        const auto sockets = m_server->findChildren<QTcpSocket *>();
        return sockets.isEmpty() ? qint64(0) : sockets.constFirst()->bytesAvailable();
    };
    QTRY_VERIFY(taken() > 0);
    QTRY_COMPARE(endless.unsent(), qint64(0));
    QTRY_COMPARE(taken(), qint64(most));
    QTRY_VERIFY(endless.isGone());

    Panel next(m_server->port());
    QTRY_VERIFY(next.isConnected());
}

void tst_WebSocketServer::takesFewConnectionsWithoutAHandshake()
{
    QElapsedTimer time;
    time.start();
    std::vector<std::unique_ptr<RawPanel>> silent;
    for (int client = 0; client < 2 * Acceptor::mostNewcomers; ++client)
        silent.push_back(std::make_unique<RawPanel>(m_server->port(), "GET"));
    const auto isGone = [](const auto &client) { return client->isGone(); };
    // The oldest are dropped before their three seconds are over; the newest stay.
    QTRY_COMPARE(std::count_if(silent.begin(), silent.end(), isGone), Acceptor::mostNewcomers);
    QVERIFY2(time.elapsed() < 2500, qPrintable(QString::number(time.elapsed())));
    QVERIFY(std::all_of(silent.begin(), silent.begin() + Acceptor::mostNewcomers, isGone));
    Panel panel(m_server->port());
    QTRY_VERIFY(panel.isConnected());
    QVERIFY(MessageCapture::messages().filter(QStringLiteral("New connection")).size() == 1);
}

void tst_WebSocketServer::refusesWhatIsNoHandshake()
{
    RawPanel rude(m_server->port(), "GET / HTTP/1.1\r\nHost: localhost\r\n\r\n");
    QElapsedTimer time;
    time.start();
    QTRY_VERIFY(rude.isGone());
    QVERIFY2(time.elapsed() < 2000, qPrintable(QString::number(time.elapsed())));
    QTRY_VERIFY(m_server->findChildren<QTcpSocket *>().isEmpty());
    Panel panel(m_server->port());
    QTRY_VERIFY(panel.isConnected());
}

void tst_WebSocketServer::answersWhatComesWithTheHandshake()
{
    RawPanel hasty(m_server->port());
    hasty.ask("Cpu Usage");
    QTRY_VERIFY(hasty.hasBegunToReceive());
}

void tst_WebSocketServer::answersAllThatIsAskedAtOnce()
{
    constexpr int requests = 450;
    Panel panel(m_server->port());
    QTRY_VERIFY(panel.isConnected());
    for (int request = 0; request < requests; ++request) {
        panel.ask(request % 2 == 0 ? QStringLiteral("Cpu Usage")
                                   : QStringLiteral("GetAllSensorsData"));
    }
    QTRY_COMPARE(panel.replyCount(), requests);
    QVERIFY(panel.isConnected());
    QCOMPARE(InMemoryLibrary::queries.count(QStringLiteral("getAllSensorsData")), requests / 2);
}

void tst_WebSocketServer::letsRequestsWait()
{
    // Twice the burst; the rest takes a second or more.
    constexpr int requests = 8;
    const QString longRequest(60 * 1024, QLatin1Char('x'));
    Panel panel(m_server->port());
    QTRY_VERIFY(panel.isConnected());
    QElapsedTimer time;
    time.start();
    for (int request = 0; request < requests; ++request)
        panel.ask(longRequest);
    const auto logged = [&longRequest] {
        return MessageCapture::count(
            QStringLiteral("Message received from client: \"%1\"").arg(longRequest));
    };
    QTRY_VERIFY(panel.replyCount() > 0);
    QVERIFY(logged() < requests);
    QTRY_COMPARE(panel.replyCount(), requests);
    QVERIFY2(time.elapsed() >= 1000, qPrintable(QString::number(time.elapsed())));
    QCOMPARE(logged(), requests);
    for (int request = 0; request < requests; ++request)
        QCOMPARE(panel.reply(request), QStringLiteral("{}"));
    QVERIFY(panel.isConnected());
}

void tst_WebSocketServer::servesOneAfterTheOther()
{
    // Twice the burst, of which a hundred wait in the server.
    constexpr int many = 900;
    const QString request(600, QLatin1Char('x'));
    Panel greedy(m_server->port());
    Panel modest(m_server->port());
    QTRY_VERIFY(greedy.isConnected() && modest.isConnected());
    for (int asked = 0; asked < many; ++asked)
        greedy.ask(request);
    QTRY_VERIFY(greedy.replyCount() > many / 3);
    constexpr int some = 4;
    const int before = greedy.replyCount();
    for (int asked = 1; asked <= some; ++asked) {
        modest.ask(QStringLiteral("Cpu Usage"));
        QTRY_COMPARE(modest.replyCount(), asked);
    }
    // Otherwise it would wait for all hundred of them each time, which gives 460.
    const int meanwhile = greedy.replyCount() - before;
    QVERIFY2(meanwhile < 300, qPrintable(QString::number(meanwhile)));
    QTRY_COMPARE(greedy.replyCount(), many);
}

void tst_WebSocketServer::dropsAClientThatAsksTooOften()
{
    Panel flood(m_server->port());
    Panel steady(m_server->port());
    QTRY_VERIFY(flood.isConnected() && steady.isConnected());
    for (int request = 0; request < 20000; ++request)
        flood.ask(QStringLiteral("Cpu Usage"));
    steady.ask(QStringLiteral("Cpu Usage"));
    QTRY_COMPARE(steady.replyCount(), 1);
    QTRY_VERIFY(!flood.isConnected());
    QVERIFY2(flood.replyCount() < 5000, qPrintable(QString::number(flood.replyCount())));
    QVERIFY(steady.isConnected());
}

void tst_WebSocketServer::dropsAClientThatReadsNothing()
{
    // One answer is about a fifteenth of what clients may leave unread.
    InMemoryLibrary::allSensors = sensorsOfSize(800 * 1024);
    RawPanel deaf(m_server->port());
    QTRY_VERIFY(deaf.isConnected());
    int requests = 0;
    QTRY_VERIFY((deaf.ask("GetAllSensorsData"), ++requests, dropped() > 0));
    QVERIFY2(requests < 200, qPrintable(QString::number(requests)));
    Panel next(m_server->port());
    QTRY_VERIFY(next.isConnected());
    next.ask(QStringLiteral("Cpu Usage"));
    QTRY_COMPARE(next.replyCount(), 1);
}

void tst_WebSocketServer::dropsAClientThatReadsNoPongs()
{
    RawPanel deaf(m_server->port());
    QTRY_VERIFY(deaf.isServed());
    const QByteArray burst = pings(8000);
    qint64 sent = 0;
    // No more than the server takes.
    const auto sendOn = [&] {
        if (deaf.unsent() > burst.size())
            return;
        deaf.send(burst);
        sent += burst.size();
    };
    QTRY_VERIFY_WITH_TIMEOUT((sendOn(), dropped() > 0), 90000);
    QVERIFY2(sent < 200 * 1024 * 1024, qPrintable(QString::number(sent)));
    QCOMPARE(
        MessageCapture::count(QStringLiteral("Connection disconnected. Remaining connections: 0")),
        1);
}

void tst_WebSocketServer::boundsWhatClientsLeaveUnreadTogether()
{
    constexpr int clients = 12;
    // Wine does not limit what the system buffers, some 4 MB of each answer.
    const int answer = (isUnderWine() ? 8 : 2) * 1024 * 1024;
    // Too little to drop one of them for its own answer.
    QVERIFY(answer < WebSocketServer::mostHeld && clients * answer > WebSocketServer::mostHeld);
    InMemoryLibrary::allSensors = sensorsOfSize(answer);
    Panel other(m_server->port());
    QTRY_VERIFY(other.isConnected());
    std::vector<std::unique_ptr<RawPanel>> deaf;
    for (int client = 0; client < clients; ++client) {
        deaf.push_back(std::make_unique<RawPanel>(m_server->port()));
        QTRY_VERIFY(deaf.back()->isServed());
    }
    QElapsedTimer time;
    time.start();
    for (const auto &client : deaf)
        client->ask("GetAllSensorsData");
    // Under a sanitizer one answer takes the time that all clients together have in some seconds.
    QTRY_COMPARE(InMemoryLibrary::queries.count(QStringLiteral("getAllSensorsData")), clients);
    if (time.elapsed() >= 5000)
        QSKIP("On this slow machine they may have been dropped for reading nothing for so long");
    QVERIFY2(dropped() > 0 && dropped() < clients, qPrintable(QString::number(dropped())));
    other.ask(QStringLiteral("Cpu Usage"));
    QTRY_COMPARE(other.replyCount(), 1);
}

void tst_WebSocketServer::forgetsWhatClientsHaveRead()
{
    constexpr int clients = 7;
    constexpr int answer = 2 * 1024 * 1024;
    static_assert(clients * answer > WebSocketServer::mostHeld);
    InMemoryLibrary::allSensors = sensorsOfSize(answer);
    std::vector<std::unique_ptr<Panel>> panels;
    for (int client = 0; client < clients; ++client) {
        panels.push_back(std::make_unique<Panel>(m_server->port()));
        Panel &panel = *panels.back();
        QTRY_VERIFY(panel.isConnected());
        panel.ask(QStringLiteral("GetAllSensorsData"));
        QTRY_COMPARE(panel.replyCount(), 1);
    }
    panels.front()->ask(QStringLiteral("Cpu Usage"));
    QTRY_COMPARE(panels.front()->replyCount(), 2);
    for (const auto &panel : panels)
        QVERIFY(panel->isConnected());
}

void tst_WebSocketServer::outlivesAClientThatGoesInTheMiddleOfAnAnswer()
{
    // More than the system takes at once, so that the server is still sending.
    InMemoryLibrary::allSensors = sensorsOfSize(12 * 1024 * 1024);
    RawPanel hasty(m_server->port());
    QTRY_VERIFY(hasty.isServed());
    hasty.ask("GetAllSensorsData");
    QTRY_VERIFY(hasty.hasBegunToReceive());
    hasty.abort();
    QTRY_COMPARE(
        MessageCapture::count(QStringLiteral("Connection disconnected. Remaining connections: 0")),
        1);
    Panel next(m_server->port());
    QTRY_VERIFY(next.isConnected());
    next.ask(QStringLiteral("Cpu Usage"));
    QTRY_COMPARE(next.replyCount(), 1);
}

void tst_WebSocketServer::servesManyClients()
{
    std::vector<std::unique_ptr<Panel>> panels;
    for (int client = 0; client < 50; ++client)
        panels.push_back(std::make_unique<Panel>(m_server->port()));
    for (const auto &panel : panels)
        QTRY_VERIFY(panel->isConnected());
    for (const auto &panel : panels)
        panel->ask(QStringLiteral("Cpu Usage"));
    for (const auto &panel : panels) {
        QTRY_COMPARE(panel->replyCount(), 1);
        QCOMPARE(panel->reply(0), QStringLiteral(R"({"event":"Cpu Usage","info":"37%"})"));
    }
    panels.resize(1);
    QTRY_COMPARE(
        MessageCapture::count(QStringLiteral("Connection disconnected. Remaining connections: 1")),
        1);
    panels.front()->ask(QStringLiteral("Memory Model"));
    QTRY_COMPARE(panels.front()->replyCount(), 2);
}

void tst_WebSocketServer::dropsTheOldestOfTooManyClients()
{
    std::vector<std::unique_ptr<Panel>> panels;
    for (int client = 0; client < WebSocketServer::mostClients + 1; ++client) {
        panels.push_back(std::make_unique<Panel>(m_server->port()));
        QTRY_VERIFY(panels.back()->isConnected());
    }
    QTRY_VERIFY(!panels.front()->isConnected());
    for (std::size_t client = 1; client < panels.size(); ++client)
        QVERIFY(panels.at(client)->isConnected());
    panels.back()->ask(QStringLiteral("Cpu Usage"));
    QTRY_COMPARE(panels.back()->replyCount(), 1);
}

void tst_WebSocketServer::reportsAPortThatIsTaken()
{
    QCOMPARE(
        MessageCapture::messages(),
        QStringList(QStringLiteral("WebSocket server started on port %1").arg(m_server->port())));
    MessageCapture::clear();
    const WebSocketServer second(m_server->port());
    QCOMPARE(MessageCapture::messages(),
             QStringList(QStringLiteral("WebSocket server failed to start!")));
    QCOMPARE(second.port(), quint16(0));
}

void tst_WebSocketServer::closesItsClients()
{
    Panel panel(m_server->port());
    QTRY_VERIFY(panel.isConnected());
    QTRY_COMPARE(MessageCapture::messages().size(), 2);
    m_server.reset();
    QTRY_VERIFY(!panel.isConnected());
}

QTEST_GUILESS_MAIN(tst_WebSocketServer)
#include "tst_websocketserver.moc"
