#include "fuzz/FuzzSupport.h"
#include "system_monitor_lib/live/graphics/AdapterAnswers.h"
#include "system_monitor_lib/live/graphics/DisplayDevices.h"
#include "system_monitor_lib/live/graphics/GpuCounters.h"
#include "system_monitor_lib/live/processor/CoreClocks.h"
#include "system_monitor_lib/live/processor/ProcessorTimes.h"

// What graphics drivers, performance counters and processors answer on Windows.

using namespace adapter_answers;

namespace {

void isWithin(std::optional<double> value, double lowest, double highest)
{
    fuzz::require(!value || (*value >= lowest && *value <= highest));
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int * /*argc*/, char *** /*argv*/)
{
    fuzz::silence();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray answer = fuzz::bytesOf(data, size);
    const AdapterPerformance adapter = parseAdapterPerformance(answer);
    isWithin(adapter.celsius, 0, 140);
    isWithin(adapter.memoryMegahertz, 0, 20'000);
    isWithin(adapter.fanRpm, 0, 50'000);
    const NodePerformance node = parseNodePerformance(answer);
    isWithin(node.megahertz, 0, 20'000);
    isWithin(node.volts, 0, 10);
    const QString address = parseAddress(answer);
    fuzz::require(address.isEmpty() || address.size() == 12);
    parseType(answer);
    parseNodeKind(answer);

    const QString name = QString::fromLatin1(answer);
    const auto usages = gpuUsage({{name, 60}, {name, 70}}, {{name, 1}});
    for (const GpuUsage &usage : usages)
        isWithin(usage.loadPercent, 0, 100);
    const QString id = pciIdOfInstance(name);
    fuzz::require(id.isEmpty() || id.size() == 9);

    fuzz::require(parseCores(answer).size() <= size / 48);
    coreClocks(parseCores(answer), {{3000, 3100}, {2000}});
    sumOfProcessorTimes({answer, answer});
    return 0;
}
