#include "deck_simulator/host/DeckHost.h"

#include <QHostAddress>
#include <QJsonDocument>
#include <QTimer>
#include <QUuid>
#include <QWebSocket>
#include <QWebSocketServer>

#include <algorithm>
#include <chrono>

namespace deck {

namespace {

/// What a plugin has to read its last messages before the link ends.
constexpr std::chrono::milliseconds readingTime{50};

QString deviceId()
{
    return QStringLiteral("simulated-deck");
}

bool isKeyEvent(const QString &event)
{
    return event == QLatin1String("setTitle") || event == QLatin1String("setImage") ||
           event == QLatin1String("setSettings");
}

QJsonObject keyEvent(const QString &event, const DeckKey &key)
{
    const DeckPlace place = key.place().value_or(DeckPlace());
    const QJsonObject coordinates{{QStringLiteral("column"), place.column},
                                  {QStringLiteral("row"), place.row}};
    const QJsonObject payload{{QStringLiteral("settings"), key.settings()},
                              {QStringLiteral("coordinates"), coordinates}};
    return {{QStringLiteral("event"), event},
            {QStringLiteral("action"), key.action()},
            {QStringLiteral("context"), key.context()},
            {QStringLiteral("device"), deviceId()},
            {QStringLiteral("payload"), payload}};
}

} // namespace

DeckHost::DeckHost(const DeckProfile &deck, QObject *parent)
    : QObject(parent)
    , m_deck(deck)
    , m_pluginUUID(QUuid::createUuid().toString(QUuid::WithoutBraces))
    , m_server(new QWebSocketServer(QStringLiteral("deck_simulator"),
                                    QWebSocketServer::NonSecureMode, this))
{
    m_clock.start();
    int index = 0;
    for (DeckKey &key : m_deck.keys)
        fixPlace(key, index++);
    connect(&m_watch, &StallWatch::stalledChanged, this, &DeckHost::stalledChanged);
    connect(m_server, &QWebSocketServer::newConnection, this, &DeckHost::acceptConnection);
}

bool DeckHost::listen()
{
    return m_server->listen(QHostAddress::LocalHost, 0);
}

quint16 DeckHost::port() const
{
    return m_server->serverPort();
}

QString DeckHost::errorString() const
{
    return m_server->errorString();
}

QString DeckHost::registerEvent() const
{
    return QStringLiteral("registerPlugin");
}

void DeckHost::close()
{
    m_server->close();
    for (QWebSocket *candidate : qAsConst(m_candidates))
        candidate->close(QWebSocketProtocol::CloseCodeGoingAway);
    if (m_link == nullptr)
        return;
    for (const DeckKey &key : qAsConst(m_deck.keys))
        sendMessage(keyEvent(QStringLiteral("willDisappear"), key));
    // On Windows a plugin may lose what it has not read when the link ends.
    QTimer::singleShot(readingTime, m_link,
                       [link = m_link] { link->close(QWebSocketProtocol::CloseCodeGoingAway); });
}

void DeckHost::die()
{
    m_server->close();
    const QVector<QWebSocket *> candidates = m_candidates; // aborting one removes it
    for (QWebSocket *candidate : candidates)
        candidate->abort();
    if (m_link != nullptr)
        m_link->abort();
}

void DeckHost::putKey(const DeckKey &key)
{
    const int present = indexOf(key.context());
    const int index = present < 0 ? static_cast<int>(m_deck.keys.size()) : present;
    DeckKey placed = key;
    fixPlace(placed, index);
    if (present < 0)
        m_deck.keys.append(placed);
    else
        m_deck.keys.replace(index, placed);
    sendMessage(keyEvent(QStringLiteral("willAppear"), placed));
}

bool DeckHost::removeKey(const QString &context)
{
    const int index = indexOf(context);
    if (index < 0)
        return false;
    sendMessage(keyEvent(QStringLiteral("willDisappear"), m_deck.keys.at(index)));
    m_deck.keys.removeAt(index);
    return true;
}

bool DeckHost::changeSettings(const QString &context, const QJsonObject &settings)
{
    const int index = indexOf(context);
    if (index < 0)
        return false;
    DeckKey &key = m_deck.keys[index];
    key.changeSettings(settings);
    return sendMessage(keyEvent(QStringLiteral("didReceiveSettings"), key));
}

bool DeckHost::sendKeyEvent(const QString &event, const QString &context, const QJsonObject &extra)
{
    const DeckKey *present = key(context);
    if (present == nullptr)
        return false;
    QJsonObject message = keyEvent(event, *present);
    QJsonObject payload = message.value(QLatin1String("payload")).toObject();
    for (auto member = extra.begin(); member != extra.end(); ++member)
        payload.insert(member.key(), member.value());
    message.insert(QStringLiteral("payload"), payload);
    return sendMessage(message);
}

void DeckHost::acceptConnection()
{
    while (QWebSocket *socket = m_server->nextPendingConnection()) {
        socket->setParent(this);
        socket->setMaxAllowedIncomingMessageSize(endingMessage);
        socket->setMaxAllowedIncomingFrameSize(endingMessage);
        connect(socket, &QWebSocket::disconnected, this,
                [this, socket] { onDisconnected(socket); });
        if (m_link != nullptr) {
            ++m_counters.refusedLinks;
            socket->close(QWebSocketProtocol::CloseCodePolicyViolated);
            continue;
        }
        m_candidates.append(socket);
        connect(socket, &QWebSocket::textMessageReceived, this,
                [this, socket](const QString &text) { onText(socket, text); });
        connect(socket, &QWebSocket::binaryMessageReceived, this, &DeckHost::onBinary);
    }
}

void DeckHost::onDisconnected(QWebSocket *socket)
{
    m_candidates.removeAll(socket);
    socket->deleteLater();
    if (socket != m_link)
        return;
    m_link = nullptr;
    Q_EMIT linkClosed();
}

void DeckHost::onBinary(const QByteArray &bytes)
{
    ++m_counters.frames;
    ++m_counters.malformed;
    m_counters.bytes += quint64(bytes.size());
}

void DeckHost::onText(QWebSocket *socket, const QString &text)
{
    const QByteArray bytes = text.toUtf8();
    ++m_counters.frames;
    m_counters.bytes += quint64(bytes.size());
    if (bytes.size() > maximumMessage) {
        ++m_counters.oversized;
        return;
    }
    const QJsonDocument document = QJsonDocument::fromJson(bytes);
    if (socket != m_link) {
        takeRegistration(socket, document.object());
    } else if (document.isObject()) {
        takeMessage(document.object());
    } else {
        ++m_counters.malformed;
    }
}

void DeckHost::takeRegistration(QWebSocket *socket, const QJsonObject &message)
{
    if (!m_candidates.removeOne(socket))
        return; // refused already, and still talking
    const QString event = message.value(QLatin1String("event")).toString();
    const QString uuid = message.value(QLatin1String("uuid")).toString();
    QString reason;
    if (m_link != nullptr)
        reason = QStringLiteral("a plugin is registered already");
    else if (event != registerEvent())
        reason = QStringLiteral("it began with the event \"%1\" instead of \"%2\"")
                     .arg(event.left(80), registerEvent());
    else if (uuid != m_pluginUUID)
        reason = QStringLiteral("it registered with the uuid \"%1\" instead of \"%2\"")
                     .arg(uuid.left(80), m_pluginUUID);
    if (!reason.isEmpty()) {
        ++m_counters.refusedLinks;
        socket->close(QWebSocketProtocol::CloseCodePolicyViolated);
        Q_EMIT registrationRefused(reason);
        return;
    }
    m_link = socket;
    m_watch.follow(socket);
    announceDeck();
    Q_EMIT registered();
}

void DeckHost::announceDeck()
{
    const QJsonObject size{{QStringLiteral("columns"), m_deck.grid.width()},
                           {QStringLiteral("rows"), m_deck.grid.height()}};
    sendMessage({{QStringLiteral("event"), QStringLiteral("deviceDidConnect")},
                 {QStringLiteral("device"), deviceId()},
                 {QStringLiteral("deviceInfo"), QJsonObject{{QStringLiteral("name"), m_deck.name},
                                                            {QStringLiteral("type"), 0},
                                                            {QStringLiteral("size"), size}}}});
    for (const DeckKey &key : qAsConst(m_deck.keys))
        sendMessage(keyEvent(QStringLiteral("willAppear"), key));
}

void DeckHost::takeMessage(const QJsonObject &message)
{
    const QString event = message.value(QLatin1String("event")).toString();
    if (!isKeyEvent(event)) {
        ++m_counters.unknownEvents;
        return;
    }
    const QString context = message.value(QLatin1String("context")).toString();
    const int index = indexOf(context);
    if (index < 0) {
        ++m_counters.unknownContexts;
        return;
    }
    const QJsonValue payload = message.value(QLatin1String("payload"));
    if (!payload.isObject() || !takeKeyMessage(event, m_deck.keys[index], payload.toObject())) {
        ++m_counters.malformed;
        return;
    }
    if (event == QLatin1String("setSettings"))
        Q_EMIT settingsReplied(context);
    Q_EMIT keyChanged(context);
}

bool DeckHost::takeKeyMessage(const QString &event, DeckKey &key, const QJsonObject &payload)
{
    if (event == QLatin1String("setSettings")) {
        key.takeSettings(payload);
        return true;
    }
    const bool isTitle = event == QLatin1String("setTitle");
    const QJsonValue text =
        payload.value(isTitle ? QLatin1String("title") : QLatin1String("image"));
    if (!text.isString())
        return false;
    if (isTitle)
        key.takeTitle(text.toString(), now());
    else if (!key.takePicture(text.toString(), now()))
        ++m_counters.brokenPictures;
    return true;
}

int DeckHost::indexOf(const QString &context) const
{
    for (int index = 0; index < m_deck.keys.size(); ++index) {
        if (m_deck.keys.at(index).context() == context)
            return index;
    }
    return -1;
}

const DeckKey *DeckHost::key(const QString &context) const
{
    const int index = indexOf(context);
    return index < 0 ? nullptr : &m_deck.keys.at(index);
}

const DeckKey *DeckHost::keyAt(const DeckPlace &place) const
{
    const auto found = std::find_if(m_deck.keys.begin(), m_deck.keys.end(),
                                    [&place](const DeckKey &key) { return key.place() == place; });
    return found == m_deck.keys.end() ? nullptr : &*found;
}

// A key keeps its place when one before it is removed.
void DeckHost::fixPlace(DeckKey &key, int index) const
{
    const int columns = qMax(1, m_deck.grid.width());
    if (!key.place())
        key.setPlace({index % columns, index / columns});
}

bool DeckHost::sendMessage(const QJsonObject &message)
{
    return sendText(QString::fromUtf8(QJsonDocument(message).toJson(QJsonDocument::Compact)));
}

bool DeckHost::sendText(const QString &text)
{
    if (m_link == nullptr)
        return false;
    m_link->sendTextMessage(text);
    return true;
}

} // namespace deck
