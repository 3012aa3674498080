#include "bench/CountingHost.h"

#include <QHostAddress>
#include <QWebSocket>
#include <QWebSocketServer>

CountingHost::CountingHost()
{
    start();
    while (m_port == 0)
        yieldCurrentThread();
}

CountingHost::~CountingHost()
{
    quit();
    wait();
}

void CountingHost::run()
{
    QWebSocketServer server(QStringLiteral("host"), QWebSocketServer::NonSecureMode);
    if (!server.listen(QHostAddress::LocalHost))
        qFatal("No port for the host");
    connect(&server, &QWebSocketServer::newConnection, &server, [this, &server] {
        QWebSocket *const link = server.nextPendingConnection();
        link->setParent(&server);
        connect(link, &QWebSocket::textMessageReceived, &server, [this](const QString &text) {
            m_bytes += static_cast<quint64>(text.size());
            ++m_messages;
        });
    });
    m_port = server.serverPort();
    exec();
}
