#pragma once

#include "deck_simulator/deck/DeckEntry.h"

#include <QSize>
#include <QStringList>
#include <QVector>

#include <optional>

namespace deck {

/// What a deck is: its size, and the actions on it.
struct DeckState
{
    QSize grid;
    int dials = 0;
    QVector<DeckEntry> entries;
};

/// One key before and after a change; nothing where it is not on the deck.
struct EntryChange
{
    std::optional<DeckEntry> before;
    std::optional<DeckEntry> after;
};

/// The difference between two states of a deck. It can be made and taken back while other keys have
/// changed.
struct DeckChange
{
    QSize gridBefore;
    QSize gridAfter;
    int dialsBefore = 0;
    int dialsAfter = 0;
    QVector<EntryChange> entries;

    [[nodiscard]] bool isEmpty() const;
    /// Its size alone has changed.
    [[nodiscard]] bool isResize() const;
    /// The settings of keys alone have changed.
    [[nodiscard]] bool isOfSettings() const;
    [[nodiscard]] DeckChange reversed() const;
};

DeckChange changeBetween(const DeckState &before, const DeckState &after);

/// What a change is about: contexts of keys, and the names of the settings that it changes. Two
/// changes with the same subjects, one after the other, are one to a user.
QStringList subjectsOf(const DeckChange &change);

/// The two as one. They have the same subjects.
DeckChange joined(const DeckChange &first, const DeckChange &second);

} // namespace deck
