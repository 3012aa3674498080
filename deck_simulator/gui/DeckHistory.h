#pragma once

#include "deck_simulator/deck/DeckChange.h"
#include "deck_simulator/deck/DeckModel.h"

#include <QObject>
#include <QUndoStack>

namespace deck {

/// Undo and redo for a deck: it notes every change of the model, whoever makes it. What the plugin
/// makes of settings belongs to no step. A deck that is loaded begins a new history.
class DeckHistory : public QObject
{
    Q_OBJECT

public:
    /// \a model is not owned and outlives this object.
    explicit DeckHistory(DeckModel *model, QObject *parent = nullptr);

    [[nodiscard]] QUndoStack *stack() { return &m_stack; }
    /// The next change is a step of its own, even if it is like the last.
    void endStep() { m_mayMerge = false; }
    /// The changes up to endGroup() are one step.
    void beginGroup(const QString &text) { m_stack.beginMacro(text); }
    void endGroup() { m_stack.endMacro(); }

private:
    class Step;

    void note();
    void forget();
    void follow();
    void apply(const DeckChange &change);

    DeckModel *m_model;
    QUndoStack m_stack;
    DeckState m_state; // as last seen
    bool m_applying = false;
    bool m_mayMerge = false;
};

} // namespace deck
