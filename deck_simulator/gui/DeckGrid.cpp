#include "deck_simulator/gui/DeckGrid.h"

#include "deck_simulator/deck/ActionList.h"
#include "deck_simulator/gui/ActionIcons.h"

#include <QKeyEvent>
#include <QMenu>
#include <QPainter>

namespace deck {

namespace {

const QColor bodyColor(0x26, 0x27, 0x2b);
const QColor bodyEdgeColor(0x14, 0x14, 0x17);

constexpr int usualSide = 96;
constexpr int smallestSide = 48;
constexpr int fewestLines = 2; // of text, beside a key

int gapFor(int side)
{
    return qMax(4, side / 10);
}

// A screen as high as a key, and a knob.
int dialHeight(int side)
{
    return side * 3 / 2;
}

bool isPressKey(int key)
{
    return key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space;
}

} // namespace

DeckGrid::DeckGrid(DeckModel *model, QWidget *parent)
    : QWidget(parent)
    , m_model(model)
{
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(tr("Deck"));
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setSizePolicy(policy);
    connect(m_model, &DeckModel::layoutChanged, this, &DeckGrid::rebuild);
    connect(m_model, &DeckModel::languageChanged, this, &DeckGrid::showFaces);
    rebuild();
}

KeyCell *DeckGrid::cell(const DeckPlace &place) const
{
    for (KeyCell *cell : m_cells) {
        if (cell->place() == place)
            return cell;
    }
    return nullptr;
}

void DeckGrid::setCurrent(const DeckPlace &place)
{
    KeyCell *next = cell(place);
    if (next == nullptr || place == m_current)
        return;
    if (KeyCell *before = cell(m_current))
        before->setCurrent(false);
    m_current = place;
    next->setCurrent(true);
    Q_EMIT currentChanged(m_current);
}

void DeckGrid::showLive(const QString &context, const QString &title, const QImage &picture)
{
    const DeckEntry *entry = m_model->find(context);
    if (entry == nullptr)
        return;
    m_live.insert(context, {title, picture});
    if (KeyCell *shown = cell(entry->place))
        showFace(shown);
}

void DeckGrid::setDimmed(bool dimmed)
{
    if (dimmed == m_dimmed)
        return;
    m_dimmed = dimmed;
    showFaces();
}

void DeckGrid::clearLive()
{
    m_live.clear();
    showFaces();
}

void DeckGrid::rebuild()
{
    const int keys = m_model->grid().width() * m_model->grid().height();
    QVector<DeckPlace> places;
    for (int index = 0; index < keys; ++index)
        places.append({index % m_model->grid().width(), index / m_model->grid().width()});
    for (int dial = 0; dial < m_model->dials(); ++dial)
        places.append({dial, 0, true});

    const bool same = places.size() == m_cells.size() &&
                      std::equal(places.begin(), places.end(), m_cells.begin(),
                                 [](const DeckPlace &place, const KeyCell *cell) {
                                     return cell->place() == place;
                                 });
    if (!same) {
        qDeleteAll(m_cells);
        m_cells.clear();
        for (const DeckPlace &place : qAsConst(places))
            addCell(place.dial ? new DialCell(place.column, this) : new KeyCell(place, this));
        if (cell(m_current) == nullptr)
            m_current = {};
        cell(m_current)->setCurrent(true);
        placeCells();
        updateGeometry();
        update();
    }
    showFaces();
    Q_EMIT currentChanged(m_current);
}

void DeckGrid::addCell(KeyCell *cell)
{
    const DeckPlace place = cell->place();
    m_cells.append(cell);
    connect(cell, &KeyCell::chosen, this, [this, place] {
        setFocus(Qt::MouseFocusReason);
        setCurrent(place);
    });
    connect(cell, &KeyCell::pressed, this, [this, place] { reportPress(place, true); });
    connect(cell, &KeyCell::released, this, [this, place] { reportPress(place, false); });
    connect(cell, &KeyCell::doubleClicked, this, [this, place] {
        if (m_model->at(place) == nullptr)
            Q_EMIT actionWanted(place);
    });
    connect(cell, &KeyCell::menuRequested, this,
            [this, cell](const QPoint &position) { showMenu(cell, position); });
    connect(cell, &KeyCell::actionDropped, this, [this, place](const QString &action) {
        if (m_model->replace(place, action))
            setCurrent(place);
    });
    connect(cell, &KeyCell::keyDropped, this, [this, place](const DeckPlace &from) {
        if (m_model->move(from, place))
            setCurrent(place);
    });
    if (auto *dial = qobject_cast<DialCell *>(cell)) {
        connect(dial, &DialCell::turned, this, [this, place](int ticks, bool pressed) {
            if (const DeckEntry *entry = m_model->at(place))
                Q_EMIT dialTurned(entry->context, ticks, pressed);
        });
    }
    cell->show();
}

void DeckGrid::showFaces()
{
    for (KeyCell *cell : qAsConst(m_cells))
        showFace(cell);
}

void DeckGrid::showFace(KeyCell *cell)
{
    const DeckEntry *entry = m_model->at(cell->place());
    if (entry == nullptr) {
        cell->setFace({});
        return;
    }
    const Live live = m_live.value(entry->context);
    cell->setFace({actionCaption(entry->action, m_model->language()),
                   actionIcon(entry->action, Qt::white), live.title, live.picture,
                   isGaugePicture(live.picture.size(), entry->settings.display), m_dimmed});
}

QSize DeckGrid::sizeFor(int keySide) const
{
    const int gap = gapFor(keySide);
    const int step = keySide + gap;
    const int columns = m_model->grid().width();
    const int dialsHeight = m_model->dials() > 0 ? dialHeight(keySide) + gap : 0;
    // A dial is half as wide as a key at least.
    const int width = qMax(columns * step, m_model->dials() * (keySide / 2 + gap));
    return {2 * gap + width, 2 * gap + m_model->grid().height() * step + dialsHeight};
}

QSize DeckGrid::sizeHint() const
{
    return sizeFor(usualSide);
}

QSize DeckGrid::minimumSizeHint() const
{
    return sizeFor(leastSide());
}

int DeckGrid::leastSide() const
{
    return qMax(smallestSide, fewestLines * fontMetrics().lineSpacing());
}

void DeckGrid::placeCells()
{
    int side = leastSide();
    while (sizeFor(side + 1).width() <= width() && sizeFor(side + 1).height() <= height())
        ++side;
    const int gap = gapFor(side);
    const int step = side + gap;
    m_body = QRect(QPoint(), sizeFor(side));
    m_body.moveCenter(rect().center());
    const int keysWidth = m_model->grid().width() * step;
    const QPoint origin =
        m_body.topLeft() + QPoint((m_body.width() - keysWidth + gap) / 2, gap + gap / 2);
    const int dials = qMax(1, m_model->dials());
    const int dialStep = (m_body.width() - 2 * gap) / dials;
    const int dialWidth = qMin(dialStep - gap, side * 2);
    for (KeyCell *cell : qAsConst(m_cells)) {
        const DeckPlace place = cell->place();
        const int top = origin.y() + (place.dial ? m_model->grid().height() : place.row) * step;
        if (place.dial)
            cell->setGeometry(m_body.left() + gap + place.column * dialStep +
                                  (dialStep - dialWidth) / 2,
                              top, dialWidth, dialHeight(side));
        else
            cell->setGeometry(origin.x() + place.column * step, top, side, side);
    }
}

void DeckGrid::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::FontChange) {
        updateGeometry();
        placeCells();
        update();
    }
    QWidget::changeEvent(event);
}

