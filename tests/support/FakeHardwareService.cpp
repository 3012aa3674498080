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

const QString fileName = QStringLiteral("/ServeConfig.ini");

} // namespace

FakeHardwareService::FakeHardwareService()
    : m_server(QStringLiteral("service"), QWebSocketServer::NonSecureMode)
    , m_previousDrive(qgetenv("SystemDrive"))
{
    if (!m_server.listen(QHostAddress::LocalHost))
        qFatal("No port for the service");
    connect(&m_server, &QWebSocketServer::newConnection, this,
            &FakeHardwareService::takeConnection);
    const QStringList folders = configurationFolders();
    for (const QString &folder : folders) {
        QDir().mkpath(folder);
        writeFile(folder + fileName, "[HWInfoServe]\nport=" + QByteArray::number(port()) + '\n');
    }
    qputenv("SystemDrive", m_drive.path().toLocal8Bit());
}

FakeHardwareService::~FakeHardwareService()
{
    qputenv("SystemDrive", m_previousDrive);
    const QStringList folders = configurationFolders();
    for (const QString &folder : folders)
        QFile::remove(folder + fileName);
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
