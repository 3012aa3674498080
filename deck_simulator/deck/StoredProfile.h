#pragma once

#include "deck_simulator/deck/DeckModel.h"

#include <QByteArray>
#include <QSize>
#include <QString>
#include <QStringList>
#include <QVector>

namespace deck {

/// What the plugin is started with, beside the deck.
struct LaunchChoices
{
    QString language = QStringLiteral("en");
    /// The info text goes without its double quotes, as behind a command line that eats them.
    bool quoteStripped = false;
    QString recording; ///< A recording of sensors; empty: live readings.
};

bool operator==(const LaunchChoices &left, const LaunchChoices &right);

/// All that the window keeps between its runs.
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

/// The profile in a JSON text; what is wrong with it is told in \a faults, and left out. Nothing
/// of a text that is no profile is taken: the result is then a profile without keys.
StoredProfile readProfile(const QByteArray &text, QStringList *faults);

/// The deck of the first start.
StoredProfile firstProfile();

} // namespace deck
