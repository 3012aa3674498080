#pragma once

#include <QString>
#include <QStringList>

namespace deck {

/// The decks that are kept by name: the default one is the profile itself, each other one a file
/// "NAME.json" in the folder "decks" beside it. Which one was open last is kept there too.
class DeckShelf
{
public:
    /// \a profile is the path of the profile. Makes nothing.
    explicit DeckShelf(const QString &profile);

    /// The default deck and those that there are, without files whose name cannot be one.
    [[nodiscard]] QStringList names() const;
    /// Whether it is the default deck or there is one with this name, in small or capital letters.
    [[nodiscard]] bool has(const QString &name) const;
    /// The name as it is kept, with its own small and capital letters; \a name if there is none.
    [[nodiscard]] QString keptName(const QString &name) const;
    /// The file of a deck that may have this name (see deckNameFault), whether there is one or not.
    [[nodiscard]] QString file(const QString &name) const;

    /// The deck that was open last; the default one if that is unknown or gone.
    [[nodiscard]] QString last() const;
    /// False when that cannot be written.
    bool rememberLast(const QString &name) const;

private:
    [[nodiscard]] QString lastFile() const;

    QString m_profile;
    QString m_folder;
};

} // namespace deck
