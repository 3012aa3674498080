#pragma once

#include <QObject>
#include <QStringList>
#include <QTimer>

class QWebSocket;

namespace deck {

/// A settings panel's connection to the plugin's data server on this machine. It asks for what the
/// panel shows once a second, and connects again when the server has gone.
class InspectorClient : public QObject
{
    Q_OBJECT

public:
    static constexpr quint16 usualPort = 24509;
    /// Between two rounds of requests, milliseconds.
    static constexpr int period = 1000;

    explicit InspectorClient(quint16 port = usualPort, QObject *parent = nullptr);
    ~InspectorClient() override;
    Q_DISABLE_COPY(InspectorClient)

    /// What to ask for from now on, at once when the server is there; nothing: the connection is
    /// given up.
    void setRequests(const QStringList &requests);
    [[nodiscard]] bool isConnected() const;

Q_SIGNALS:
    void connectedChanged();
    void replied(const QByteArray &reply);

private:
    void ask();

    quint16 m_port;
    QWebSocket *m_socket;
    QStringList m_requests;
    QTimer m_timer;
};

} // namespace deck
