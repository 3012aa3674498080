#include "system_monitor_lib/live/network/AdapterFigures.h"

#include "system_monitor_lib/SensorTrees.h"

namespace {

const QString uploadLabel = QStringLiteral("Adapter Upload Rate");
const QString downloadLabel = QStringLiteral("Adapter Download Rate");
const QString speedLabel = QStringLiteral("Adapter Link Speed");
const QString uploadedLabel = QStringLiteral("Adapter Uploaded");
const QString downloadedLabel = QStringLiteral("Adapter Downloaded");

std::optional<double> megabits(std::optional<double> bytes)
{
    constexpr double bytesPerMegabit = 1'000'000.0 / 8;
    return bytes ? std::optional(*bytes / bytesPerMegabit) : std::nullopt;
}

double gigabytes(quint64 bytes)
{
    constexpr double bytesPerGigabyte = 1024.0 * 1024.0 * 1024.0;
    return static_cast<double>(bytes) / bytesPerGigabyte;
}

} // namespace

QJsonObject adapterLabels(const AdapterFigures &figures)
{
    const QString speed = QStringLiteral("Mbit/s");
    const QString amount = QStringLiteral("GB");
    QJsonObject labels{{uploadedLabel, reading(gigabytes(figures.sentBytes), amount)},
                       {downloadedLabel, reading(gigabytes(figures.receivedBytes), amount)}};
    addReading(labels, uploadLabel, megabits(figures.sentBytesPerSecond), speed);
    addReading(labels, downloadLabel, megabits(figures.receivedBytesPerSecond), speed);
    if (figures.linkBytesPerSecond > 0)
        addReading(labels, speedLabel, megabits(figures.linkBytesPerSecond), speed);
    return labels;
}

QStringList adapterLabelNames()
{
    static const QStringList names{uploadLabel, downloadLabel, speedLabel, uploadedLabel,
                                   downloadedLabel};
    return names;
}
