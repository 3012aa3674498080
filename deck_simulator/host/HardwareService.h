#pragma once

#include <QObject>
#include <QString>

class QWebSocket;
class QWebSocketServer;

namespace deck {

/// A hardware-information service without sensors, so that a plugin finds its service at once. It
/// answers {"method":"getAllSensorsData"} with an empty result and every other JSON request with
/// code 1; what is not a JSON object, such as the client's greeting, is passed over.
class HardwareService : public QObject
{
    Q_OBJECT

public:
    explicit HardwareService(QObject *parent = nullptr);

    /// Listens on a free loopback port. False when there is none; errorString says why.
    bool listen();
    /// Closes the connections and listens on another free port; false when there is none.
    bool moveToAnotherPort();
    [[nodiscard]] quint16 port() const;
    [[nodiscard]] QString errorString() const;
    [[nodiscard]] int clients() const { return m_clients; }
    [[nodiscard]] quint64 requests() const { return m_requests; }

    /// Writes the file by which clients find the port, for a system drive at \a folder:
    /// ProgramData/ParvaneCraftServe/ServeConfig.ini. False when it cannot be written.
    [[nodiscard]] bool announce(const QString &folder) const;

private:
    void acceptConnection();
    void answer(QWebSocket *client, const QString &text);

    QWebSocketServer *m_server;
    int m_clients = 0;
    quint64 m_requests = 0;
};

} // namespace deck
