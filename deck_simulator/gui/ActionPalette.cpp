#include "deck_simulator/gui/ActionPalette.h"

#include "deck_simulator/deck/ActionList.h"
#include "deck_simulator/gui/ActionTreeModel.h"
#include "deck_simulator/gui/ActionView.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScrollBar>
#include <QSortFilterProxyModel>
#include <QStyle>
#include <QTreeView>
#include <QVBoxLayout>

namespace deck {

namespace {

constexpr int fewestLetters = 10; // across the list

} // namespace

ActionPalette::ActionPalette(QWidget *parent)
    : QWidget(parent)
    , m_model(new ActionTreeModel(this))
    , m_shown(new QSortFilterProxyModel(this))
    , m_search(new QLineEdit)
    , m_view(new ActionView)
{
    m_model->setIconColor(palette().color(QPalette::Text));
    m_shown->setSourceModel(m_model);
    m_shown->setFilterRole(ActionTreeModel::searchRole);
    m_shown->setRecursiveFilteringEnabled(true);
    m_shown->setFilterCaseSensitivity(Qt::CaseInsensitive);

    m_search->setPlaceholderText(tr("Search actions"));
    m_search->setClearButtonEnabled(true);
    m_search->installEventFilter(this);
    m_view->setModel(m_shown);
    m_view->setHeaderHidden(true);
    m_view->setDragEnabled(true);
    m_view->setDragDropMode(QAbstractItemView::DragOnly);
    m_view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_view->setUniformRowHeights(true);
    m_view->setAccessibleName(tr("Actions"));
    m_view->expandAll();
    showFont();

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_search);
    layout->addWidget(m_view);
    connect(m_search, &QLineEdit::textChanged, this, &ActionPalette::filter);
    // Not "activated", which is a single click on some desktops.
    connect(m_view, &QTreeView::doubleClicked, this, &ActionPalette::choose);
}

void ActionPalette::showFont()
{
    m_view->setMinimumWidth(fontMetrics().horizontalAdvance(QLatin1Char('0')) * fewestLetters);
}

int ActionPalette::widestRow() const
{
    int text = 0;
    for (const DeckAction &action : deckActions())
        text = qMax(text, fontMetrics().horizontalAdvance(action.caption));
    const int icon = style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, m_view);
    // Two levels, the icon, the scroll bar and some margin.
    return 2 * m_view->indentation() + 2 * icon + text +
           m_view->verticalScrollBar()->sizeHint().width();
}

QSize ActionPalette::sizeHint() const
{
    const QMargins margins = layout()->contentsMargins();
    const int width = widestRow() + margins.left() + margins.right();
    return QWidget::sizeHint().expandedTo({width, 0});
}

void ActionPalette::setLanguage(const QString &language)
{
    m_model->setLanguage(language);
}

void ActionPalette::startSearch()
{
    m_search->setFocus(Qt::OtherFocusReason);
    m_search->selectAll();
}

void ActionPalette::filter(const QString &text)
{
    m_shown->setFilterFixedString(text.trimmed());
    m_view->expandAll();
    selectFirst();
}

void ActionPalette::selectFirst()
{
    const QModelIndex group = m_shown->index(0, 0);
    if (group.isValid())
        m_view->setCurrentIndex(m_shown->index(0, 0, group));
}

void ActionPalette::choose(const QModelIndex &index)
{
    const QString uuid = index.data(ActionTreeModel::uuidRole).toString();
    if (uuid.isEmpty())
        return;
    m_search->clear();
    Q_EMIT actionChosen(uuid);
}

// For the list and the search field.
void ActionPalette::keyPressEvent(QKeyEvent *event)
{
    const int key = event->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        choose(m_view->currentIndex());
    } else if (key == Qt::Key_Escape) {
        m_search->clear();
        Q_EMIT left();
    } else {
        QWidget::keyPressEvent(event);
    }
}

void ActionPalette::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::PaletteChange)
        m_model->setIconColor(palette().color(QPalette::Text));
    else if (event->type() == QEvent::FontChange)
        showFont();
    QWidget::changeEvent(event);
}

bool ActionPalette::eventFilter(QObject *watched, QEvent *event)
{
    // Up and down go through the list while the search is being typed.
    if (watched == m_search && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key == Qt::Key_Up || key == Qt::Key_Down) {
            QApplication::sendEvent(m_view, event);
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace deck
