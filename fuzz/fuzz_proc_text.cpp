#include "fuzz/FuzzSupport.h"
#include "system_monitor_lib/live/drives/BlockStatText.h"
#include "system_monitor_lib/live/files/TextFields.h"
#include "system_monitor_lib/live/memory/ArcText.h"
#include "system_monitor_lib/live/memory/MeminfoText.h"
#include "system_monitor_lib/live/network/WirelessText.h"
#include "system_monitor_lib/live/power/PowerSupplyText.h"
#include "system_monitor_lib/live/processor/ArmCores.h"
#include "system_monitor_lib/live/processor/CpuInfoText.h"
#include "system_monitor_lib/live/processor/ProcStatText.h"
#include "system_monitor_lib/live/system/SystemText.h"

#include <string_view>

// Files of /proc. Each parser gets each input.

extern "C" int LLVMFuzzerInitialize(int * /*argc*/, char *** /*argv*/)
{
    fuzz::silence();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const std::string_view text(reinterpret_cast<const char *>(data), size);
    if (const auto times = parseProcStat(text)) {
        constexpr quint64 fields = 8;
        fuzz::require(times->busy <= fields * largestPlausibleNumber);
        fuzz::require(times->idle <= 2 * largestPlausibleNumber);
    }
    const CpuDetails details = parseProcStatDetails(text);
    if (details.modes)
        fuzz::require(details.modes->user <= details.modes->total);
    coreLoadLabels(details.cores, details.cores);
    if (const auto memory = parseMeminfo(text))
        fuzz::require(memory->total > 0 && memory->available <= memory->total);
    const MemoryDetails memoryDetails = parseMeminfoDetails(text);
    if (memoryDetails.swapUsed)
        fuzz::require(memoryDetails.swapUsed <= memoryDetails.swapTotal);
    parseZramStat(text);
    parseBlockStat(text);
    if (const auto pressure = parsePressure(text))
        fuzz::require(*pressure >= 0 && *pressure <= 100);
    if (const auto uptime = parseUptime(text))
        fuzz::require(*uptime >= 0);
    SystemState systemState;
    parseLoadAverages(text, systemState);
    isUserSession(text);
    for (const auto &[adapter, state] : parseWireless(text))
        fuzz::require(!adapter.isEmpty() && state.percent >= 0 && state.percent <= 100);
    parsePowerSupply(text);
    parseArcGivesBack(text);
    parseCpuModel(text);
    armCores(text);
    for (const auto &[processor, megahertz] : parseCpuClocks(text))
        fuzz::require(processor >= 0 && isPlausibleClock(megahertz));
    return 0;
}
