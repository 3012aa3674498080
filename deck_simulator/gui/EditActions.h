#pragma once

#include "deck_simulator/gui/DeckHistory.h"

#include <QAction>
#include <QList>
#include <QObject>

namespace deck {

class DeckGrid;

/// What a user does with the current key of a deck, and undo and redo. The actions about the key
/// belong to the grid: their shortcuts work where it has the focus, and it has them in its menus.
class EditActions : public QObject
{
    Q_OBJECT

public:
    /// None of them is owned; they outlive this object.
    EditActions(DeckModel *model, DeckGrid *grid, QObject *parent = nullptr);

    [[nodiscard]] QUndoStack *undoStack() { return m_history.stack(); }
    [[nodiscard]] QAction *undoAction() const { return m_undo; }
    [[nodiscard]] QAction *redoAction() const { return m_redo; }
    [[nodiscard]] QAction *cutAction() const { return m_cut; }
    [[nodiscard]] QAction *copyAction() const { return m_copy; }
    [[nodiscard]] QAction *pasteAction() const { return m_paste; }
    [[nodiscard]] QAction *lookAction() const { return m_look; }

private:
    QAction *addKeyAction(const QString &text, QKeySequence::StandardKey key);
    void onCurrentChanged(const DeckPlace &place);
    void showState();
    void readClipboard();
    void copy();
    void paste();
    void spreadLook();

    DeckModel *m_model;
    DeckGrid *m_grid;
    DeckHistory m_history;
    DeckPlace m_place;
    QAction *m_undo;
    QAction *m_redo;
    QAction *m_cut;
    QAction *m_copy;
    QAction *m_paste;
    QAction *m_look;
};

} // namespace deck
