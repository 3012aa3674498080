#include "inspector_server/RequestTable.h"

#include "sensors/systemInfor.h"

#include <QJsonValue>

#include <algorithm>
#include <iterator>

namespace {

/// Plain decimal; a reading that is shown as unsigned comes in as such.
template <typename Integer>
QString decimal(Integer value)
{
    return QString::number(value, 10);
}

/// At most six significant digits.
QString general(double value)
{
    return QString::number(value, 'g', 6);
}

struct RequestRow
{
    const char *name;
    QJsonValue (*answer)();
};

using Info = systemInfor;

const RequestRow requestTable[] = {
    {"Cpu Usage", [] { return QJsonValue(decimal(Info::CpuUsage) + Info::CpuUsageUnits); }},
    {"Physical Memory Usage",
     [] { return QJsonValue(decimal(Info::MemoryLoad) + Info::MemoryLoadUnits); }},
    {"Network Upload Speed",
     [] { return QJsonValue(general(Info::NetUpRate) + Info::NetUpRateUnits); }},
    {"Network Download Speed",
     [] { return QJsonValue(general(Info::NetDownRate) + Info::NetDownRateUnits); }},
    {"Memory Used MB", [] { return QJsonValue(decimal(Info::MemoryUsedMB)); }},
    {"Memory Free MB", [] { return QJsonValue(decimal(Info::MemoryAvailableMB)); }},
    {"Memory Total MB", [] { return QJsonValue(decimal(Info::MemoryTotalMB)); }},
    {"Memory Model", [] { return QJsonValue(decimal(Info::MemoryTotalGBRounded)); }},
};

} // namespace

QJsonObject answerRequest(const QString &request)
{
    const auto row = std::find_if(std::begin(requestTable), std::end(requestTable),
                                  [&request](const RequestRow &candidate) {
                                      return request == QLatin1String(candidate.name);
                                  });
    if (row == std::end(requestTable))
        return {};
    return {{QStringLiteral("event"), request}, {QStringLiteral("info"), row->answer()}};
}
