#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// Replies of drives to IOCTL_STORAGE_QUERY_PROPERTY of Windows, with the layouts documented in the
/// Windows driver kit. A reply may be truncated or contain anything.

/// The temperature of the drive itself in °C, from a STORAGE_TEMPERATURE_DATA_DESCRIPTOR. Nothing
/// when no sensor reports a plausible value.
std::optional<double> parseDriveCelsius(const QByteArray &answer);

/// The maker's name, if there is one, and the product's, from a STORAGE_DEVICE_DESCRIPTOR. Empty
/// when the drive has no name.
QString parseDriveModel(const QByteArray &answer);
