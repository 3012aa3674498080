#pragma once

#include "deck_simulator/host/DeckHost.h"
#include "deck_simulator/terminal/TerminalTable.h"

#include <QString>
#include <QStringList>
#include <QVector>

#include <optional>

/// What the line below the table tells.
struct DeckStatus
{
    QString link;         ///< "registered", "waiting for the plugin", ...
    qint64 pluginPid = 0; ///< 0: not running.
    double framesPerSecond = 0;
    double bytesPerSecond = 0;
    quint64 sensorRequests = 0; ///< To the hardware-information service.
    LinkCounters counters;
};

/// "512 B", "1.5 KB", "2.0 MB"; 1 KB is 1024 bytes.
QString byteText(double bytes);

/// "0.4 s", "12 s", "3 min"; "-" for nothing. \a milliseconds may be negative after a clock change.
QString ageText(std::optional<qint64> milliseconds);

/// The deck as lines for a terminal of \a width columns: one per key below a header line, then the
/// status line. \a now is the clock of DeckKey::lastUpdate.
QStringList deckReport(const QVector<DeckKey> &keys, const DeckStatus &status, qint64 now,
                       int width);

/// The status line alone; refusals are named only when there were any.
QString statusText(const DeckStatus &status);