void DeckGrid::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    placeCells();
}

void DeckGrid::paintEvent(QPaintEvent *event)
{
    Q_UNUSED(event)
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(bodyEdgeColor, 2));
    painter.setBrush(bodyColor);
    painter.drawRoundedRect(QRectF(m_body).adjusted(1, 1, -1, -1), 14, 14);
}

void DeckGrid::reportPress(const DeckPlace &place, bool down)
{
    const DeckEntry *entry = m_model->at(place);
    if (entry == nullptr)
        return;
    if (place.dial)
        Q_EMIT dialPressed(entry->context, down);
    else
        Q_EMIT keyPressed(entry->context, down);
}

void DeckGrid::pressCurrent(bool down)
{
    KeyCell *pressed = cell(m_current);
    if (pressed == nullptr || pressed->isDown() == down || (down && !pressed->isOccupied()))
        return;
    pressed->setDown(down);
    reportPress(m_current, down);
}

void DeckGrid::turnCurrent(int ticks)
{
    if (auto *dial = qobject_cast<DialCell *>(cell(m_current)))
        dial->turn(ticks);
}

void DeckGrid::moveCurrent(int columns, int rows)
{
    const QSize grid = m_model->grid();
    const int dials = m_model->dials();
    DeckPlace next = m_current;
    next.column += columns;
    if (rows > 0 && !next.dial && next.row == grid.height() - 1 && dials > 0)
        next = {next.column * dials / grid.width(), 0, true};
    else if (rows < 0 && next.dial)
        next = {(2 * next.column + 1) * grid.width() / (2 * dials), grid.height() - 1, false};
    else
        next.row += rows;
    setCurrent(next);
}

