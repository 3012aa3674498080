#pragma once

#include <QString>

// Readers of the list of all sensors find processor and graphics card by "CPU" and "GPU" in the
// name of a group, the pump by "AIO Pump" in a label, and the processor's fans by "CPU" and "Fan"
// in one. The names of other devices come from their makers and owners and may contain anything.

/// "KIND: NAME", the group of a device that is neither a processor nor a graphics card. Words by
/// which others are found are replaced: "CPU backup" becomes "processor backup".
QString deviceGroup(const QString &kind, const QString &name);

/// \a label after the name of its device. If only the name would make it a pump or a fan of the
/// processor, words are replaced in the same way.
QString labelOfDevice(const QString &name, const QString &label);
