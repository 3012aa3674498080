#pragma once

#include "deck_simulator/deck/DeckEntry.h"

#include <QMimeData>
#include <QPoint>
#include <QString>

#include <optional>

namespace deck {

/// The place of the pointer in the picture of a drag: beside it, so that the target can be seen.
constexpr QPoint dragOffset(-16, -16);

/// The data of a drag: an action from the list, or a key from another place. The caller owns the
/// data.
QMimeData *actionMime(const QString &action);
QMimeData *placeMime(const DeckPlace &place);

/// The data of a key that is copied.
QMimeData *keyMime(const DeckEntry &entry);

/// Empty when \a data contains no action.
QString actionFrom(const QMimeData &data);
/// Nothing when \a data contains no place.
std::optional<DeckPlace> placeFrom(const QMimeData &data);

/// Nothing when \a data contains no key.
std::optional<DeckEntry> keyFrom(const QMimeData &data);

/// The type of an action's data.
QString actionMimeType();

} // namespace deck
