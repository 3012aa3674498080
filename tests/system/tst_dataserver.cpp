#include "tests/support/DataServerClient.h"
#include "tests/support/Json.h"
#include "tests/support/RawPanel.h"
#include "tests/support/RunningPlugin.h"
#include "tests/support/Waits.h"

#include <QElapsedTimer>
#include <QRegularExpression>
#include <QTcpServer>
#include <QtTest>

#include <memory>

class tst_DataServer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();

    void answers_data();
    void answers();
    void answersEverySensor();
    void answersUnknownRequestsEmptily_data();
    void answersUnknownRequestsEmptily();
    void answersEachClientItsOwn();
    void countsItsClients();
    void serves_data();
    void serves();
    void outlivesRudeClients();
    void refusesAHugeFrame();

private:
    std::unique_ptr<RunningPlugin> m_plugin;
    std::unique_ptr<DataServerClient> m_panel;
};

void tst_DataServer::initTestCase()
{
    m_plugin = std::make_unique<RunningPlugin>();
    QVERIFY(m_plugin->start());
    m_panel = std::make_unique<DataServerClient>();
    QVERIFY(m_panel->open());
}

void tst_DataServer::cleanupTestCase()
{
    QVERIFY(m_plugin->process.isRunning());
    m_panel.reset();
    m_plugin.reset();
}

void tst_DataServer::answers_data()
{
    QTest::addColumn<QString>("info");
    const auto row = [](const char *request, const char *info) {
        QTest::newRow(request) << QString::fromLatin1(info);
    };
    const char *const rate = R"(\d+(\.\d+)?(e[+-]\d+)?(Kb|MB|GB)/s)";
    row("Cpu Usage", "\\d{1,3}%");
    row("Physical Memory Usage", "\\d{1,3}%");
    row("Network Upload Speed", rate);
    row("Network Download Speed", rate);
    row("Memory Used MB", "\\d+");
    row("Memory Free MB", "\\d+");
    row("Memory Total MB", "\\d+");
    row("Memory Model", "\\d+");
}

void tst_DataServer::answers()
{
    QFETCH(QString, info);
    const QString request = QString::fromLatin1(QTest::currentDataTag());

    const QString reply = m_panel->ask(request);
    const QJsonObject object = json(reply.toUtf8());
    QCOMPARE(reply.toUtf8(), QJsonDocument(object).toJson(QJsonDocument::Compact));
    QCOMPARE(object.keys(), (QStringList{QStringLiteral("event"), QStringLiteral("info")}));
    QCOMPARE(object.value(QLatin1String("event")).toString(), request);
    QVERIFY(object.value(QLatin1String("info")).isString());
    QVERIFY2(QRegularExpression(QRegularExpression::anchoredPattern(info))
                 .match(object.value(QLatin1String("info")).toString())
                 .hasMatch(),
             qPrintable(reply));
}

void tst_DataServer::answersEverySensor()
{
    const QString reply = m_panel->ask(QStringLiteral("GetAllSensorsData"));
    const QJsonDocument document = QJsonDocument::fromJson(reply.toUtf8());
    QVERIFY2(document.isObject(), qPrintable(reply));
    QVERIFY(!document.object().contains(QLatin1String("event")));
    QCOMPARE(reply.toUtf8(), document.toJson(QJsonDocument::Compact));
}

void tst_DataServer::answersUnknownRequestsEmptily_data()
{
    QTest::addColumn<QString>("request");
    QTest::newRow("lower case") << QStringLiteral("cpu usage");
    QTest::newRow("a blank behind") << QStringLiteral("Cpu Usage ");
    QTest::newRow("JSON") << QStringLiteral("{\"event\":\"Cpu Usage\"}");
    QTest::newRow("empty") << QString();
    QTest::newRow("long") << QString(60 * 1024, QLatin1Char('x'));
}

void tst_DataServer::answersUnknownRequestsEmptily()
{
    QFETCH(QString, request);
    QCOMPARE(m_panel->ask(request), QStringLiteral("{}"));
}

