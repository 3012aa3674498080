#pragma once

#include <QString>

/// Where the readings of a machine lie; another place holds a captured machine. Without meaning on
/// systems that have no such files.
struct MachineRoots
{
    QString proc = QStringLiteral("/proc");
    QString sys = QStringLiteral("/sys");
    /// The list of PCI devices by number; empty when there is none.
    QString pciIds = {};
    /// NVIDIA's management library, loaded when it is there; empty when it shall not be.
    QString nvidiaLibrary = {};
    /// Whether the chips of the board are read. They are always those of this machine.
    bool boardChips = false;
};

/// Everything that this machine has.
MachineRoots thisMachine();
