#include "fuzz/FuzzSupport.h"
#include "sensors/machine/MountInfo.h"

// The kernel's table of mounts.

extern "C" int LLVMFuzzerInitialize(int * /*argc*/, char *** /*argv*/)
{
    fuzz::silence();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray text = fuzz::bytesOf(data, size);
    fuzz::require(parseMountInfo(text).size() <= text.count('\n') + 1);
    parseDeviceNumber(text);
    return 0;
}
