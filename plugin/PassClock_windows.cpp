#include "plugin/PassClock.h"

#include <windows.h>

qint64 passTime()
{
    return static_cast<qint64>(GetTickCount64());
}
