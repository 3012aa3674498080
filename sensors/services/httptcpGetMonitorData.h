#pragma once

#include <QJsonObject>
#include <QObject>
#include <QString>
#include <QUrl>

/// The HTTP replies of the machine's performance service. This release sends no requests; what the
/// signals carry would be written to the plugin's log.
class httptcpGetMonitorData : public QObject
{
    Q_OBJECT

public:
    explicit httptcpGetMonitorData(QObject *parent = nullptr);

    QUrl url() const { return m_url; }

Q_SIGNALS:
    void sigGotDriveInfo(const QJsonObject &info);
    void sigFetchError(const QString &msg);

private:
    void onGotDriveInfo(const QJsonObject &obj);
    void onFetchError(const QString &msg);

    QUrl m_url;
};
