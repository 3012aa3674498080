#pragma once

#include <QObject>
#include <QStringList>
#include <QTimer>

class QWebSocket;

namespace deck {

/// A settings panel's connection to the plugin's data server on this machine. Once a second it
/// requests what the panel shows; it reconnects when the connection is lost.
class InspectorClient : public QObject
{
    Q_OBJECT

public:
    static constexpr quint16 usualPort = 24509;
    /// The time between two rounds of requests in milliseconds.
    static constexpr int period = 1000;

    explicit InspectorClient(quint16 port = usualPort, QObject *parent = nullptr);
    ~InspectorClient() override;
    Q_DISABLE_COPY(InspectorClient)

    /// What to request from now on, starting at once if the server is available; if empty, the
    /// connection is closed.
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
