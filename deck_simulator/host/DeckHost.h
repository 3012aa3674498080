#pragma once

#include "deck_simulator/deck/DeckProfile.h"
#include "deck_simulator/host/StallWatch.h"

#include <QElapsedTimer>
#include <QJsonObject>
#include <QObject>
#include <QString>
#include <QVector>

class QWebSocket;
class QWebSocketServer;

namespace deck {

/// Counts of received frames, and of those that were rejected.
struct LinkCounters
{
    quint64 frames = 0;
    quint64 bytes = 0;     ///< Payload bytes of all frames.
    quint64 malformed = 0; ///< Not JSON, not an object, or a member of the wrong type.
    quint64 oversized = 0; ///< Longer than DeckHost::maximumMessage.
    quint64 unknownEvents = 0;
    quint64 unknownContexts = 0;
    quint64 brokenPictures = 0;
    quint64 refusedLinks = 0; ///< Connections while a plugin was registered, wrong registrations.
};

/// The host's end of the plugin link: a WebSocket server on a loopback port. It waits for a
/// registration, sends the deck's keys and receives titles, pictures and settings for them.
/// Everything else that arrives is counted and dropped.
class DeckHost : public QObject
{
    Q_OBJECT

public:
    /// The maximum size of a message in bytes; longer ones are dropped.
    static constexpr int maximumMessage = 4 * 1024 * 1024;
    /// A message longer than this closes the link while it is still being received, bytes.
    static constexpr quint64 endingMessage = 16 * quint64(maximumMessage);

    explicit DeckHost(const DeckProfile &deck, QObject *parent = nullptr);

    /// Listens on a free loopback port. False when there is none; errorString says why.
    bool listen();
    [[nodiscard]] quint16 port() const;
    [[nodiscard]] QString errorString() const;
    /// What the plugin has to register with: {"event": registerEvent, "uuid": pluginUUID}.
    [[nodiscard]] QString registerEvent() const;
    [[nodiscard]] QString pluginUUID() const { return m_pluginUUID; }

    [[nodiscard]] bool isRegistered() const { return m_link != nullptr; }
    /// Whether the registered plugin gives no sign of life (see StallWatch).
    [[nodiscard]] bool isStalled() const { return m_watch.isStalled(); }
    /// The keys in the order in which they were added, and the size of the deck.
    [[nodiscard]] const QVector<DeckKey> &keys() const { return m_deck.keys; }
    [[nodiscard]] QSize grid() const { return m_deck.grid; }
    /// Null when there is no such key, or nothing on that place; valid until a key is added or
    /// removed.
    [[nodiscard]] const DeckKey *key(const QString &context) const;
    [[nodiscard]] const DeckKey *keyAt(const DeckPlace &place) const;
    [[nodiscard]] const LinkCounters &counters() const { return m_counters; }
    /// Milliseconds since this object was made; the clock of DeckKey::lastUpdate.
    [[nodiscard]] qint64 now() const { return m_clock.elapsed(); }

    /// Puts a key on the deck, replacing one with the same context.
    void putKey(const DeckKey &key);
    /// False when there is no such key; the same applies below.
    bool removeKey(const QString &context);
    /// Sends the plugin new settings for a key; its reply is reported by settingsReplied.
    bool changeSettings(const QString &context, const QJsonObject &settings);
    /// Sends an event about a key, such as "keyDown"; \a extra is added to its payload. False also
    /// when no plugin is registered.
    bool sendKeyEvent(const QString &event, const QString &context, const QJsonObject &extra = {});
    /// Sends any text unchanged to the plugin. False when no plugin is registered.
    bool sendText(const QString &text);
    bool sendMessage(const QJsonObject &message);

    /// Removes the keys, closes the link and stops listening; linkClosed follows when a plugin was
    /// registered.
    void close();
    /// Breaks the link without closing it and stops listening, like a host that dies.
    void die();

Q_SIGNALS:
    /// The plugin has registered and its keys have been sent.
    void registered();
    /// The first message of a connection was not the registration; the connection is being closed.
    void registrationRefused(const QString &reason);
    /// The link of the registered plugin is closed, from whichever side.
    void linkClosed();
    void stalledChanged(bool stalled);
    void keyChanged(const QString &context);
    /// The plugin has sent settings for the key; keyChanged follows.
    void settingsReplied(const QString &context);

private:
    void acceptConnection();
    void onText(QWebSocket *socket, const QString &text);
    void onBinary(const QByteArray &bytes);
    void onDisconnected(QWebSocket *socket);
    void takeRegistration(QWebSocket *socket, const QJsonObject &message);
    void takeMessage(const QJsonObject &message);
    bool takeKeyMessage(const QString &event, DeckKey &key, const QJsonObject &payload);
    void announceDeck();
    void fixPlace(DeckKey &key, int index) const;
    [[nodiscard]] int indexOf(const QString &context) const;

    DeckProfile m_deck;
    QString m_pluginUUID;
    QWebSocketServer *m_server;
    QVector<QWebSocket *> m_candidates; // connected, not registered
    QWebSocket *m_link = nullptr;
    LinkCounters m_counters;
    StallWatch m_watch;
    QElapsedTimer m_clock;
};

} // namespace deck
