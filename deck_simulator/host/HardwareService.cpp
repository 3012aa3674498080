#include "deck_simulator/host/HardwareService.h"

#include <QDir>
#include <QHostAddress>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSettings>
#include <QWebSocket>
#include <QWebSocketServer>

namespace deck {

namespace {

constexpr quint64 maximumRequest = 1 << 20;

} // namespace

HardwareService::HardwareService(QObject *parent)
    : QObject(parent)
    , m_server(new QWebSocketServer(QStringLiteral("hardware service"),
                                    QWebSocketServer::NonSecureMode, this))
{
    connect(m_server, &QWebSocketServer::newConnection, this, &HardwareService::acceptConnection);
}

bool HardwareService::listen()
{
    return m_server->listen(QHostAddress::LocalHost, 0);
}

bool HardwareService::moveToAnotherPort()
{
    // Taken while the old one is still held, so that it is another one.
    auto *server =
        new QWebSocketServer(m_server->serverName(), QWebSocketServer::NonSecureMode, this);
    if (!server->listen(QHostAddress::LocalHost, 0)) {
        delete server;
        return false;
    }
    delete m_server;
    m_server = server;
    connect(m_server, &QWebSocketServer::newConnection, this, &HardwareService::acceptConnection);
    const QList<QWebSocket *> clients = findChildren<QWebSocket *>();
    for (QWebSocket *client : clients)
        client->close(QWebSocketProtocol::CloseCodeGoingAway);
    return true;
}

quint16 HardwareService::port() const
{
    return m_server->serverPort();
}

QString HardwareService::errorString() const
{
    return m_server->errorString();
}

bool HardwareService::announce(const QString &folder) const
{
    const QDir root(folder);
    const QString path = QStringLiteral("ProgramData/ParvaneCraftServe");
    if (!root.mkpath(path))
        return false;
    QSettings file(root.filePath(path + QStringLiteral("/ServeConfig.ini")), QSettings::IniFormat);
    file.setValue(QStringLiteral("HWInfoServe/port"), int(port()));
    file.sync();
    return file.status() == QSettings::NoError;
}

void HardwareService::acceptConnection()
{
    while (QWebSocket *client = m_server->nextPendingConnection()) {
        client->setParent(this);
        ++m_clients;
        client->setMaxAllowedIncomingMessageSize(maximumRequest);
        client->setMaxAllowedIncomingFrameSize(maximumRequest);
        connect(client, &QWebSocket::textMessageReceived, this,
                [this, client](const QString &text) { answer(client, text); });
        connect(client, &QWebSocket::disconnected, this, [this, client] {
            --m_clients;
            client->deleteLater();
        });
    }
}

void HardwareService::answer(QWebSocket *client, const QString &text)
{
    const QJsonDocument request = QJsonDocument::fromJson(text.toUtf8());
    if (!request.isObject())
        return;
    ++m_requests;
    const QString method = request.object().value(QLatin1String("method")).toString();
    const bool known = method == QLatin1String("getAllSensorsData");
    const QJsonObject reply{{QStringLiteral("method"), method},
                            {QStringLiteral("code"), known ? 0 : 1},
                            {QStringLiteral("result"), QJsonObject()}};
    client->sendTextMessage(QString::fromUtf8(QJsonDocument(reply).toJson(QJsonDocument::Compact)));
}

} // namespace deck
