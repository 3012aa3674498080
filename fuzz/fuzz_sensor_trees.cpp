#include "fuzz/FuzzSupport.h"
#include "inspector_server/RequestTable.h"
#include "sensors/VqSystemMonitorLib.h"
#include "sensors/readings/SensorRefresh.h"
#include "sensors/readings/SensorWalk.h"
#include "sensors/systemInfor.h"
#include "json/ParseJson.h"

// Readings from any sensor trees, drives and playback devices.

namespace {

void checkReadings()
{
    fuzz::require(systemInfor::CpuUsage <= 100 && systemInfor::MemoryLoad <= 100);
    fuzz::require(systemInfor::CpuClock >= 0 && systemInfor::CpuClock <= 100000);
    fuzz::require(systemInfor::GpuLoad >= 0 && systemInfor::GpuLoad <= 100);
    fuzz::require(systemInfor::CpuPower >= 0 && systemInfor::CpuPower <= 100000);
    fuzz::require(systemInfor::NetUpRate >= 0 && systemInfor::NetDownRate >= 0);
    fuzz::require(systemInfor::DriveFreeGB.size() == systemInfor::DriveFreePercent.size());
    fuzz::require(systemInfor::DriveFreeGB.size() <= systemInfor::DriveRoots.size());
    for (const int percent : qAsConst(systemInfor::DriveFreePercent))
        fuzz::require(percent >= 0 && percent <= 100);
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int * /*argc*/, char *** /*argv*/)
{
    fuzz::silence();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    fuzz::serve(parseJson(fuzz::bytesOf(data, size)).object());
    VqSystemMonitorLib library(false, nullptr);
    systemInfor::CpuModel.clear();
    systemInfor::GpuModel.clear();
    refreshSystemInfor(&library, 0);
    refreshModelNames(&library);
    checkReadings();
    pairsToTree(systemInfor::CpuFanList);
    pairsToTree(systemInfor::SensorList);
    for (const char *const name : {"drives", "AllAudioEndpointVolume", "Disk Temperature"})
        fuzz::require(!answerRequest(QString::fromLatin1(name)).isEmpty());
    return 0;
}
