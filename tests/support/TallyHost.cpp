#include "tests/support/TallyHost.h"

#include <QJsonDocument>
#include <QWebSocket>

TallyHost::TallyHost()
    : m_server(QStringLiteral("host"), QWebSocketServer::NonSecureMode)
{
    if (!m_server.listen(QHostAddress::LocalHost))
        qFatal("No port for the host: %s", qPrintable(m_server.errorString()));
    connect(&m_server, &QWebSocketServer::newConnection, this, &TallyHost::takeLink);
}

QStringList TallyHost::arguments() const
{
    return {QStringLiteral("-port"),          QString::number(m_server.serverPort()),
            QStringLiteral("-pluginUUID"),    QStringLiteral("plugin-1"),
            QStringLiteral("-registerEvent"), QStringLiteral("registerPlugin"),
            QStringLiteral("-info"),          QStringLiteral("{}")};
}

void TallyHost::takeLink()
{
    m_link = m_server.nextPendingConnection();
    connect(m_link, &QWebSocket::textMessageReceived, this, &TallyHost::count);
    connect(m_link, &QWebSocket::disconnected, this, [this] { m_hasLost = true; });
}

void TallyHost::count(const QString &text)
{
    ++m_messages;
    m_pictures += text.contains(QLatin1String("\"event\":\"setImage\"")) ? 1 : 0;
}

void TallyHost::send(const QString &event, const QString &action, const QString &context,
                     const QJsonObject &settings)
{
    const QJsonObject message{
        {QStringLiteral("event"), event},
        {QStringLiteral("action"), action},
        {QStringLiteral("context"), context},
        {QStringLiteral("payload"), QJsonObject{{QStringLiteral("settings"), settings}}}};
    if (m_link)
        m_link->sendTextMessage(
            QString::fromUtf8(QJsonDocument(message).toJson(QJsonDocument::Compact)));
}
