#pragma once

#include <QStringList>

/// The roots "A:\" to "Z:\" of the drives whose bits are set in \a inUse, lowest bit first, but no
/// more than \a most.
QStringList driveRoots(quint32 inUse, int most);
