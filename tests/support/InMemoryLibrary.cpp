#include "tests/support/InMemoryLibrary.h"

#include "sensors/VqSystemMonitorLib.h"

#include <QJsonArray>

#include <new>

void InMemoryLibrary::reset()
{
    systemInfo = {};
    cpuInfo = {};
    cpuDtsInfo = {};
    cpuEnhancedInfo = {};
    gpuInfo = {};
    networkInfo = {};
    smartInfo = {};
    laterSmartInfos.clear();
    presentMon = {};
    allSensors = {};
    canBeCreated = true;
    initSucceeds = true;
    instances = 0;
    initCalls = 0;
    lastInitFlag = false;
    detectedSensorsCalls = 0;
    deinitCalls = 0;
    queries.clear();
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
    if (!InMemoryLibrary::canBeCreated)
        throw std::bad_alloc();
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
    InMemoryLibrary::queries.append(QStringLiteral("getSystemInfo"));
    return InMemoryLibrary::systemInfo;
}

QJsonObject VqSystemMonitorLib::getMemoryTimingsInfo()
{
    InMemoryLibrary::queries.append(QStringLiteral("getMemoryTimingsInfo"));
    return {};
}

QJsonObject VqSystemMonitorLib::getCPUInfo()
{
    InMemoryLibrary::queries.append(QStringLiteral("getCPUInfo"));
    return InMemoryLibrary::cpuInfo;
}

QJsonObject VqSystemMonitorLib::getCPUDTSInfo()
{
    InMemoryLibrary::queries.append(QStringLiteral("getCPUDTSInfo"));
    return InMemoryLibrary::cpuDtsInfo;
}

QJsonObject VqSystemMonitorLib::getCPUEnhancedInfo()
{
    InMemoryLibrary::queries.append(QStringLiteral("getCPUEnhancedInfo"));
    return InMemoryLibrary::cpuEnhancedInfo;
}

QJsonObject VqSystemMonitorLib::getGPUInfo()
{
    InMemoryLibrary::queries.append(QStringLiteral("getGPUInfo"));
    return InMemoryLibrary::gpuInfo;
}

QJsonObject VqSystemMonitorLib::getNetworkInfo()
{
    InMemoryLibrary::queries.append(QStringLiteral("getNetworkInfo"));
    return InMemoryLibrary::networkInfo;
}

QJsonObject VqSystemMonitorLib::getSMARTInfo()
{
    InMemoryLibrary::queries.append(QStringLiteral("getSMARTInfo"));
    const QJsonObject answer = InMemoryLibrary::smartInfo;
    if (!InMemoryLibrary::laterSmartInfos.isEmpty())
        InMemoryLibrary::smartInfo = InMemoryLibrary::laterSmartInfos.takeFirst();
    return answer;
}

QJsonObject VqSystemMonitorLib::getPresentMon()
{
    InMemoryLibrary::queries.append(QStringLiteral("getPresentMon"));
    return InMemoryLibrary::presentMon;
}

QJsonObject VqSystemMonitorLib::getAllSensorsData()
{
    InMemoryLibrary::queries.append(QStringLiteral("getAllSensorsData"));
    return InMemoryLibrary::allSensors;
}
