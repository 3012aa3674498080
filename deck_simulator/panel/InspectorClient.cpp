#include "deck_simulator/panel/InspectorClient.h"

#include <QAbstractSocket>
#include <QUrl>
#include <QWebSocket>

namespace deck {

namespace {

constexpr quint64 largestReply = quint64(8) << 20; // bytes

} // namespace

InspectorClient::InspectorClient(quint16 port, QObject *parent)
    : QObject(parent)
    , m_port(port)
    , m_socket(new QWebSocket(QString(), QWebSocketProtocol::VersionLatest, this))
{
    m_socket->setMaxAllowedIncomingMessageSize(largestReply);
    m_socket->setMaxAllowedIncomingFrameSize(largestReply);
    connect(m_socket, &QWebSocket::connected, this, &InspectorClient::ask);
    connect(m_socket, &QWebSocket::connected, this, &InspectorClient::connectedChanged);
    connect(m_socket, &QWebSocket::disconnected, this, &InspectorClient::connectedChanged);
    connect(m_socket, &QWebSocket::textMessageReceived, this,
            [this](const QString &text) { Q_EMIT replied(text.toUtf8()); });
    connect(&m_timer, &QTimer::timeout, this, &InspectorClient::ask);
}

InspectorClient::~InspectorClient()
{
    m_socket->disconnect(this);
}

bool InspectorClient::isConnected() const
{
    return m_socket->state() == QAbstractSocket::ConnectedState;
}

void InspectorClient::setRequests(const QStringList &requests)
{
    m_requests = requests;
    if (requests.isEmpty()) {
        m_timer.stop();
        m_socket->close();
        return;
    }
    m_timer.start(period);
    ask();
}

void InspectorClient::ask()
{
    if (m_socket->state() == QAbstractSocket::UnconnectedState) {
        m_socket->open(QUrl(QStringLiteral("ws://127.0.0.1:%1").arg(m_port)));
    } else if (isConnected()) {
        for (const QString &request : qAsConst(m_requests))
            m_socket->sendTextMessage(request);
    }
}

} // namespace deck
