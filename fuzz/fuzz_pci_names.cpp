#include "fuzz/FuzzSupport.h"
#include "system_monitor_lib/live/graphics/AmdNames.h"
#include "system_monitor_lib/live/graphics/PciNames.h"

// The lists of PCI devices and of AMD cards. The first line is the number of the device to look up,
// such as "10de:2684" or "7480,CF".

namespace {

fuzz::ScratchFile *list = nullptr;

} // namespace

extern "C" int LLVMFuzzerInitialize(int * /*argc*/, char *** /*argv*/)
{
    fuzz::silence();
    list = new fuzz::ScratchFile(QStringLiteral("pci.ids"));
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray input = fuzz::bytesOf(data, size);
    const QString number = QString::fromUtf8(input.left(input.indexOf('\n')));
    list->write(input);
    pciDeviceName(list->path(), number.section(QLatin1Char(':'), 0, 0),
                  number.section(QLatin1Char(':'), 1, 1));
    amdCardName(list->path(), number.section(QLatin1Char(','), 0, 0),
                number.section(QLatin1Char(','), 1, 1));
    return 0;
}
