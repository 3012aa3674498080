#include "deck_simulator/host/HardwareService.h"
#include "tests/support/Waits.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QWebSocket>
#include <QtTest>

using namespace deck;

class tst_HardwareService : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void announcesItsPort();
    void reportsAFolderThatCannotBeWritten();
    void answersSensorRequests();
    void refusesOtherMethods();
    void passesOverWhatIsNoRequest();
    void movesToAnotherPort();
};

namespace {

void connectTo(QWebSocket &client, const HardwareService &service)
{
    QSignalSpy connected(&client, &QWebSocket::connected);
    client.open(QUrl(QStringLiteral("ws://127.0.0.1:%1").arg(service.port())));
    QVERIFY(connected.count() > 0 || connected.wait());
}

} // namespace

void tst_HardwareService::announcesItsPort()
{
    HardwareService service;
    QVERIFY(service.listen());
    const QTemporaryDir drive;
    QVERIFY(service.announce(drive.path()));
    QSettings file(drive.filePath(QStringLiteral("ProgramData/ParvaneCraftServe/ServeConfig.ini")),
                   QSettings::IniFormat);
    file.beginGroup(QStringLiteral("HWInfoServe"));
    QCOMPARE(file.value(QStringLiteral("port"), -1).toInt(), int(service.port()));
}

void tst_HardwareService::reportsAFolderThatCannotBeWritten()
{
    const HardwareService service;
    const QTemporaryDir drive;
    QFile obstacle(drive.filePath(QStringLiteral("ProgramData")));
    QVERIFY(obstacle.open(QIODevice::WriteOnly));
    QVERIFY(!service.announce(drive.path()));
}

void tst_HardwareService::answersSensorRequests()
{
    HardwareService service;
    QVERIFY(service.listen());
    QWebSocket client;
    connectTo(client, service);
    QSignalSpy replies(&client, &QWebSocket::textMessageReceived);
    client.sendTextMessage(QStringLiteral("{\"method\":\"getAllSensorsData\"}"));
    QTRY_COMPARE(replies.count(), 1);
    const QJsonObject reply =
        QJsonDocument::fromJson(replies.at(0).at(0).toString().toUtf8()).object();
    QCOMPARE(reply.value(QLatin1String("method")).toString(), QStringLiteral("getAllSensorsData"));
    QCOMPARE(reply.value(QLatin1String("code")).toInt(-1), 0);
    QCOMPARE(reply.value(QLatin1String("result")), QJsonValue(QJsonObject()));
    QCOMPARE(service.requests(), quint64(1));
}

void tst_HardwareService::refusesOtherMethods()
{
    HardwareService service;
    QVERIFY(service.listen());
    QWebSocket client;
    connectTo(client, service);
    QSignalSpy replies(&client, &QWebSocket::textMessageReceived);
    client.sendTextMessage(QStringLiteral("{\"method\":7}"));
    QTRY_COMPARE(replies.count(), 1);
    QVERIFY(replies.at(0).at(0).toString().contains(QLatin1String("\"code\":1")));
}

void tst_HardwareService::passesOverWhatIsNoRequest()
{
    HardwareService service;
    QVERIFY(service.listen());
    QWebSocket client;
    connectTo(client, service);
    QTRY_COMPARE(service.clients(), 1);
    QSignalSpy replies(&client, &QWebSocket::textMessageReceived);
    client.sendTextMessage(QStringLiteral("哈喽哈喽"));
    client.sendTextMessage(QStringLiteral("[]"));
    client.sendBinaryMessage(QByteArray(10, '\0'));
    client.sendTextMessage(QStringLiteral("{\"method\":\"getAllSensorsData\"}"));
    QTRY_COMPARE(replies.count(), 1);
    QCOMPARE(service.requests(), quint64(1));
    client.close();
    QTRY_COMPARE(service.clients(), 0);
}

void tst_HardwareService::movesToAnotherPort()
{
    HardwareService service;
    QVERIFY(service.listen());
    const quint16 before = service.port();
    QWebSocket client;
    connectTo(client, service);
    QTRY_COMPARE(service.clients(), 1);
    QSignalSpy gone(&client, &QWebSocket::disconnected);
    QVERIFY(service.moveToAnotherPort());
    QVERIFY(service.port() != 0 && service.port() != before);
    QTRY_COMPARE(gone.count(), 1);
    QTRY_COMPARE(service.clients(), 0);
    QWebSocket again;
    connectTo(again, service);
    QTRY_COMPARE(service.clients(), 1);
}

QTEST_GUILESS_MAIN(tst_HardwareService)
#include "tst_HardwareService.moc"
