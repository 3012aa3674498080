#pragma once

#include <QByteArray>
#include <QStringList>

/// The roots, such as "C:\", in \a list, where each ends with a zero. Those that do not lie wholly
/// within its first 100 characters are not seen.
QStringList driveRoots(const QByteArray &list);
