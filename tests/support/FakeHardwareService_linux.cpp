#include "tests/support/FakeHardwareService.h"

void FakeHardwareService::announceToPrograms() {}
