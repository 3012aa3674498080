#include "deck_simulator/terminal/PlayedProfile.h"

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

DeckProfile playedDeck(StoredProfile profile)
{
    std::stable_sort(profile.entries.begin(), profile.entries.end(), comesFirst);
    DeckModel model;
    model.restore(profile.grid, profile.dials, profile.entries);
    return deckOf(model);
}

} // namespace

PlayedProfile readPlayedProfile(const QString &file)
{
    if (!QFileInfo::exists(file))
        return {
            {}, {}, QStringLiteral("There is no profile %1.").arg(QDir::toNativeSeparators(file))};
    ProfileStore store(file, ProfileStore::Access::ReadOnly);
    const StoredProfile profile = store.load();
    return {playedDeck(profile), profile.launch, store.message()};
}

} // namespace deck
