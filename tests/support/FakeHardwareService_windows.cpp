#include "tests/support/FakeHardwareService.h"
#include "tests/support/Wine.h"

void FakeHardwareService::announceToPrograms()
{
    // Wine gives every process a SystemDrive of its own choice.
    if (isUnderWine())
        announceIn(QStringLiteral("C:"));
}
