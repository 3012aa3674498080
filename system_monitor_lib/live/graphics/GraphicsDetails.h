#pragma once

#include <QJsonObject>
#include <QStringList>

#include <optional>

/// What is listed about a card besides the readings of the GPU query. What is unknown is absent.
struct GraphicsDetails
{
    /// The loads of its engines, 0 to 100 %.
    std::optional<double> drawPercent;
    std::optional<double> copyPercent;
    std::optional<double> decodePercent;
    std::optional<double> encodePercent;
    /// Of its video engine, where decoding and encoding are one.
    std::optional<double> videoPercent;
    /// Of the connection to its memory.
    std::optional<double> memoryPercent;
    /// Of the fan's highest speed, for cards that do not tell its turns.
    std::optional<double> fanPercent;
    /// Of its link to the processor.
    std::optional<double> linkLanes;
    std::optional<double> linkGeneration;
};

/// "Graphics 3D Load", "Graphics Copy Load", "Graphics Video Decode Load", "Graphics Video Encode
/// Load", "Graphics Video Load", "Graphics Memory Controller Load", "Graphics Fan Speed" (%),
/// "Graphics Link Width" (lanes) and "Graphics Link Generation" (a plain number).
QJsonObject graphicsDetailLabels(const GraphicsDetails &details);
QStringList graphicsDetailLabelNames();

/// The generation of a link from the text of current_link_speed of a PCI device, such as
/// "16.0 GT/s PCIe". Nothing when it is unknown.
std::optional<double> linkGeneration(const QString &speed);
