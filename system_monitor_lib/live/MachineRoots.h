#pragma once

#include <QString>
#include <QStringList>

/// The locations of a machine's readings; other locations may hold a captured machine. They have no
/// meaning on systems without such files.
struct MachineRoots
{
    QString proc = QStringLiteral("/proc");
    QString sys = QStringLiteral("/sys");
    /// The list of PCI devices by number; empty when there is none.
    QString pciIds = {};
    /// The list of AMD cards by number and revision; empty when there is none.
    QString amdIds = {};
    /// NVIDIA's management library, loaded if it exists; empty when it must not be loaded.
    QString nvidiaLibrary = {};
    /// Where running services keep their state; empty when it is not read.
    QString run = {};
    /// Whether the chips of the board are read. They are always those of this machine.
    bool boardChips = false;
    /// Whether drivers are asked for their wireless links. They are always those of this machine.
    bool wirelessLinks = false;
};

/// The first of \a paths that exists; empty when none does.
QString firstFile(const QStringList &paths);

/// Everything that this machine has.
MachineRoots thisMachine();
