#include "fuzz/FuzzSupport.h"
#include "system_monitor_lib/live/network/StationMessages.h"

// What the Linux kernel tells of wireless adapters and their links.

extern "C" int LLVMFuzzerInitialize(int * /*argc*/, char *** /*argv*/)
{
    fuzz::silence();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray answer = fuzz::bytesOf(data, size);
    stationmessages::protocolIn(answer);
    if (const auto station = stationmessages::stationIn(answer))
        fuzz::require(!station->name.isEmpty() && station->name.size() < 16);
    if (const auto link = stationmessages::linkIn(answer))
        fuzz::require(link->isConnected && link->dbm.value_or(-1) < 0);
    return 0;
}
