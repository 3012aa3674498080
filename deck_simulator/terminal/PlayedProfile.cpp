#include "deck_simulator/terminal/PlayedProfile.h"

#include "deck_simulator/deck/ActionList.h"
#include "deck_simulator/deck/ProfileStore.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <tuple>

namespace deck {

namespace {

bool comesFirst(const DeckEntry &left, const DeckEntry &right)
{
    const auto order = [](const DeckPlace &place) {
        return std::make_tuple(place.dial, place.row, place.column);
    };
    return order(left.place) < order(right.place);
}

DeckProfile deckOf(const StoredProfile &profile)
{
    DeckModel model;
    model.restore(profile.grid, profile.dials, profile.entries);
    QVector<DeckEntry> entries = model.entries();
    std::sort(entries.begin(), entries.end(), comesFirst);
    DeckProfile deck;
    deck.name = QStringLiteral("Simulated deck");
    deck.grid = model.grid();
    for (const DeckEntry &entry : qAsConst(entries)) {
        if (!model.contains(entry.place))
            continue;
        DeckKey key(actionCaption(entry.action), entry.action, entry.context,
                    settingsMessage(entry.settings, screenPixels(entry.place.dial)));
        key.setPlace(entry.place);
        deck.keys.append(key);
    }
    return deck;
}

} // namespace

PlayedProfile readPlayedProfile(const QString &file)
{
    if (!QFileInfo::exists(file))
        return {
            {}, {}, QStringLiteral("There is no profile %1.").arg(QDir::toNativeSeparators(file))};
    ProfileStore store(file, ProfileStore::Access::ReadOnly);
    const StoredProfile profile = store.load();
    return {deckOf(profile), profile.launch, store.message()};
}

} // namespace deck
