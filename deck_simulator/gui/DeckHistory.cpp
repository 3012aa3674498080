#include "deck_simulator/gui/DeckHistory.h"

#include <QScopedValueRollback>
#include <QUndoCommand>

#include <algorithm>

namespace deck {

namespace {

constexpr int mergeable = 1;

bool isReplacement(const DeckChange &change)
{
    return change.entries.size() == 2 && !change.entries.at(0).after &&
           !change.entries.at(1).before;
}

QString textOf(const DeckChange &change)
{
    if (change.isResize())
        return DeckHistory::tr("size of the deck");
    if (change.isOfSettings())
        return DeckHistory::tr("settings");
    if (isReplacement(change))
        return DeckHistory::tr("replacing a key");
    const EntryChange &entry = change.entries.constFirst();
    if (!entry.before)
        return DeckHistory::tr("adding a key");
    return entry.after ? DeckHistory::tr("moving a key") : DeckHistory::tr("removing a key");
}

} // namespace

/// A change that has been made already when it is put on the stack.
class DeckHistory::Step : public QUndoCommand
{
public:
    Step(DeckHistory *history, const DeckChange &change, bool mayMerge)
        : QUndoCommand(textOf(change))
        , m_history(history)
        , m_change(change)
        , m_mayMerge(mayMerge)
    {
    }

    void undo() override { m_history->apply(m_change.reversed()); }

    void redo() override
    {
        if (m_isNew)
            m_isNew = false;
        else
            m_history->apply(m_change);
    }

    [[nodiscard]] int id() const override
    {
        return m_change.isOfSettings() || m_change.isResize() ? mergeable : -1;
    }

    bool mergeWith(const QUndoCommand *command) override
    {
        const auto *next = static_cast<const Step *>(command);
        if (!next->m_mayMerge || subjectsOf(m_change) != subjectsOf(next->m_change))
            return false;
        m_change = joined(m_change, next->m_change);
        setObsolete(m_change.isEmpty());
        return true;
    }

private:
    DeckHistory *m_history;
    DeckChange m_change;
    bool m_mayMerge;
    bool m_isNew = true;
};

DeckHistory::DeckHistory(DeckModel *model, QObject *parent)
    : QObject(parent)
    , m_model(model)
    , m_state(model->state())
{
    connect(m_model, &DeckModel::layoutChanged, this, &DeckHistory::note);
    connect(m_model, &DeckModel::settingsChanged, this, &DeckHistory::note);
    connect(m_model, &DeckModel::settingsAdopted, this, &DeckHistory::follow);
    connect(m_model, &DeckModel::restored, this, &DeckHistory::forget);
}

void DeckHistory::note()
{
    const DeckChange change = changeBetween(m_state, m_model->state());
    follow();
    if (m_applying || change.isEmpty())
        return;
    m_stack.push(new Step(this, change, m_mayMerge));
    m_mayMerge = true;
}

void DeckHistory::follow()
{
    m_state = m_model->state();
}

void DeckHistory::forget()
{
    follow();
    m_stack.clear();
}

void DeckHistory::apply(const DeckChange &change)
{
    const QScopedValueRollback<bool> applying(m_applying, true);
    m_model->apply(change);
    endStep();
}

} // namespace deck
