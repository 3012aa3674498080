#include "fuzz/FuzzSupport.h"
#include "sensors/services/IoLocalSocket.h"
#include "sensors/services/LibreHardwareWebSocket.h"

// Replies of the hardware-information services.

extern "C" int LLVMFuzzerInitialize(int * /*argc*/, char *** /*argv*/)
{
    fuzz::silence();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    serviceResult(fuzz::textOf(data, size));
    parseServiceReply(fuzz::bytesOf(data, size));
    return 0;
}
