#pragma once

#include "deck_simulator/host/DeckStatus.h"

#include <QString>
#include <QStringList>
#include <QTime>
#include <QVector>

#include <optional>

namespace deck {

/// "0.4 s", "12 s", "3 min"; "-" for nothing. \a milliseconds may be negative after a clock change.
QString ageText(std::optional<qint64> milliseconds);

/// A title that has changed at \a time, as one line.
QString changeLine(const DeckKey &key, const QTime &time);

/// The deck as lines for a terminal of \a width columns: one per key below a header line, then the
/// status line. \a now is the clock of DeckKey::lastUpdate.
QStringList deckReport(const QVector<DeckKey> &keys, const DeckStatus &status, qint64 now,
                       int width);

} // namespace deck
