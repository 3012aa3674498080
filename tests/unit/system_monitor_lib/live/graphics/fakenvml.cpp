// Stands in for NVIDIA's management library. Environment variables of the process control it:
// FAKE_NVML_FAIL contains names of functions that return FAKE_NVML_CODE, FAKE_NVML_LOST the number
// of a GPU that is lost. fakeNvmlInUse counts its users, fakeNvmlHeld has a bit for each GPU that
// is held.

#include <QtGlobal>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

namespace {

constexpr int success = 0;
constexpr int gpuIsLost = 15;
constexpr unsigned gpus = 2;
/// One GPU more than are counted can be found by its address.
const char *const addresses[] = {"0000:07:00.0", "0000:09:00.0", "0000:0a:00.0"};

int inUse = 0;
int held = 0;

// The tests set these before they call, from the same thread.
std::string variable(const char *name)
{
    const char *const value = std::getenv(name); // NOLINT(concurrency-mt-unsafe)
    return value ? value : "";
}

int answer(const char *function)
{
    if (inUse == 0)
        return 1;
    const bool fails = variable("FAKE_NVML_FAIL").find(function) != std::string::npos;
    return fails ? std::atoi(variable("FAKE_NVML_CODE").c_str()) : success;
}

} // namespace

struct FakeGpu
{
    unsigned index;
};

struct FakeUtilization
{
    unsigned gpu;
    unsigned memory;
};

struct FakeMemory
{
    unsigned long long total;
    unsigned long long free;
    unsigned long long used;
};

namespace {

int handle(unsigned index, FakeGpu **device)
{
    static FakeGpu known[] = {{0}, {1}, {2}};
    if (variable("FAKE_NVML_LOST") == std::to_string(index))
        return gpuIsLost;
    *device = &known[index];
    held |= 1 << index;
    return answer("Handle");
}

} // namespace

#define EXPORTED extern "C" Q_DECL_EXPORT

EXPORTED int fakeNvmlInUse()
{
    return inUse;
}

EXPORTED int fakeNvmlHeld()
{
    return held;
}

EXPORTED int nvmlInit_v2()
{
    ++inUse;
    const int code = answer("Init");
    if (code != success)
        --inUse;
    return code;
}

EXPORTED int nvmlShutdown()
{
    --inUse;
    held = 0;
    return success;
}

EXPORTED int nvmlDeviceGetCount_v2(unsigned *count)
{
    *count = gpus;
    return answer("Count");
}

EXPORTED int nvmlDeviceGetHandleByIndex_v2(unsigned index, FakeGpu **device)
{
    return index < gpus ? handle(index, device) : 2;
}

EXPORTED int nvmlDeviceGetHandleByPciBusId_v2(const char *address, FakeGpu **device)
{
    unsigned index = 0;
    for (const char *const known : addresses) {
        if (std::strcmp(known, address) == 0)
            return handle(index, device);
        ++index;
    }
    return 6;
}

EXPORTED int nvmlDeviceGetName(FakeGpu *device, char *name, unsigned length)
{
    std::snprintf(name, length, "%s",
                  device->index == 0 ? "NVIDIA GeForce GT 1030" : "NVIDIA GeForce RTX 3060");
    return answer("Name");
}

EXPORTED int nvmlDeviceGetTemperature(FakeGpu *device, int /*sensor*/, unsigned *celsius)
{
    *celsius = device->index == 0 ? 35 : 61;
    return answer("Temperature");
}

EXPORTED int nvmlDeviceGetClockInfo(FakeGpu *device, int kind, unsigned *megahertz)
{
    const unsigned first = kind == 2 ? 405 : 300;
    const unsigned second = kind == 2 ? 7501 : 1807;
    *megahertz = device->index == 0 ? first : second;
    return answer(kind == 2 ? "MemoryClock" : "GraphicsClock");
}

EXPORTED int nvmlDeviceGetUtilizationRates(FakeGpu *device, FakeUtilization *rates)
{
    *rates = {device->index == 0 ? 0U : 42U, 7};
    return answer("Utilization");
}

EXPORTED int nvmlDeviceGetDecoderUtilization(FakeGpu *device, unsigned *percent, unsigned *period)
{
    *percent = device->index == 0 ? 0 : 30;
    *period = 167'000;
    return answer("Decoder");
}

EXPORTED int nvmlDeviceGetEncoderUtilization(FakeGpu *device, unsigned *percent, unsigned *period)
{
    *percent = device->index == 0 ? 0 : 20;
    *period = 167'000;
    return answer("Encoder");
}

EXPORTED int nvmlDeviceGetFanSpeed(FakeGpu *device, unsigned *percent)
{
    *percent = 45;
    // The small card has no fan.
    return device->index == 0 ? 3 : answer("Fan");
}

EXPORTED int nvmlDeviceGetCurrPcieLinkWidth(FakeGpu *device, unsigned *lanes)
{
    *lanes = device->index == 0 ? 4 : 16;
    return answer("LinkWidth");
}

EXPORTED int nvmlDeviceGetCurrPcieLinkGeneration(FakeGpu *device, unsigned *generation)
{
    *generation = device->index == 0 ? 3 : 4;
    return answer("LinkGeneration");
}

EXPORTED int nvmlDeviceGetMemoryInfo(FakeGpu *device, FakeMemory *memory)
{
    constexpr unsigned long long megabyte = 1024ULL * 1024;
    *memory = device->index == 0 ? FakeMemory{2048 * megabyte, 1536 * megabyte, 512 * megabyte}
                                 : FakeMemory{12288 * megabyte, 9216 * megabyte, 3072 * megabyte};
    return answer("MemoryInfo");
}

EXPORTED int nvmlDeviceGetPowerUsage(FakeGpu *device, unsigned *milliwatts)
{
    *milliwatts = 128500;
    // The small card has no sensor for it.
    return device->index == 0 ? 3 : answer("Power");
}
