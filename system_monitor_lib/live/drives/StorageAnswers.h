#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// What a drive answers to IOCTL_STORAGE_QUERY_PROPERTY of Windows, in the layouts that the
/// documentation of the Windows driver kit gives. An answer may be cut off or hold anything.

/// The temperature of the drive itself in °C, of a STORAGE_TEMPERATURE_DATA_DESCRIPTOR. Nothing
/// when no sensor reports, or none that is plausible.
std::optional<double> parseDriveCelsius(const QByteArray &answer);

/// The maker's name, if there is one, and the product's, of a STORAGE_DEVICE_DESCRIPTOR. Empty when
/// the drive has no name.
QString parseDriveModel(const QByteArray &answer);
