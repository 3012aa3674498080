#include "shell/desktop.h"

#include <windows.h>

namespace desktop {

void choosePlatform() {}

void attach()
{
    wchar_t name[] = L"Default";
    // The thread keeps the desktop for as long as the process lives: the handle is never closed.
    if (HDESK handle = OpenDesktopW(name, 0, FALSE, GENERIC_ALL))
        SetThreadDesktop(handle);
}

} // namespace desktop
