#include "deck_simulator/host/DeckStatus.h"

#include <QStringList>

namespace deck {

namespace {

QString refusalText(const LinkCounters &counters)
{
    const struct
    {
        const char *name;
        quint64 count;
    } refusals[] = {
        {"malformed", counters.malformed},
        {"too long", counters.oversized},
        {"of unknown events", counters.unknownEvents},
        {"for unknown keys", counters.unknownContexts},
        {"with broken pictures", counters.brokenPictures},
        {"refused links", counters.refusedLinks},
    };
    QStringList parts;
    for (const auto &refusal : refusals) {
        if (refusal.count > 0)
            parts.append(
                QStringLiteral("%1 %2").arg(refusal.count).arg(QLatin1String(refusal.name)));
    }
    return parts.join(QStringLiteral(", "));
}

} // namespace

QString byteText(double bytes)
{
    if (bytes < 1024)
        return QStringLiteral("%1 B").arg(bytes, 0, 'f', 0);
    if (bytes < 1024 * 1024)
        return QStringLiteral("%1 KB").arg(bytes / 1024, 0, 'f', 1);
    return QStringLiteral("%1 MB").arg(bytes / (1024 * 1024), 0, 'f', 1);
}

QString stallText(bool stalled)
{
    const auto limit = std::chrono::duration_cast<std::chrono::seconds>(StallWatch::limit);
    return stalled ? QStringLiteral("The plugin stands still: no sign of life for %1 seconds. "
                                    "Its keys may be out of date.")
                         .arg(limit.count())
                   : QStringLiteral("The plugin goes on.");
}

QString statusText(const DeckStatus &status)
{
    QStringList parts{status.link};
    if (status.pluginPid > 0)
        parts.append(QStringLiteral("plugin %1").arg(status.pluginPid));
    parts.append(QStringLiteral("%1 frames/s").arg(status.framesPerSecond, 0, 'f', 1));
    parts.append(QStringLiteral("%1/s").arg(byteText(status.bytesPerSecond)));
    const QString refusals = refusalText(status.counters);
    if (!refusals.isEmpty())
        parts.append(refusals);
    if (status.sensorRequests > 0)
        parts.append(QStringLiteral("%1 sensor requests").arg(status.sensorRequests));
    return parts.join(QStringLiteral(" | "));
}

} // namespace deck
