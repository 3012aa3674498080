#include "fuzz/FuzzSupport.h"
#include "sensors/services/ServeConfig.h"

// The configuration file of the hardware-information service.

extern "C" int LLVMFuzzerInitialize(int * /*argc*/, char *** /*argv*/)
{
    fuzz::silence();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const int port = configuredPort(fuzz::bytesOf(data, size));
    const QByteArray written = "[HWInfoServe]\nport=" + QByteArray::number(port);
    fuzz::require(configuredPort(written) == port);
    return 0;
}