void tst_DataServer::answersEachClientItsOwn()
{
    DataServerClient other;
    QVERIFY(other.open());
    const auto before = m_panel->replies().size();
    QVERIFY(other.ask(QStringLiteral("Memory Total MB")).contains(QStringLiteral("Memory Total")));
    QCOMPARE(m_panel->replies().size(), before);
    QVERIFY(m_panel->ask(QStringLiteral("Cpu Usage")).contains(QStringLiteral("Cpu Usage")));
    QCOMPARE(other.replies().size(), 1);
}

void tst_DataServer::countsItsClients()
{
    const QString remainingOne =
        QStringLiteral("Connection disconnected. Remaining connections: 1");
    const PluginProcess &process = m_plugin->process;
    const auto printed = [&process](const QString &line) { return process.lines().count(line); };
    // Clients of earlier tests may still be disconnecting.
    QTRY_VERIFY(printed(QStringLiteral("New connection established. Total connections: 2")) ==
                printed(remainingOne));

    const auto before = printed(remainingOne);
    DataServerClient other;
    QVERIFY(other.open());
    QTRY_COMPARE(printed(QStringLiteral("New connection established. Total connections: 2")),
                 before + 1);
    other.close();
    QTRY_COMPARE(printed(remainingOne), before + 1);
    QVERIFY(!m_panel->ask(QStringLiteral("Cpu Usage")).isEmpty());
}

void tst_DataServer::serves_data()
{
    QTest::addColumn<QString>("address");
    QTest::newRow("loopback") << QStringLiteral("127.0.0.1");
    QTest::newRow("another of the machine's addresses") << QStringLiteral("127.0.0.2");
    QTest::newRow("IPv6 loopback") << QStringLiteral("::1");
}

void tst_DataServer::serves()
{
    QFETCH(QString, address);
    QTcpServer local;
    if (!local.listen(QHostAddress(address)))
        QSKIP(qPrintable(QStringLiteral("This machine has no address ") + address));
    DataServerClient panel;
    QVERIFY(panel.open(QHostAddress(address)));
    QVERIFY(!panel.ask(QStringLiteral("Cpu Usage")).isEmpty());
}

void tst_DataServer::outlivesRudeClients()
{
    RawPanel noWebSocket(DataServerClient::port, QByteArray(1024 * 1024, 'x'));

    RawPanel silent(DataServerClient::port, QByteArray());
    QTRY_VERIFY(silent.isConnected());
    QElapsedTimer sinceSilence;
    sinceSilence.start();

    DataServerClient binary;
    QVERIFY(binary.open());
    binary.sendBinary("Cpu Usage");
    QVERIFY(binary.ask(QStringLiteral("Cpu Usage")).contains(QStringLiteral("Cpu Usage")));
    QCOMPARE(binary.replies().size(), 1);

    {
        // Gone before the reply can be sent.
        DataServerClient hasty;
        QVERIFY(hasty.open());
        hasty.sendText(QStringLiteral("GetAllSensorsData"));
    }
    QCOMPARE(m_panel->ask(QStringLiteral("nothing")), QStringLiteral("{}"));

    QTRY_VERIFY(noWebSocket.isGone());
    QTRY_VERIFY(silent.isGone());
    // Three seconds; Qt by itself would wait for ten.
    QVERIFY2(sinceSilence.elapsed() < 8000, qPrintable(QString::number(sinceSilence.elapsed())));
    QVERIFY(m_plugin->process.isRunning());
}

void tst_DataServer::refusesAHugeFrame()
{
    RawPanel client(DataServerClient::port);
    QTRY_VERIFY(client.isServed());
    // A masked text frame of 100 MB, by its header; some of it follows.
    QByteArray header("\x81\xff", 2);
    header += QByteArray::fromHex("0000000006400000") + QByteArray(4, '\0');
    client.send(header + QByteArray(1024 * 1024, 'x'));
    QTRY_VERIFY(client.isGone());
    QVERIFY(!m_panel->ask(QStringLiteral("Cpu Usage")).isEmpty());
}

QTEST_GUILESS_MAIN(tst_DataServer)
#include "tst_dataserver.moc"
