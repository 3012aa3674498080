#pragma once

#include <QByteArray>
#include <QStringList>

/// The roots, such as "C:\", in \a list, where each ends with a zero. Roots that are not completely
/// within its first 100 characters are ignored.
QStringList driveRoots(const QByteArray &list);
