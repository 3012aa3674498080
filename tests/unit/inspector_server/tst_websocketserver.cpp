#include "inspector_server/RequestTable.h"
#include "inspector_server/WebSocketServer.h"
#include "sensors/SystemMonitorLibOwner.h"
#include "sensors/VqSystemMonitorLib.h"
#include "sensors/systemInfor.h"
#include "tests/support/InMemoryLibrary.h"
#include "tests/support/MessageCapture.h"

#include <QJsonDocument>
#include <QSignalSpy>
#include <QWebSocket>
#include <QtTest>

#include <memory>

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
    int replyCount() const { return m_replies.size(); }
    QString reply(int index) const { return m_replies.at(index).at(0).toString(); }
    QWebSocket &socket() { return m_socket; }

private:
    QWebSocket m_socket;
    QSignalSpy m_replies{&m_socket, &QWebSocket::textMessageReceived};
};

} // namespace

class tst_WebSocketServer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void answersRequests_data();
    void answersRequests();
    void answersWithTheDriveTrees();
    void answersUnknownRequestsWithNothing_data();
    void answersUnknownRequestsWithNothing();
    void asksTheLibraryForAllSensors();
    void leavesRequestsUnansweredWithoutALibrary();
    void repliesToTheAskerOnly();
    void ignoresBinaryMessages();
    void dropsAClientThatSendsTooMuch();
    void reportsAPortThatIsTaken();
    void closesItsClients();
};

void tst_WebSocketServer::init()
{
    InMemoryLibrary::reset();
    systemInfor::CpuUsage = 37;
    systemInfor::CpuUsageUnits = QStringLiteral("%");
    systemInfor::CpuTemperature = 45;
    systemInfor::CpuTemperatureUnits = QStringLiteral("°C");
    systemInfor::CpuClock = 4200;
    systemInfor::CpuClockUnits = QStringLiteral("MHz");
    systemInfor::CpuPower = 65.26;
    systemInfor::CpuPowerUnits = QStringLiteral("W");
    systemInfor::CpuVoltage = 1.25;
    systemInfor::CpuVoltageUnits = QStringLiteral("V");
    systemInfor::CpuModel = QStringLiteral("Ryzen 9");
    systemInfor::GpuModel = QStringLiteral("integrated GPU");
    systemInfor::GpuTemperature = 51;
    systemInfor::GpuTemperatureUnits = QStringLiteral("°C");
    systemInfor::GpuClock = 1905;
    systemInfor::GpuClockUnits = QStringLiteral("MHz");
    systemInfor::GpuLoad = 99;
    systemInfor::GpuLoadUnits = QStringLiteral("%");
    systemInfor::GpuMemoryClock = 9501;
    systemInfor::GpuMemoryClockUnits = QStringLiteral("MHz");
    systemInfor::GpuMemoryUsage = 49.9;
    systemInfor::GpuMemoryUsageUnits = QStringLiteral("%");
    systemInfor::GpuMemoryAllocated = 1234567;
    systemInfor::GpuMemoryAllocatedUnits = QStringLiteral("MB");
    systemInfor::GpuPower = 3;
    systemInfor::GpuPowerUnits = QStringLiteral("W");
    systemInfor::GpuVoltage = 0.9125;
    systemInfor::GpuVoltageUnits = QStringLiteral("V");
    systemInfor::SmartInfo = {{QStringLiteral("sda"), QJsonObject()}};
    systemInfor::MemoryLoad = 61;
    systemInfor::MemoryLoadUnits = QStringLiteral("%");
    systemInfor::MemoryUsedMB = 9000;
    systemInfor::MemoryAvailableMB = 6974;
    systemInfor::MemoryTotalMB = 15974;
    systemInfor::MemoryTotalGBRounded = 16;
    systemInfor::NetUpRate = 1.5859375;
    systemInfor::NetUpRateUnits = QStringLiteral("MB/s");
    systemInfor::NetDownRate = 0;
    systemInfor::NetDownRateUnits = QStringLiteral("Kb/s");
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
    QTest::newRow("Gpu Memory Used") << QStringLiteral("1.23457e+06MB");
    QTest::newRow("Gpu Power") << QStringLiteral("3W");
    QTest::newRow("Cpu Model") << QStringLiteral("Ryzen 9");
    QTest::newRow("Gpu Model") << QStringLiteral("integrated GPU");
    QTest::newRow("Gpu Voltage") << QStringLiteral("0.9125V");
    QTest::newRow("Cpu Voltage") << QStringLiteral("1.25V");
    QTest::newRow("Physical Memory Usage") << QStringLiteral("61%");
    QTest::newRow("Network Upload Speed") << QStringLiteral("1.58594MB/s");
    QTest::newRow("Network Download Speed") << QStringLiteral("0Kb/s");
    QTest::newRow("Memory Used MB") << QStringLiteral("9000");
    QTest::newRow("Memory Free MB") << QStringLiteral("6974");
    QTest::newRow("Memory Total MB") << QStringLiteral("15974");
    QTest::newRow("Memory Model") << QStringLiteral("16");
}

