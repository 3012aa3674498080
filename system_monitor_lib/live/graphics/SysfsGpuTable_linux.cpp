#include "system_monitor_lib/live/graphics/SysfsGpuTable.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr double highestTemperature = 140;
constexpr double highestClock = 20'000;
constexpr double highestVoltage = 10;
constexpr double highestPower = 5'000;
constexpr double highestSpeed = 50'000;

// Documentation/gpu/amdgpu/thermal and the drivers' sysfs ABI files in the kernel.
constexpr SysfsGpuRow rows[] = {
    {"amdgpu", "GPU Temperature", "hwmon/temp1_input", 1e3, "°C", highestTemperature},
    {"amdgpu", "GPU Clock", "hwmon/freq1_input", 1e6, "MHz", highestClock},
    {"amdgpu", "GPU Memory Clock", "hwmon/freq2_input", 1e6, "MHz", highestClock},
    {"amdgpu", "GPU Core Load", "device/gpu_busy_percent", 1, "%", 100},
    {"amdgpu", "GPU Core Voltage", "hwmon/in0_input", 1e3, "V", highestVoltage},
    {"amdgpu", "GPU Power", "hwmon/power1_average", 1e6, "W", highestPower},
    {"amdgpu", "GPU Power", "hwmon/power1_input", 1e6, "W", highestPower},
    {"amdgpu", "GPU Fan", "hwmon/fan1_input", 1, "RPM", highestSpeed},
    {"amdgpu", "GPU Junction Temperature", "hwmon/temp2_input", 1e3, "°C", highestTemperature,
     true},
    {"amdgpu", "GPU Memory Temperature", "hwmon/temp3_input", 1e3, "°C", highestTemperature, true},
    {"amdgpu", "Graphics Video Load", "device/vcn_busy_percent", 1, "%", 100, true},
    {"amdgpu", "Graphics Memory Controller Load", "device/mem_busy_percent", 1, "%", 100, true},
    {"radeon", "GPU Temperature", "hwmon/temp1_input", 1e3, "°C", highestTemperature},
    {"radeon", "GPU Fan", "hwmon/fan1_input", 1, "RPM", highestSpeed},
    {"i915", "GPU Clock", "gt_act_freq_mhz", 1, "MHz", highestClock},
    {"i915", "GPU Clock", "gt/gt0/rps_act_freq_mhz", 1, "MHz", highestClock},
    {"i915", "GPU Temperature", "hwmon/temp1_input", 1e3, "°C", highestTemperature},
    {"i915", "GPU Core Voltage", "hwmon/in0_input", 1e3, "V", highestVoltage},
    {"i915", "GPU Fan", "hwmon/fan1_input", 1, "RPM", highestSpeed},
    {"xe", "GPU Clock", "device/tile0/gt0/freq0/act_freq", 1, "MHz", highestClock},
    {"xe", "GPU Temperature", "hwmon/temp2_input", 1e3, "°C", highestTemperature},
    {"xe", "GPU Core Voltage", "hwmon/in1_input", 1e3, "V", highestVoltage},
    {"xe", "GPU Memory Temperature", "hwmon/temp3_input", 1e3, "°C", highestTemperature, true},
    {"xe", "GPU Fan", "hwmon/fan1_input", 1, "RPM", highestSpeed},
    {"nouveau", "GPU Temperature", "hwmon/temp1_input", 1e3, "°C", highestTemperature},
    {"nouveau", "GPU Fan", "hwmon/fan1_input", 1, "RPM", highestSpeed},
};

} // namespace

std::vector<SysfsGpuRow> sysfsGpuRows(const QString &driver)
{
    std::vector<SysfsGpuRow> found;
    std::copy_if(std::begin(rows), std::end(rows), std::back_inserter(found),
                 [&driver](const SysfsGpuRow &row) { return driver == QLatin1String(row.driver); });
    return found;
}

QString vendorOfDriver(const QString &driver)
{
    if (driver == QLatin1String("amdgpu") || driver == QLatin1String("radeon"))
        return QStringLiteral("AMD");
    return driver == QLatin1String("nouveau") ? QStringLiteral("NVIDIA") : QStringLiteral("Intel");
}
