#include "plugin/UpdateInterval.h"

std::chrono::milliseconds updateInterval()
{
    return std::chrono::milliseconds(10);
}
