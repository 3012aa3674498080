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
    /// Of its link to the processor.
    std::optional<double> linkLanes;
    std::optional<double> linkGeneration;
};

/// "Graphics 3D Load", "Graphics Copy Load", "Graphics Video Decode Load", "Graphics Video Encode
/// Load" (%), "Graphics Link Width" (lanes) and "Graphics Link Generation" (a plain number).
QJsonObject graphicsDetailLabels(const GraphicsDetails &details);
QStringList graphicsDetailLabelNames();
