#include "tests/support/Interrupt.h"

#include <QProcess>

#include <windows.h>

void interrupt(QProcess &process)
{
    // Only who shares a console with it can. This one does not take the keys itself.
    FreeConsole();
    if (!AttachConsole(static_cast<DWORD>(process.processId()))) {
        qWarning("No console to interrupt the program in: error %lu", GetLastError());
        return;
    }
    SetConsoleCtrlHandler(nullptr, TRUE);
    GenerateConsoleCtrlEvent(CTRL_C_EVENT, 0);
    FreeConsole();
}
