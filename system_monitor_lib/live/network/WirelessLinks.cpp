#include "system_monitor_lib/live/network/WirelessLinks.h"

WirelessState stateOf(const WirelessLink &link)
{
    constexpr qint32 weakest = -150;
    constexpr qint32 strongest = 20;
    constexpr quint64 fastest = 1'000'000'000'000;
    WirelessState state;
    if (!link.isConnected)
        return state;
    // Drivers that do not know it report 0.
    if (link.dbm && *link.dbm != 0 && *link.dbm >= weakest && *link.dbm <= strongest) {
        state.dbm = *link.dbm;
        state.percent = signalPercent(*link.dbm);
    }
    if (link.bitsPerSecond > 0 && link.bitsPerSecond <= fastest)
        state.bitsPerSecond = static_cast<double>(link.bitsPerSecond);
    return state;
}
