#pragma once

#include <QByteArray>
#include <QString>

#include <memory>

/// A drive while it is open.
class OpenDrive
{
public:
    enum class Property {
        Device,
        SeekPenalty,
        Temperature, ///< Counts as a use of the drive.
    };

    OpenDrive() = default;
    virtual ~OpenDrive() = default;
    Q_DISABLE_COPY(OpenDrive)

    virtual bool isAwake() = 0;
    /// The reply to IOCTL_STORAGE_QUERY_PROPERTY; empty when the drive does not know the property.
    virtual QByteArray property(Property property) = 0;
    /// The reply to IOCTL_DISK_PERFORMANCE, which the system gives without the drive; empty when it
    /// does not count.
    virtual QByteArray performance() = 0;
};

/// The drives that Windows numbers. They are opened without any access right to their contents.
class StorageSystem
{
public:
    StorageSystem() = default;
    virtual ~StorageSystem() = default;
    Q_DISABLE_COPY(StorageSystem)

    /// Null when there is no such drive. \a place is a name such as "PhysicalDrive0".
    virtual std::unique_ptr<OpenDrive> open(const QString &place) = 0;
};

/// The drives of this machine.
std::unique_ptr<StorageSystem> storageSystem();
