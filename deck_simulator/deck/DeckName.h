#pragma once

#include <QString>

namespace deck {

/// The name of the deck in the profile itself; the others are kept beside it.
QString defaultDeckName();
/// Whether \a name is that name, in small or capital letters.
bool isDefaultDeck(const QString &name);

/// Why a deck cannot have this name, as the end of a sentence ("must not be empty"); empty if it
/// can. A name that is allowed names a file in one folder on every system.
QString deckNameFault(const QString &name);

} // namespace deck
