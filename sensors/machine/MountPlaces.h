#pragma once

#include <QString>

/// Whether users would call what is mounted at \a mountPoint a drive: neither what the system
/// starts from nor what belongs to a container, a pod or a snap.
bool isPlaceOfADrive(const QString &mountPoint);
