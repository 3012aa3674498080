#include "SDK/ConnectionManager.h"
#include "plugin/SystemMonitorPlugin.h"
#include "render/normalAction.h"
#include "sensors/systemInfor.h"
#include "tests/support/FakeHardwareService.h"
#include "tests/support/InMemoryLibrary.h"
#include "tests/support/InMemoryMachine.h"
#include "tests/support/Json.h"
#include "tests/support/KeyUuids.h"
#include "tests/support/MessageCapture.h"
#include "tests/support/TemporaryWorkingDirectory.h"
#include "tests/support/Waits.h"

#include <QPointer>
#include <QTimer>
#include <QWebSocket>
#include <QWebSocketServer>
#include <QtTest>

#include <cstdlib>
#include <memory>

namespace {

const QString disk = keyuuid::physicalDisk;
const QString context = QStringLiteral("ctx");

/// Losing the host ends the process with status 0, which must not look like a passed test.
bool finished = false;

void failUnlessFinished()
{
    if (!finished)
        std::_Exit(EXIT_FAILURE);
}

} // namespace

/// What the host receives for a disk key that steps through the drives, between two passes.
class tst_DiskLoop : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();

    void eachTickSendsThePictureAndTheTitle();

private:
    void connectToHost();
    QStringList eventsSince(int begin) const;

    const TemporaryWorkingDirectory m_directory;
    const MessageCapture m_capture;
    const FakeHardwareService m_service;
    QWebSocketServer m_host{QStringLiteral("host"), QWebSocketServer::NonSecureMode};
    QPointer<QWebSocket> m_link;
    QList<QJsonObject> m_received;
    std::unique_ptr<SystemMonitorPlugin> m_plugin;
    std::unique_ptr<ConnectionManager> m_manager;
};

void tst_DiskLoop::initTestCase()
{
    std::atexit(failUnlessFinished);
    InMemoryLibrary::reset();
    InMemoryMachine::reset();
    m_plugin = std::make_unique<SystemMonitorPlugin>();
    // Meanwhile no pass sends anything.
    for (QTimer *const timer : m_plugin->findChildren<QTimer *>())
        timer->stop();
    connectToHost();
}

void tst_DiskLoop::cleanupTestCase()
{
    m_manager.reset();
    m_plugin.reset();
    delete m_link;
    finished = true;
}

void tst_DiskLoop::connectToHost()
{
    QVERIFY(m_host.listen(QHostAddress::LocalHost));
    connect(&m_host, &QWebSocketServer::newConnection, this, [this] {
        m_link = m_host.nextPendingConnection();
        connect(m_link, &QWebSocket::textMessageReceived, this,
                [this](const QString &text) { m_received.append(json(text.toUtf8())); });
    });
    m_manager = std::make_unique<ConnectionManager>(m_host.serverPort(), QStringLiteral("A1"),
                                                    QStringLiteral("registerPlugin"),
                                                    QStringLiteral("{}"), m_plugin.get());
    m_manager->Run();
    QTRY_COMPARE(m_received.size(), 1);
}

QStringList tst_DiskLoop::eventsSince(int begin) const
{
    QStringList events;
    for (const QJsonObject &message : m_received.mid(begin))
        events.append(message.value(QLatin1String("event")).toString());
    return events;
}

void tst_DiskLoop::eachTickSendsThePictureAndTheTitle()
{
    systemInfor::DriveRoots = QStringList{QStringLiteral("/"), QStringLiteral("/home")};
    systemInfor::DriveFreeGB = {10, 20};
    systemInfor::DriveFreePercent = {90, 80};
    m_plugin->WillAppearForAction(disk, context, json(R"({"settings":{"titleParameters":{
        "diskMode":"Disk_Loop","switchFrequency":3600,"showVolumeName":true,"fontSize":20}}})"),
                                  QString());
    QTRY_COMPARE(m_received.size(), 2);
    normalAction &key = *m_plugin->FindAction(disk, context);
    for (const char *const text : {"/  10% Used  10G Free", "/home  20% Used  20G Free"}) {
        const int before = static_cast<int>(m_received.size());
        QMetaObject::invokeMethod(&key.switchTimer, "timeout");
        QTRY_COMPARE(m_received.size(), before + 2);
        QCOMPARE(eventsSince(before),
                 (QStringList{QStringLiteral("setImage"), QStringLiteral("setTitle")}));
        for (const QJsonObject &message : m_received.mid(before))
            QCOMPARE(message.value(QLatin1String("context")).toString(), context);
        QVERIFY(m_received.at(before)
                    .value(QLatin1String("payload"))
                    .toObject()
                    .value(QLatin1String("image"))
                    .toString()
                    .startsWith(QLatin1String("data:image/png;base64,")));
        QCOMPARE(m_received.at(before + 1)
                     .value(QLatin1String("payload"))
                     .toObject()
                     .value(QLatin1String("title"))
                     .toString(),
                 QString::fromLatin1(text));
    }
}

QTEST_MAIN(tst_DiskLoop)
#include "tst_diskloop.moc"
