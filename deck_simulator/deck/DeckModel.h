#pragma once

#include "deck_simulator/deck/DeckChange.h"

#include <QObject>
#include <QSize>
#include <QString>
#include <QVector>

namespace deck {

/// The actions on keys and dials, with their settings. Keys that lie outside after the grid was
/// made smaller stay in the model and come back when it grows.
class DeckModel : public QObject
{
    Q_OBJECT

public:
    static constexpr int mostColumns = 16;
    static constexpr int mostRows = 16;
    static constexpr int mostDials = 8;

    explicit DeckModel(QObject *parent = nullptr);

    /// The language of the titles that new keys get.
    [[nodiscard]] const QString &language() const { return m_language; }
    void setLanguage(const QString &language);

    [[nodiscard]] QSize grid() const { return m_grid; }
    [[nodiscard]] int dials() const { return m_dials; }
    /// Values out of range are limited to it.
    void setGrid(const QSize &grid);
    void setDials(int dials);
    /// Whether the place exists on the deck.
    [[nodiscard]] bool contains(const DeckPlace &place) const;

    [[nodiscard]] const QVector<DeckEntry> &entries() const { return m_entries; }
    /// Null for an empty place or an unknown context.
    [[nodiscard]] const DeckEntry *at(const DeckPlace &place) const;
    [[nodiscard]] const DeckEntry *find(const QString &context) const;
    /// The first key without an action, row by row; column -1 when the deck is full.
    [[nodiscard]] DeckPlace firstEmptyKey() const;

    /// Puts an action on an empty place; false if the place is not empty or does not exist. Without
    /// settings it gets a title and fills its key.
    bool put(const DeckPlace &place, const QString &action);
    bool put(const DeckPlace &place, const QString &action, const EntrySettings &settings);
    /// The same on a place that may be taken: what was on it is removed, in the same change.
    bool replace(const DeckPlace &place, const QString &action);
    bool replace(const DeckPlace &place, const QString &action, const EntrySettings &settings);
    bool remove(const DeckPlace &place);
    /// What was on \a to moves to \a from.
    bool move(const DeckPlace &from, const DeckPlace &to);
    /// False when there is no such key.
    bool changeSettings(const QString &context, const EntrySettings &settings);
    /// Like changeSettings, for values that come from the plugin: emits settingsAdopted instead of
    /// settingsChanged.
    bool adoptSettings(const QString &context, const EntrySettings &settings);
    void clear();
    [[nodiscard]] DeckState state() const { return {m_grid, m_dials, m_entries}; }
    /// Makes a change again, or a reversed one for the first time. Only what it is about changes;
    /// keys that are not there any more are left out.
    void apply(const DeckChange &change);
    /// Replaces the whole deck. Entries on the place of an earlier entry, or on a place that no
    /// deck has, are left out.
    void restore(const QSize &grid, int dials, const QVector<DeckEntry> &entries);

Q_SIGNALS:
    void languageChanged(const QString &language);
    /// Keys were added, removed or moved, or the size of the deck has changed.
    void layoutChanged();
    void settingsChanged(const QString &context);
    void settingsAdopted(const QString &context);
    /// The whole deck was replaced; layoutChanged came before.
    void restored();
    /// Anything of the above but the language.
    void changed();

private:
    [[nodiscard]] int indexAt(const DeckPlace &place) const;
    [[nodiscard]] int indexOf(const QString &context) const;
    bool replaceSettings(const QString &context, const EntrySettings &settings);
    void applyTo(const EntryChange &change, QStringList &changedSettings);
    void announceLayout();

    QString m_language = QStringLiteral("en");
    QSize m_grid{8, 4};
    int m_dials = 4;
    QVector<DeckEntry> m_entries;
};

} // namespace deck
