#include "deck_simulator/terminal/DeckReport.h"

namespace {

QVector<TableColumn> deckColumns()
{
    return {
        {QStringLiteral("Key"), false, 8}, {QStringLiteral("Title"), false, 12},
        {QStringLiteral("Picture"), true}, {QStringLiteral("Bytes"), true},
        {QStringLiteral("Age"), true},     {QStringLiteral("Updates"), true},
        {QStringLiteral("Broken"), true},
    };
}

QString pictureText(const QImage &picture)
{
    return picture.isNull() ? QStringLiteral("-")
                            : QStringLiteral("%1x%2").arg(picture.width()).arg(picture.height());
}

QStringList deckRow(const DeckKey &key, qint64 now)
{
    std::optional<qint64> age;
    if (key.lastUpdate())
        age = now - *key.lastUpdate();
    return {printable(key.name()),
            printable(key.title()),
            pictureText(key.picture()),
            QString::number(key.pictureBytes()),
            ageText(age),
            QString::number(key.pictures()),
            key.brokenPictures() == 0 ? QString() : QString::number(key.brokenPictures())};
}

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

QString ageText(std::optional<qint64> milliseconds)
{
    if (!milliseconds)
        return QStringLiteral("-");
    const double seconds = double(qMax(qint64(0), *milliseconds)) / 1000;
    if (seconds < 10)
        return QStringLiteral("%1 s").arg(seconds, 0, 'f', 1);
    if (seconds < 120)
        return QStringLiteral("%1 s").arg(seconds, 0, 'f', 0);
    return QStringLiteral("%1 min").arg(seconds / 60, 0, 'f', 0);
}

QStringList deckReport(const QVector<DeckKey> &keys, const DeckStatus &status, qint64 now,
                       int width)
{
    QVector<QStringList> rows;
    for (const DeckKey &key : keys)
        rows.append(deckRow(key, now));
    QStringList lines = tableLines(deckColumns(), rows, width);
    const QString line = statusText(status);
    lines.append(displayWidth(line) > width ? fitted(line, width) : line);
    return lines;
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
