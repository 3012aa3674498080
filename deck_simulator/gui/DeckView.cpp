#include "deck_simulator/gui/DeckView.h"

#include "deck_simulator/gui/DeckGrid.h"

#include <QScrollBar>

namespace deck {

namespace {

constexpr int keyMargin = 6; // pixels that remain beside the current key

} // namespace

DeckView::DeckView(DeckGrid *grid, QWidget *parent)
    : QScrollArea(parent)
    , m_grid(grid)
{
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus); // the arrows are the deck's
    setWidgetResizable(true);
    setWidget(m_grid);
    connect(m_grid, &DeckGrid::currentChanged, this, &DeckView::showCurrent);
}

QSize DeckView::minimumSizeHint() const
{
    const int side = m_grid->leastSide() + 2 * keyMargin;
    return {side * 3 / 2 + verticalScrollBar()->sizeHint().width(),
            side + horizontalScrollBar()->sizeHint().height()};
}

void DeckView::showCurrent()
{
    if (QWidget *cell = m_grid->cell(m_grid->current()))
        ensureWidgetVisible(cell, keyMargin, keyMargin);
}

void DeckView::resizeEvent(QResizeEvent *event)
{
    QScrollArea::resizeEvent(event);
    showCurrent();
}

} // namespace deck
