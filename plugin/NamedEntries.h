#pragma once

#include <QString>

#include <algorithm>

/// The place of the first entry named \a name in a list of names with what belongs to them; -1 when
/// there is none.
template <typename List>
int placeOf(const List &entries, const QString &name)
{
    const auto entry = std::find_if(entries.begin(), entries.end(),
                                    [&name](const auto &each) { return each.first == name; });
    return entry == entries.end() ? -1 : static_cast<int>(entry - entries.begin());
}
