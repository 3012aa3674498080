#include "tests/support/Interrupt.h"

#include <QProcess>

void interrupt(QProcess &process)
{
    process.terminate();
}
