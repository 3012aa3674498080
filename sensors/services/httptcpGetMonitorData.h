#pragma once

#include <QJsonObject>
#include <QObject>
#include <QString>
#include <QUrl>

/// What the machine's performance service answers over HTTP. This release requests nothing: what
/// the signals carry is written to the plugin's log.
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
