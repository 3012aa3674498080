#include "sensors/services/httptcpGetMonitorData.h"

#include "SDK/Logger/Logger.h"

#include <QJsonValue>

httptcpGetMonitorData::httptcpGetMonitorData(QObject *parent)
    : QObject(parent)
{
    connect(this, &httptcpGetMonitorData::sigGotDriveInfo, this,
            &httptcpGetMonitorData::onGotDriveInfo);
    connect(this, &httptcpGetMonitorData::sigFetchError, this,
            &httptcpGetMonitorData::onFetchError);
}

void httptcpGetMonitorData::onGotDriveInfo(const QJsonObject &obj)
{
    LogDebug(labelled("Drive =", obj.value(QLatin1String("drive")).toString()));
}

void httptcpGetMonitorData::onFetchError(const QString &msg)
{
    LogDebug(labelled("msg: ", msg));
}
