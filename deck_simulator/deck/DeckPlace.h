#pragma once

namespace deck {

/// A key or a dial of a deck. Keys are counted from the upper left corner; dials have row 0.
struct DeckPlace
{
    int column = 0;
    int row = 0;
    bool dial = false;
};

inline bool operator==(const DeckPlace &left, const DeckPlace &right)
{
    return left.column == right.column && left.row == right.row && left.dial == right.dial;
}

inline bool operator!=(const DeckPlace &left, const DeckPlace &right)
{
    return !(left == right);
}

} // namespace deck
