#include "tests/support/FakeHardwareService.h"
#include "tests/support/Wine.h"

QStringList FakeHardwareService::configurationFolders() const
{
    const QString folder = QStringLiteral("/ProgramData/ParvaneCraftServe");
    QStringList folders{m_drive.path() + folder};
    // Wine gives every process a SystemDrive of its own choice.
    if (isUnderWine())
        folders.append(QStringLiteral("C:") + folder);
    return folders;
}
