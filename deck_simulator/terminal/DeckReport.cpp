#include "deck_simulator/terminal/DeckReport.h"

#include "deck_simulator/process/PrintableText.h"
#include "deck_simulator/terminal/TerminalTable.h"

namespace deck {

namespace {

// The title ends with the reading: other columns are left out before it is cut to less.
constexpr int fewestOfTitle = 28;

QVector<TableColumn> deckColumns()
{
    return {
        {QStringLiteral("Title"), false, fewestOfTitle, true},
        {QStringLiteral("Key"), false, 8},
        {QStringLiteral("Picture"), true},
        {QStringLiteral("Bytes"), true},
        {QStringLiteral("Age"), true},
        {QStringLiteral("Updates"), true},
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
    return {key.title().isEmpty() ? QStringLiteral("-") : printable(key.title()),
            printable(key.name()),
            pictureText(key.picture()),
            QString::number(key.pictureBytes()),
            ageText(age),
            QString::number(key.pictures()),
            key.brokenPictures() == 0 ? QString() : QString::number(key.brokenPictures())};
}

} // namespace

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

QString changeLine(const DeckKey &key, const QTime &time)
{
    return QStringLiteral("%1  %2  (%3)")
        .arg(time.toString(QStringLiteral("HH:mm:ss")), printable(key.title()),
             printable(key.name()));
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

} // namespace deck
