#include "deck_simulator/deck/DeckModel.h"
#include "deck_simulator/deck/StoredProfile.h"
#include "fuzz/FuzzSupport.h"

using namespace deck;

// The file in which the simulator's window saves its deck. What was read from one and written again
// has no errors.

/// The file is read once, so it does not matter here that Qt never frees repeated members.
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wreserved-identifier" // The name is the sanitizer's.
extern "C" const char *__asan_default_options()
{
    return "detect_leaks=0";
}
#pragma clang diagnostic pop

extern "C" int LLVMFuzzerInitialize(int * /*argc*/, char *** /*argv*/)
{
    fuzz::silence();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    QStringList faults;
    const StoredProfile profile = readProfile(fuzz::bytesOf(data, size), &faults);
    DeckModel deck;
    deck.restore(profile.grid, profile.dials, profile.entries);
    fuzz::require(deck.grid().width() > 0 && deck.grid().width() <= DeckModel::mostColumns);
    fuzz::require(deck.grid().height() > 0 && deck.grid().height() <= DeckModel::mostRows);
    fuzz::require(deck.dials() >= 0 && deck.dials() <= DeckModel::mostDials);
    fuzz::require(deck.entries().size() <= profile.entries.size());
    QStringList otherFaults;
    const StoredProfile again = readProfile(profileText(profile), &otherFaults);
    fuzz::require(otherFaults.isEmpty() && again.entries.size() == profile.entries.size());
    return 0;
}
