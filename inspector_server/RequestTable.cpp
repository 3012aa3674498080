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
    {"Cpu Temperature",
     [] { return QJsonValue(decimal(Info::CpuTemperature) + Info::CpuTemperatureUnits); }},
    {"Cpu Clock", [] { return QJsonValue(decimal(Info::CpuClock) + Info::CpuClockUnits); }},
    {"Cpu Power", [] { return QJsonValue(general(Info::CpuPower) + Info::CpuPowerUnits); }},
    {"Physical Memory Usage",
     [] { return QJsonValue(decimal(Info::MemoryLoad) + Info::MemoryLoadUnits); }},
    {"Network Upload Speed",
     [] { return QJsonValue(general(Info::NetUpRate) + Info::NetUpRateUnits); }},
    {"Network Download Speed",
     [] { return QJsonValue(general(Info::NetDownRate) + Info::NetDownRateUnits); }},
    {"Gpu Temperature",
     [] { return QJsonValue(decimal(Info::GpuTemperature) + Info::GpuTemperatureUnits); }},
    {"Gpu Core Clock", [] { return QJsonValue(decimal(Info::GpuClock) + Info::GpuClockUnits); }},
    {"Gpu Core Utility", [] { return QJsonValue(decimal(Info::GpuLoad) + Info::GpuLoadUnits); }},
    {"Gpu Memory Clock",
     [] { return QJsonValue(decimal(Info::GpuMemoryClock) + Info::GpuMemoryClockUnits); }},
    {"Gpu Memory Utility",
     [] { return QJsonValue(general(Info::GpuMemoryUsage) + Info::GpuMemoryUsageUnits); }},
    {"Memory Used MB", [] { return QJsonValue(decimal(Info::MemoryUsedMB)); }},
    {"Memory Free MB", [] { return QJsonValue(decimal(Info::MemoryAvailableMB)); }},
    {"Memory Total MB", [] { return QJsonValue(decimal(Info::MemoryTotalMB)); }},
    {"Gpu Memory Used",
     [] { return QJsonValue(general(Info::GpuMemoryAllocated) + Info::GpuMemoryAllocatedUnits); }},
    {"Gpu Power", [] { return QJsonValue(general(Info::GpuPower) + Info::GpuPowerUnits); }},
    {"Cpu Model", [] { return QJsonValue(Info::CpuModel); }},
    {"Gpu Model", [] { return QJsonValue(Info::GpuModel); }},
    {"Gpu Voltage", [] { return QJsonValue(general(Info::GpuVoltage) + Info::GpuVoltageUnits); }},
    {"Disk Temperature", [] { return QJsonValue(Info::SmartInfo); }},
    {"Memory Model", [] { return QJsonValue(decimal(Info::MemoryTotalGBRounded)); }},
    {"Cpu Voltage", [] { return QJsonValue(general(Info::CpuVoltage) + Info::CpuVoltageUnits); }},
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
