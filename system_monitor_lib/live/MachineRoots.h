#pragma once

#include <QString>

/// Where the kernel's file systems of readings lie; another place holds a captured machine.
/// Without meaning on systems that have none.
struct MachineRoots
{
    QString proc = QStringLiteral("/proc");
    QString sys = QStringLiteral("/sys");
};
