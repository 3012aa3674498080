#include "system_monitor_lib/live/graphics/GraphicsDetails.h"

#include "system_monitor_lib/SensorTrees.h"

#include <iterator>

namespace {

const QString drawLabel = QStringLiteral("Graphics 3D Load");
const QString copyLabel = QStringLiteral("Graphics Copy Load");
const QString decodeLabel = QStringLiteral("Graphics Video Decode Load");
const QString encodeLabel = QStringLiteral("Graphics Video Encode Load");
const QString videoLabel = QStringLiteral("Graphics Video Load");
const QString memoryLabel = QStringLiteral("Graphics Memory Controller Load");
const QString fanLabel = QStringLiteral("Graphics Fan Speed");
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
    addReading(labels, videoLabel, details.videoPercent, percent);
    addReading(labels, memoryLabel, details.memoryPercent, percent);
    addReading(labels, fanLabel, details.fanPercent, percent);
    addReading(labels, widthLabel, details.linkLanes, QStringLiteral("lanes"));
    addReading(labels, generationLabel, details.linkGeneration, QString());
    return labels;
}

QStringList graphicsDetailLabelNames()
{
    static const QStringList names{drawLabel,   copyLabel, decodeLabel, encodeLabel,    videoLabel,
                                   memoryLabel, fanLabel,  widthLabel,  generationLabel};
    return names;
}

std::optional<double> linkGeneration(const QString &speed)
{
    static constexpr double speeds[] = {2.5, 5, 8, 16, 32, 64};
    bool isNumber = false;
    const double transfers = speed.section(QLatin1Char(' '), 0, 0).toDouble(&isNumber);
    for (std::size_t index = 0; isNumber && index < std::size(speeds); ++index) {
        if (qFuzzyCompare(transfers, speeds[index]))
            return static_cast<double>(index + 1);
    }
    return std::nullopt;
}
