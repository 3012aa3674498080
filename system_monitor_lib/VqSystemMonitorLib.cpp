#include "sensors/VqSystemMonitorLib.h"

#include "system_monitor_lib/live/LiveSource.h"
#include "system_monitor_lib/recorded/RecordedSource.h"

#include <QString>

namespace {

std::unique_ptr<TreeSource> chosenSource()
{
    const QString recording = qEnvironmentVariable("SYSTEM_MONITOR_RECORDING");
    if (!recording.isEmpty())
        return std::make_unique<RecordedSource>(recording);
    return std::make_unique<LiveSource>();
}

} // namespace

/// Holds no source, and so no open file, outside of init and deinit.
class VqSystemMonitorLib::Private
{
public:
    QJsonObject tree(Query query) { return m_source ? m_source->tree(query) : QJsonObject(); }

    bool open()
    {
        m_source = chosenSource();
        return m_source->open();
    }

    void close() { m_source.reset(); }

private:
    std::unique_ptr<TreeSource> m_source;
};

VqSystemMonitorLib::VqSystemMonitorLib(bool /*flag*/, QObject * /*parent*/)
    : d(std::make_unique<Private>())
{
}

VqSystemMonitorLib::~VqSystemMonitorLib() = default;

bool VqSystemMonitorLib::initSystemMonitorLib(bool /*newerThanWindows7*/)
{
    return d->open();
}

// Sensors are found when they appear; there is nothing to count in advance.
void VqSystemMonitorLib::getNumberOfDetectedSensors() {}

void VqSystemMonitorLib::deinitSystemMonitorLib()
{
    d->close();
}

QJsonObject VqSystemMonitorLib::getSystemInfo()
{
    return d->tree(Query::SystemInfo);
}

QJsonObject VqSystemMonitorLib::getMemoryTimingsInfo()
{
    return d->tree(Query::MemoryTimingsInfo);
}

QJsonObject VqSystemMonitorLib::getCPUInfo()
{
    return d->tree(Query::CpuInfo);
}

QJsonObject VqSystemMonitorLib::getCPUDTSInfo()
{
    return d->tree(Query::CpuDtsInfo);
}

QJsonObject VqSystemMonitorLib::getCPUEnhancedInfo()
{
    return d->tree(Query::CpuEnhancedInfo);
}

QJsonObject VqSystemMonitorLib::getGPUInfo()
{
    return d->tree(Query::GpuInfo);
}

QJsonObject VqSystemMonitorLib::getNetworkInfo()
{
    return d->tree(Query::NetworkInfo);
}

QJsonObject VqSystemMonitorLib::getSMARTInfo()
{
    return d->tree(Query::SmartInfo);
}

QJsonObject VqSystemMonitorLib::getPresentMon()
{
    return d->tree(Query::PresentMon);
}

QJsonObject VqSystemMonitorLib::getAllSensorsData()
{
    return d->tree(Query::AllSensorsData);
}
