#include "tests/support/FakeHardwareService.h"

#include <QDir>
#include <QFile>
#include <QWebSocket>

namespace {

void writeFile(const QString &path, const QByteArray &content)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("No configuration file for the service");
}

} // namespace

FakeHardwareService::FakeHardwareService()
    : m_server(QStringLiteral("service"), QWebSocketServer::NonSecureMode)
    , m_previousDrive(qgetenv("SystemDrive"))
{
    if (!m_server.listen(QHostAddress::LocalHost))
        qFatal("No port for the service");
    connect(&m_server, &QWebSocketServer::newConnection, this,
            &FakeHardwareService::takeConnection);
    announceIn(m_drive.path());
    qputenv("SystemDrive", m_drive.path().toLocal8Bit());
}

FakeHardwareService::~FakeHardwareService()
{
    qputenv("SystemDrive", m_previousDrive);
    for (const QString &file : qAsConst(m_files))
        QFile::remove(file);
}

void FakeHardwareService::announceIn(const QString &drive)
{
    const QString folder = drive + QStringLiteral("/ProgramData/ParvaneCraftServe");
    QDir().mkpath(folder);
    m_files.append(folder + QStringLiteral("/ServeConfig.ini"));
    writeFile(m_files.constLast(), "[HWInfoServe]\nport=" + QByteArray::number(port()) + '\n');
}

void FakeHardwareService::takeConnection()
{
    QWebSocket *const client = m_server.nextPendingConnection();
    client->setParent(this);
    ++connections;
    connect(client, &QWebSocket::textMessageReceived, this,
            [this, client](const QString &message) { answer(client, message); });
}

void FakeHardwareService::answer(QWebSocket *client, const QString &message)
{
    received.append(message);
    if (!message.contains(QLatin1String("method")))
        return;
    if (diesOnRequest)
        client->abort();
    for (const QString &reply : qAsConst(replies))
        client->sendTextMessage(reply);
}
