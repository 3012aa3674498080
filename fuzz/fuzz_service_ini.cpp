#include "fuzz/FuzzSupport.h"
#include "sensors/LibreHardwareWebSocket.h"

#include <QDir>

// The configuration file of the hardware-information service.

extern "C" int LLVMFuzzerInitialize(int * /*argc*/, char *** /*argv*/)
{
    fuzz::silence();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    // Each in a folder of its own: the framework knows files again by name, size and time.
    const fuzz::ScratchFile file(QStringLiteral("ProgramData/ParvaneCraftServe/ServeConfig.ini"));
    file.write(fuzz::bytesOf(data, size));
    qputenv("SystemDrive", QFile::encodeName(file.folder()));
    LibreHardwareWebSocket::readConfiguredPort();
    return 0;
}
