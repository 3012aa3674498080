#pragma once

#include "system_monitor_lib/live/drives/DriveActivity.h"

#include <QByteArray>
#include <QString>

#include <optional>

/// Replies of drives to IOCTL_STORAGE_QUERY_PROPERTY and IOCTL_DISK_PERFORMANCE of Windows, with
/// the layouts documented in the Windows driver kit. A reply may be truncated or contain anything.

/// The temperature of the drive itself in °C, from a STORAGE_TEMPERATURE_DATA_DESCRIPTOR. Nothing
/// when no sensor reports a plausible value.
std::optional<double> parseDriveCelsius(const QByteArray &answer);

/// The maker's name, if there is one, and the product's, from a STORAGE_DEVICE_DESCRIPTOR. Empty
/// when the drive has no name.
QString parseDriveModel(const QByteArray &answer);

/// Whether the drive has moving parts, from a DEVICE_SEEK_PENALTY_DESCRIPTOR. True when it does not
/// say.
bool parseIsRotating(const QByteArray &answer);

/// What a DISK_PERFORMANCE counts about reading and writing, which changes whenever the drive is
/// used. Empty when the answer is too short.
QByteArray parseServed(const QByteArray &answer);

/// What a DISK_PERFORMANCE counts; of the time during which the drive was busy only the increase
/// has a meaning. Nothing when the answer is too short or has a number below 0.
std::optional<DriveCounters> parseDriveCounters(const QByteArray &answer);