void tst_WebSocketServer::answersRequests()
{
    QFETCH(QString, info);
    const QString request = QString::fromLatin1(QTest::currentDataTag());
    const MessageCapture capture;
    LibraryOwner owner;
    WebSocketServer server(0);
    server.setPlugin(&owner);
    Panel panel(server.port());
    QTRY_VERIFY(panel.isConnected());
    panel.ask(request);
    QTRY_COMPARE(panel.replyCount(), 1);
    QCOMPARE(panel.reply(0), QStringLiteral(R"({"event":"%1","info":"%2"})").arg(request, info));
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
    const MessageCapture capture;
    LibraryOwner owner;
    WebSocketServer server(0);
    server.setPlugin(&owner);
    Panel panel(server.port());
    QTRY_VERIFY(panel.isConnected());
    panel.ask(request);
    QTRY_COMPARE(panel.replyCount(), 1);
    QCOMPARE(panel.reply(0), QStringLiteral("{}"));
    QVERIFY(answerRequest(request).isEmpty());
}

void tst_WebSocketServer::asksTheLibraryForAllSensors()
{
    const MessageCapture capture;
    LibraryOwner owner;
    WebSocketServer server(0);
    server.setPlugin(&owner);
    Panel panel(server.port());
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
    const MessageCapture capture;
    const QString line = QStringLiteral("Message received from client: \"Cpu Usage\"");
    LibraryOwner owner;
    WebSocketServer server(0);
    Panel panel(server.port());
    QTRY_VERIFY(panel.isConnected());
    panel.ask(QStringLiteral("Cpu Usage"));
    QTRY_COMPARE(MessageCapture::count(line), 1);
    owner.library.reset();
    server.setPlugin(&owner);
    panel.ask(QStringLiteral("Cpu Usage"));
    QTRY_COMPARE(MessageCapture::count(line), 2);
    {
        LibraryOwner other;
        server.setPlugin(&other);
    }
    panel.ask(QStringLiteral("Cpu Usage"));
    QTRY_COMPARE(MessageCapture::count(line), 3);

    // What is answered now is the first reply.
    owner.library = std::make_unique<VqSystemMonitorLib>(false, nullptr);
    server.setPlugin(&owner);
    panel.ask(QStringLiteral("x"));
    QTRY_COMPARE(panel.replyCount(), 1);
    QCOMPARE(panel.reply(0), QStringLiteral("{}"));
}

void tst_WebSocketServer::repliesToTheAskerOnly()
{
    const MessageCapture capture;
    LibraryOwner owner;
    WebSocketServer server(0);
    server.setPlugin(&owner);
    Panel first(server.port());
    QTRY_VERIFY(first.isConnected());
    Panel second(server.port());
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
    const MessageCapture capture;
    LibraryOwner owner;
    WebSocketServer server(0);
    server.setPlugin(&owner);
    Panel panel(server.port());
    QTRY_VERIFY(panel.isConnected());
    panel.socket().sendBinaryMessage("Cpu Usage");
    panel.ask(QStringLiteral("Memory Model"));
    QTRY_COMPARE(panel.replyCount(), 1);
    QVERIFY(panel.reply(0).contains(QStringLiteral("Memory Model")));
}

void tst_WebSocketServer::dropsAClientThatSendsTooMuch()
{
    const MessageCapture capture;
    LibraryOwner owner;
    WebSocketServer server(0);
    server.setPlugin(&owner);
    Panel flood(server.port());
    QTRY_VERIFY(flood.isConnected());
    flood.ask(QString(1024 * 1024, QLatin1Char('x')));
    QTRY_VERIFY(!flood.isConnected());

    Panel next(server.port());
    QTRY_VERIFY(next.isConnected());
    next.ask(QStringLiteral("Cpu Usage"));
    QTRY_COMPARE(next.replyCount(), 1);
}

void tst_WebSocketServer::reportsAPortThatIsTaken()
{
    const MessageCapture capture;
    const WebSocketServer first(0);
    QCOMPARE(MessageCapture::messages(),
             QStringList(QStringLiteral("WebSocket server started on port %1").arg(first.port())));
    MessageCapture::clear();
    const WebSocketServer second(first.port());
    QCOMPARE(MessageCapture::messages(),
             QStringList(QStringLiteral("WebSocket server failed to start!")));
    QCOMPARE(second.port(), quint16(0));
}

void tst_WebSocketServer::closesItsClients()
{
    const MessageCapture capture;
    auto server = std::make_unique<WebSocketServer>(quint16(0));
    Panel panel(server->port());
    QTRY_VERIFY(panel.isConnected());
    QTRY_COMPARE(MessageCapture::messages().size(), 2);
    server.reset();
    QTRY_VERIFY(!panel.isConnected());
}

QTEST_GUILESS_MAIN(tst_WebSocketServer)
#include "tst_websocketserver.moc"
