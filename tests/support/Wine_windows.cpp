#include "tests/support/Wine.h"

#include <windows.h>

bool isUnderWine()
{
    return GetProcAddress(GetModuleHandleW(L"ntdll"), "wine_get_version") != nullptr;
}
