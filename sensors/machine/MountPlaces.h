#pragma once

#include <QString>

/// Whether the owner of a machine would call what is mounted at \a mountPoint a drive: not what the
/// system starts from, nor what a container, a pod or a snap has for itself.
bool isPlaceOfADrive(const QString &mountPoint);

/// Whether \a mountPoint lies in \a folder, which is not in itself.
bool liesIn(const QString &folder, const QString &mountPoint);
