#pragma once

#include <QHostAddress>
#include <QStringList>
#include <QWebSocket>

/// A settings panel's connection to the plugin's data server.
class DataServerClient : public QObject
{
    Q_OBJECT

public:
    static constexpr quint16 port = 24509;

    DataServerClient();

    /// Opens the connection without waiting for it.
    void openSoon(const QHostAddress &address = QHostAddress(QHostAddress::LocalHost));

    /// True when the server has accepted the connection.
    bool open(const QHostAddress &address = QHostAddress(QHostAddress::LocalHost));

    /// The next reply after the request; a null text when none comes.
    QString ask(const QString &request);

    bool isOpen() const;
    bool waitForClose() const;
    void close();

    void sendText(const QString &text);
    void sendBinary(const QByteArray &bytes);

    const QStringList &replies() const { return m_replies; }

private:
    QWebSocket m_socket;
    QStringList m_replies;
};
