#pragma once

#include "deck_simulator/deck/DeckShelf.h"

#include <QMenu>

class QActionGroup;

namespace deck {

/// The decks that are kept by name, with a mark at the one that is open, and "Save as".
class DeckMenu : public QMenu
{
    Q_OBJECT

public:
    /// \a shelf is not owned and outlives this object.
    explicit DeckMenu(const DeckShelf *shelf, QWidget *parent = nullptr);

    void setOpenDeck(const QString &name);
    [[nodiscard]] QAction *saveAsAction() const { return m_saveAs; }
    /// The entry of a deck; null if there is none.
    [[nodiscard]] QAction *deckAction(const QString &name) const;
    /// Reads the list of decks again; done whenever the menu is opened.
    void renew();

Q_SIGNALS:
    void deckChosen(const QString &name);

private:
    const DeckShelf *m_shelf;
    QAction *m_saveAs;
    QAction *m_separator;
    QActionGroup *m_decks;
    QString m_open;
};

} // namespace deck
