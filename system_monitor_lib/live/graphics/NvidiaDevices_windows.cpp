#include "system_monitor_lib/live/graphics/ListedNvidiaDevices.h"

std::unique_ptr<NvidiaDevices> nvidiaDevices(const MachineRoots &roots)
{
    return std::make_unique<ListedNvidiaDevices>(roots.nvidiaLibrary,
                                                 std::make_shared<DisplayPower>(displayDevices()),
                                                 std::make_shared<GraphicsCards>(graphicsSystem()));
}
