#pragma once

#include <QImage>
#include <QJsonObject>
#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QVector>
#include <QWebSocketServer>

class QWebSocket;

/// The deck host's end of the link: accepts one plugin on an ephemeral loopback port and keeps all
/// that it sends.
class FakeHost : public QObject
{
    Q_OBJECT

public:
    FakeHost();

    quint16 port() const;

    /// The command line on which a host starts a plugin.
    QStringList arguments(const QString &info = QStringLiteral("{}")) const;

    bool waitForRegistration() const;

    /// False also when fewer than \a count have come in time.
    bool waitForMessages(const QString &event, const QString &context,
                         QStringList::size_type count) const;

    /// Waits for the next picture and title of the key.
    bool waitForUpdate(const QString &context) const;

    int connections() const { return m_connections; }

    /// Every text as it came, the registration first.
    const QStringList &texts() const { return m_texts; }

    /// The messages of one kind for one key.
    QVector<QJsonObject> messages(const QString &event, const QString &context) const;

    /// When they came, in milliseconds of one clock.
    QVector<qint64> arrivals(const QString &event, const QString &context) const;

    /// The kinds of message for one key, in the order in which they came.
    QStringList events(const QString &context) const;

    QStringList titles(const QString &context) const;

    /// The "image" texts.
    QStringList images(const QString &context) const;

    /// The payloads of "setSettings".
    QVector<QJsonObject> settings(const QString &context) const;

    /// A null picture when the text is no PNG data URL.
    static QImage picture(const QString &dataUrl);

    /// Whether something is painted on the picture.
    static bool hasInk(const QString &dataUrl);

    /// What a settings panel sends for a key; \a changes replaces members of "titleParameters".
    static QJsonObject keySettings(const QJsonObject &changes = {});

    void sendText(const QString &text);
    void sendBinary(const QByteArray &bytes);
    void sendEvent(const QString &event, const QString &action, const QString &context,
                   const QJsonObject &payload = {});
    void appear(const QString &action, const QString &context,
                const QJsonObject &settings = keySettings());
    void disappear(const QString &action, const QString &context);

    /// Ends the link with a closing handshake.
    void closeLink();

    /// Ends the link without a closing handshake.
    void abortLink();

private:
    struct Message
    {
        QString event;
        QString context;
        QJsonObject object;
        qint64 arrival;
    };

    void takeLink();
    void record(const QString &text);

    template <typename Value, typename Extract>
    QVector<Value> collect(const QString &event, const QString &context, Extract extract) const;

    QWebSocketServer m_server;
    QPointer<QWebSocket> m_link;
    int m_connections = 0;
    QStringList m_texts;
    QVector<Message> m_messages;
};
