#pragma once

#include "deck_simulator/deck/DeckModel.h"

#include <QByteArray>
#include <QSize>
#include <QString>
#include <QStringList>
#include <QVector>

#include <optional>

namespace deck {

struct DeckProfile;

/// The settings with which the plugin is started, besides the deck.
struct LaunchChoices
{
    QString language = QStringLiteral("en");
    /// The info text is passed without its double quotes, as after a command line that removes
    /// them.
    bool quoteStripped = false;
    QString recording; ///< A recording of sensors; empty: live readings.
};

bool operator==(const LaunchChoices &left, const LaunchChoices &right);

/// Everything that the window saves between runs.
struct StoredProfile
{
    QSize grid{8, 4};
    int dials = 4;
    QVector<DeckEntry> entries;
    LaunchChoices launch;
    QByteArray windowGeometry;
    QByteArray windowState;
};

/// The profile as a JSON text.
QByteArray profileText(const StoredProfile &profile);

/// The profile in a JSON text; invalid parts are described in \a faults and left out. If the text
/// is not a profile at all, the result is a profile without keys.
StoredProfile readProfile(const QByteArray &text, QStringList *faults);

/// One key of a profile as a JSON text of its own.
QByteArray keyText(const DeckEntry &entry);

/// The key in such a text, with a context of its own; nothing if the text is not one.
std::optional<DeckEntry> readKey(const QByteArray &text);

/// The deck of the first start, with the titles of a language.
StoredProfile firstProfile(const QString &language = {});

/// A profile that begins with the keys of a deck.
StoredProfile profileWith(const DeckProfile &deck);

} // namespace deck
