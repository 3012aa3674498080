#pragma once

#include "sensors/machine/drives.h"

#include <QList>
#include <QString>

#include <optional>

/// What the substitutes for the machine's drives and playback devices answer. Tests write them;
/// what was asked is in InMemoryLibrary::queries.
struct InMemoryMachine
{
    struct Drive
    {
        QString root;
        std::optional<QString> volumeName;
        std::optional<DriveSpace> space;
    };

    struct Device
    {
        QString name;
        float volume; ///< -1: it cannot be read.
    };

    static inline QList<Drive> drives;
    static inline QList<Device> devices;

    /// No drives, no devices.
    static void reset();

    static DriveSpace gigabytes(quint64 freeGB, quint64 totalGB);
};
