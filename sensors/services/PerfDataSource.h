#pragma once

#include <QJsonObject>
#include <QObject>
#include <QString>

#include <memory>

class httptcpGetMonitorData;

/// The address of the machine's performance service. This release sends it no requests.
class PerfDataSource : public QObject
{
    Q_OBJECT

public:
    static constexpr int defaultPort = 15500;

    explicit PerfDataSource(QObject *parent = nullptr);
    ~PerfDataSource() override;
    Q_DISABLE_COPY(PerfDataSource)

    /// For the next requests.
    void setPort(int port) { m_port = port; }
    int port() const { return m_port; }

    /// The local machine over HTTP, without the port.
    QString baseAddress() const { return m_baseAddress; }

Q_SIGNALS:
    void gotResult(const QString &method, const QJsonObject &obj);
    void requestFailed(const QString &method, const QString &msg);

private:
    std::unique_ptr<httptcpGetMonitorData> m_fetcher;
    int m_port = defaultPort;
    QString m_baseAddress = QStringLiteral("http://127.0.0.1");
};
