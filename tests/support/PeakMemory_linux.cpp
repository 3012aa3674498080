#include "tests/support/PeakMemory.h"

#include <sys/resource.h>

qint64 peakMemory()
{
    struct rusage usage
    {
    };
    return getrusage(RUSAGE_SELF, &usage) == 0 ? qint64(usage.ru_maxrss) * 1024 : 0;
}
