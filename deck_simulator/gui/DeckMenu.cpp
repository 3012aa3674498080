#include "deck_simulator/gui/DeckMenu.h"

#include "deck_simulator/deck/DeckName.h"

#include <QActionGroup>

namespace deck {

DeckMenu::DeckMenu(const DeckShelf *shelf, QWidget *parent)
    : QMenu(tr("&Deck"), parent)
    , m_shelf(shelf)
    , m_saveAs(new QAction(tr("Save &as..."), this))
    , m_separator(new QAction(this))
    , m_decks(new QActionGroup(this))
    , m_open(defaultDeckName())
{
    m_saveAs->setShortcut(QStringLiteral("Ctrl+Shift+S"));
    m_separator->setSeparator(true);
    addActions({m_separator, m_saveAs});
    connect(this, &QMenu::aboutToShow, this, &DeckMenu::renew);
    connect(m_decks, &QActionGroup::triggered, this,
            [this](const QAction *action) { Q_EMIT deckChosen(action->data().toString()); });
    renew();
}

void DeckMenu::setOpenDeck(const QString &name)
{
    m_open = name;
    renew();
}

QAction *DeckMenu::deckAction(const QString &name) const
{
    const QList<QAction *> actions = m_decks->actions();
    for (QAction *action : actions) {
        if (action->data().toString() == name)
            return action;
    }
    return nullptr;
}

void DeckMenu::renew()
{
    QStringList names = m_shelf->names();
    if (!names.contains(m_open))
        names.append(m_open); // not yet saved
    const QList<QAction *> before = m_decks->actions();
    for (QAction *action : before) {
        m_decks->removeAction(action);
        removeAction(action);
        action->deleteLater(); // it may be the one that was chosen
    }
    for (const QString &name : qAsConst(names)) {
        auto *action =
            new QAction(QString(name).replace(QLatin1Char('&'), QLatin1String("&&")), this);
        action->setData(name);
        action->setCheckable(true);
        action->setChecked(name == m_open);
        m_decks->addAction(action);
        insertAction(m_separator, action);
    }
}

} // namespace deck
