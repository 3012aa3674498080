#include "fuzz/FuzzSupport.h"
#include "sensors/LibreHardwareWebSocket.h"

#include <QDateTime>
#include <QFile>

// The configuration file of the hardware-information service.

namespace {

fuzz::ScratchFile *file = nullptr;

/// The framework knows a file again by its size and time.
void makeLookNew()
{
    static qint64 time = 0;
    QFile written(file->path());
    fuzz::require(written.open(QIODevice::ReadWrite) &&
                  written.setFileTime(QDateTime::fromMSecsSinceEpoch(++time),
                                      QFileDevice::FileModificationTime));
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int * /*argc*/, char *** /*argv*/)
{
    fuzz::silence();
    file = new fuzz::ScratchFile(QStringLiteral("ProgramData/ParvaneCraftServe/ServeConfig.ini"));
    qputenv("SystemDrive", QFile::encodeName(file->folder()));
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    file->write(fuzz::bytesOf(data, size));
    makeLookNew();
    LibreHardwareWebSocket::readConfiguredPort();
    return 0;
}