void DeckGrid::keyPressEvent(QKeyEvent *event)
{
    const bool layoutKeysFree = !cell(m_current)->isDown();
    if (isPressKey(event->key())) {
        if (!event->isAutoRepeat())
            pressCurrent(true);
    } else if (event->key() == Qt::Key_PageUp) {
        turnCurrent(1);
    } else if (event->key() == Qt::Key_PageDown) {
        turnCurrent(-1);
    } else if (!layoutKeysFree) {
        return; // a key that is held down stays the current one
    } else if (event->key() == Qt::Key_Left) {
        moveCurrent(-1, 0);
    } else if (event->key() == Qt::Key_Right) {
        moveCurrent(1, 0);
    } else if (event->key() == Qt::Key_Up) {
        moveCurrent(0, -1);
    } else if (event->key() == Qt::Key_Down) {
        moveCurrent(0, 1);
    } else if (event->key() == Qt::Key_Delete) {
        m_model->remove(m_current);
    } else if (event->key() == Qt::Key_F2) {
        if (cell(m_current)->isOccupied())
            Q_EMIT editRequested(m_current);
        else
            Q_EMIT actionWanted(m_current);
    } else {
        QWidget::keyPressEvent(event);
    }
}

void DeckGrid::keyReleaseEvent(QKeyEvent *event)
{
    if (isPressKey(event->key()) && !event->isAutoRepeat())
        pressCurrent(false);
    else
        QWidget::keyReleaseEvent(event);
}

void DeckGrid::focusOutEvent(QFocusEvent *event)
{
    // The release will go elsewhere.
    pressCurrent(false);
    QWidget::focusOutEvent(event);
}

bool DeckGrid::event(QEvent *event)
{
    // The window must not handle the keys that move, press and remove.
    if (event->type() == QEvent::ShortcutOverride) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (isPressKey(key) || key == Qt::Key_Delete || key == Qt::Key_F2)
            event->accept();
    }
    return QWidget::event(event);
}

void DeckGrid::showMenu(KeyCell *cell, const QPoint &globalPosition)
{
    const DeckPlace place = cell->place();
    setCurrent(place); // the actions are about it
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    if (cell->isOccupied()) {
        menu->addAction(tr("Press"), this, [this, place] {
            reportPress(place, true);
            reportPress(place, false);
        });
        menu->addAction(tr("Settings"), this, [this, place] { Q_EMIT editRequested(place); });
        menu->addSeparator();
        menu->addActions(actions());
        menu->addSeparator();
        menu->addAction(tr("Remove"), this, [this, place] { m_model->remove(place); });
    } else {
        menu->addAction(tr("Add an action"), this, [this, place] { Q_EMIT actionWanted(place); });
        menu->addSeparator();
        menu->addActions(actions());
    }
    menu->popup(globalPosition);
}

} // namespace deck
