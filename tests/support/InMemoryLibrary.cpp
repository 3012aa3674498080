#include "tests/support/InMemoryLibrary.h"

#include "sensors/VqSystemMonitorLib.h"

#include <QJsonArray>

void InMemoryLibrary::reset()
{
    systemInfo = {};
    cpuInfo = {};
    cpuDtsInfo = {};
    cpuEnhancedInfo = {};
    gpuInfo = {};
    networkInfo = {};
    smartInfo = {};
    presentMon = {};
    allSensors = {};
    initSucceeds = true;
    instances = 0;
    initCalls = 0;
    lastInitFlag = false;
    detectedSensorsCalls = 0;
    deinitCalls = 0;
}

QJsonObject InMemoryLibrary::reading(const QString &label, const QJsonValue &value,
                                     const QString &units)
{
    return {{label, QJsonArray{QJsonObject{{QStringLiteral("value"), value},
                                           {QStringLiteral("units"), units}}}}};
}

class VqSystemMonitorLib::Private
{
};

VqSystemMonitorLib::VqSystemMonitorLib(bool /*flag*/, QObject * /*parent*/)
{
    ++InMemoryLibrary::instances;
}

VqSystemMonitorLib::~VqSystemMonitorLib() = default;

bool VqSystemMonitorLib::initSystemMonitorLib(bool newerThanWindows7)
{
    ++InMemoryLibrary::initCalls;
    InMemoryLibrary::lastInitFlag = newerThanWindows7;
    return InMemoryLibrary::initSucceeds;
}

void VqSystemMonitorLib::getNumberOfDetectedSensors()
{
    ++InMemoryLibrary::detectedSensorsCalls;
}

void VqSystemMonitorLib::deinitSystemMonitorLib()
{
    ++InMemoryLibrary::deinitCalls;
}

QJsonObject VqSystemMonitorLib::getSystemInfo()
{
    return InMemoryLibrary::systemInfo;
}

QJsonObject VqSystemMonitorLib::getMemoryTimingsInfo()
{
    return {};
}

QJsonObject VqSystemMonitorLib::getCPUInfo()
{
    return InMemoryLibrary::cpuInfo;
}

QJsonObject VqSystemMonitorLib::getCPUDTSInfo()
{
    return InMemoryLibrary::cpuDtsInfo;
}

QJsonObject VqSystemMonitorLib::getCPUEnhancedInfo()
{
    return InMemoryLibrary::cpuEnhancedInfo;
}

QJsonObject VqSystemMonitorLib::getGPUInfo()
{
    return InMemoryLibrary::gpuInfo;
}

QJsonObject VqSystemMonitorLib::getNetworkInfo()
{
    return InMemoryLibrary::networkInfo;
}

QJsonObject VqSystemMonitorLib::getSMARTInfo()
{
    return InMemoryLibrary::smartInfo;
}

QJsonObject VqSystemMonitorLib::getPresentMon()
{
    return InMemoryLibrary::presentMon;
}

QJsonObject VqSystemMonitorLib::getAllSensorsData()
{
    return InMemoryLibrary::allSensors;
}
