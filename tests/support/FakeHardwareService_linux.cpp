#include "tests/support/FakeHardwareService.h"

QStringList FakeHardwareService::configurationFolders() const
{
    return {m_drive.filePath(QStringLiteral("ProgramData/ParvaneCraftServe"))};
}
