#include "deck_simulator/gui/EditActions.h"

#include "deck_simulator/gui/DeckGrid.h"
#include "deck_simulator/gui/DeckMime.h"
#include "deck_simulator/panel/KeyLook.h"

#include <QClipboard>
#include <QGuiApplication>

#include <algorithm>

namespace deck {

EditActions::EditActions(DeckModel *model, DeckGrid *grid, QObject *parent)
    : QObject(parent)
    , m_model(model)
    , m_grid(grid)
    , m_history(model)
    , m_undo(m_history.stack()->createUndoAction(this, tr("&Undo")))
    , m_redo(m_history.stack()->createRedoAction(this, tr("&Redo")))
    , m_cut(addKeyAction(tr("Cu&t"), QKeySequence::Cut))
    , m_copy(addKeyAction(tr("&Copy"), QKeySequence::Copy))
    , m_paste(addKeyAction(tr("&Paste"), QKeySequence::Paste))
    , m_look(addKeyAction(tr("This &look for all keys"), QKeySequence::UnknownKey))
{
    m_undo->setShortcut(QKeySequence::Undo);
    // Those of all desktops.
    m_redo->setShortcuts(
        {QKeySequence(QStringLiteral("Ctrl+Shift+Z")), QKeySequence(QStringLiteral("Ctrl+Y"))});
    connect(m_copy, &QAction::triggered, this, &EditActions::copy);
    connect(m_cut, &QAction::triggered, this, [this] {
        copy();
        m_model->remove(m_grid->current());
    });
    connect(m_paste, &QAction::triggered, this, &EditActions::paste);
    connect(m_look, &QAction::triggered, this, &EditActions::spreadLook);
    connect(m_grid, &DeckGrid::currentChanged, this, &EditActions::onCurrentChanged);
    connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, this,
            &EditActions::readClipboard);
    showState();
    readClipboard();
}

QAction *EditActions::addKeyAction(const QString &text, QKeySequence::StandardKey key)
{
    auto *action = new QAction(text, this);
    action->setShortcuts(key);
    // Fields have the same shortcuts for their texts.
    action->setShortcutContext(Qt::WidgetShortcut);
    m_grid->addAction(action);
    return action;
}

// Also reported when the place is the same and what is on it may be another.
void EditActions::onCurrentChanged(const DeckPlace &place)
{
    if (place != m_place)
        m_history.endStep();
    m_place = place;
    showState();
}

void EditActions::showState()
{
    const bool hasKey = m_model->at(m_grid->current()) != nullptr;
    for (QAction *action : {m_cut, m_copy, m_look})
        action->setEnabled(hasKey);
}

// Asking for what another program has copied may take time; this is done only when it changes.
void EditActions::readClipboard()
{
    const QMimeData *data = QGuiApplication::clipboard()->mimeData();
    m_paste->setEnabled(data != nullptr && keyFrom(*data).has_value());
}

void EditActions::copy()
{
    if (const DeckEntry *entry = m_model->at(m_grid->current()))
        QGuiApplication::clipboard()->setMimeData(keyMime(*entry));
}

void EditActions::paste()
{
    const QMimeData *data = QGuiApplication::clipboard()->mimeData();
    const std::optional<DeckEntry> key = data == nullptr ? std::nullopt : keyFrom(*data);
    if (key)
        m_model->replace(m_grid->current(), key->action, key->settings);
}

void EditActions::spreadLook()
{
    const DeckEntry *current = m_model->at(m_grid->current());
    if (current == nullptr)
        return;
    const DeckEntry look = *current;
    QVector<DeckEntry> others = m_model->entries();
    others.erase(std::remove_if(
                     others.begin(), others.end(),
                     [&look](const DeckEntry &key) { return withLook(key, look) == key.settings; }),
                 others.end());
    if (others.isEmpty())
        return;
    m_history.beginGroup(tr("the look of all keys"));
    for (const DeckEntry &key : qAsConst(others))
        m_model->changeSettings(key.context, withLook(key, look));
    m_history.endGroup();
}

} // namespace deck
