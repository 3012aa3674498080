#include "system_monitor_lib/live/processor/CpuLoadFigure.h"

#include "system_monitor_lib/live/PerformanceCounter.h"

CpuLoadFigure systemCpuLoadFigure()
{
    // What the task manager shows: work done compared with the nominal clock, in all groups of
    // processors.
    const auto counter = std::make_shared<PerformanceCounter>(
        QStringLiteral("\\Processor Information(_Total)\\% Processor Utility"));
    return [counter](qint64 nowNs) { return counter->value(nowNs); };
}
