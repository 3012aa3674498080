#pragma once

#include <QJsonObject>
#include <QStringList>

#include <optional>

/// What is listed about an adapter besides its rates for the network query.
struct AdapterFigures
{
    std::optional<double> sentBytesPerSecond;
    std::optional<double> receivedBytesPerSecond;
    /// 0 when unknown or without a link.
    double linkBytesPerSecond = 0;
    /// Since the adapter was found.
    quint64 sentBytes = 0;
    quint64 receivedBytes = 0;
};

/// "Adapter Upload Rate", "Adapter Download Rate", "Adapter Link Speed" (Mbit/s of 1,000,000 bits),
/// "Adapter Uploaded" and "Adapter Downloaded" (GB of 1024 MB).
QJsonObject adapterLabels(const AdapterFigures &figures);
QStringList adapterLabelNames();
