#pragma once

#include <QJsonObject>
#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QWebSocketServer>

class QWebSocket;

/// A deck host that only counts what it receives.
class TallyHost : public QObject
{
    Q_OBJECT

public:
    TallyHost();

    QStringList arguments() const;
    bool isRegistered() const { return m_messages > 0; }
    bool hasLost() const { return m_hasLost; }

    qint64 pictures() const { return m_pictures; }

    void send(const QString &event, const QString &action, const QString &context,
              const QJsonObject &settings = {});

private:
    void takeLink();
    void count(const QString &text);

    QWebSocketServer m_server;
    QPointer<QWebSocket> m_link;
    bool m_hasLost = false;
    qint64 m_messages = 0;
    qint64 m_pictures = 0;
};
