#pragma once

#include <QStringList>

/// What can be done to another process, and learnt of it, from outside.
namespace processcontrol {

/// Halts the process until thaw().
void freeze(qint64 process);
void thaw(qint64 process);

/// Its open descriptors, or handles; -1 when it cannot be looked at.
int openDescriptors(qint64 process);

/// Its memory at present, in bytes; -1 when it cannot be looked at.
qint64 residentMemory(qint64 process);

/// The processor time that it has taken so far, in milliseconds, to a hundredth of a second; -1
/// when it cannot be looked at.
qint64 processorTime(qint64 process);

/// The framework's platforms that it has loaded, such as "offscreen".
QStringList loadedPlatforms(qint64 process);

} // namespace processcontrol
