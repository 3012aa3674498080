#pragma once

#include <QJsonObject>

#include <optional>

/// What is listed about the memory besides its load, in KiB. What a system does not tell is absent.
struct MemoryDetails
{
    std::optional<quint64> swapTotal;
    std::optional<quint64> swapUsed;
    /// Contents of files, which can be given up.
    std::optional<quint64> cached;
    /// What has yet to be written to disks.
    std::optional<quint64> dirty;
    /// What is kept compressed, as it is without compression.
    std::optional<quint64> compressed;
};

/// "Swap Used", "Swap Total", "Memory Cached", "Memory Dirty" and "Memory Compressed" (MB of 1024
/// KiB).
QJsonObject memoryDetailLabels(const MemoryDetails &details);

/// The group of these labels.
QString memoryDetailsGroup();
