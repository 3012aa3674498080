#include "system_monitor_lib/live/graphics/GraphicsDetails.h"

#include "system_monitor_lib/SensorTrees.h"

namespace {

const QString drawLabel = QStringLiteral("Graphics 3D Load");
const QString copyLabel = QStringLiteral("Graphics Copy Load");
const QString decodeLabel = QStringLiteral("Graphics Video Decode Load");
const QString encodeLabel = QStringLiteral("Graphics Video Encode Load");
const QString widthLabel = QStringLiteral("Graphics Link Width");
const QString generationLabel = QStringLiteral("Graphics Link Generation");

} // namespace

QJsonObject graphicsDetailLabels(const GraphicsDetails &details)
{
    const QString percent = QStringLiteral("%");
    QJsonObject labels;
    addReading(labels, drawLabel, details.drawPercent, percent);
    addReading(labels, copyLabel, details.copyPercent, percent);
    addReading(labels, decodeLabel, details.decodePercent, percent);
    addReading(labels, encodeLabel, details.encodePercent, percent);
    addReading(labels, widthLabel, details.linkLanes, QStringLiteral("lanes"));
    addReading(labels, generationLabel, details.linkGeneration, QString());
    return labels;
}

QStringList graphicsDetailLabelNames()
{
    static const QStringList names{drawLabel,   copyLabel,  decodeLabel,
                                   encodeLabel, widthLabel, generationLabel};
    return names;
}
