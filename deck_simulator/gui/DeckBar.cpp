#include "deck_simulator/gui/DeckBar.h"

#include "deck_simulator/gui/FlowLayout.h"
#include "deck_simulator/gui/WheelGuard.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QSpinBox>

#include <initializer_list>

namespace deck {

namespace {

QSpinBox *makeNumber(int least, int greatest, const QString &name)
{
    auto *number = new QSpinBox;
    number->setRange(least, greatest);
    number->setKeyboardTracking(false); // a number that is half typed is none
    new WheelGuard(number);
    number->setToolTip(name);
    number->setAccessibleName(name);
    return number;
}

// Stays on one line.
QWidget *makeGroup(std::initializer_list<QWidget *> widgets)
{
    auto *group = new QWidget;
    auto *layout = new QHBoxLayout(group);
    layout->setContentsMargins(0, 0, 0, 0);
    for (QWidget *widget : widgets)
        layout->addWidget(widget);
    return group;
}

} // namespace

DeckBar::DeckBar(DeckModel *model, QWidget *parent)
    : QWidget(parent)
    , m_model(model)
    , m_columns(makeNumber(1, DeckModel::mostColumns, tr("Columns")))
    , m_rows(makeNumber(1, DeckModel::mostRows, tr("Rows")))
    , m_dials(makeNumber(0, DeckModel::mostDials, tr("Dials")))
{
    auto *layout = new FlowLayout(this, Qt::AlignHCenter);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(fontMetrics().horizontalAdvance(QLatin1Char('0')));
    layout->addWidget(makeGroup({new QLabel(tr("Keys")), m_columns}));
    layout->addWidget(makeGroup({new QLabel(QStringLiteral("×")), m_rows}));
    layout->addWidget(makeGroup({new QLabel(tr("Dials")), m_dials}));
    const auto changed = QOverload<int>::of(&QSpinBox::valueChanged);
    connect(m_columns, changed, this, [this](int columns) {
        m_model->setGrid({columns, m_model->grid().height()});
    });
    connect(m_rows, changed, this, [this](int rows) {
        m_model->setGrid({m_model->grid().width(), rows});
    });
    connect(m_dials, changed, m_model, &DeckModel::setDials);
    connect(m_model, &DeckModel::layoutChanged, this, &DeckBar::showSize);
    showSize();
}

void DeckBar::showSize()
{
    const QSignalBlocker columns(m_columns);
    const QSignalBlocker rows(m_rows);
    const QSignalBlocker dials(m_dials);
    m_columns->setValue(m_model->grid().width());
    m_rows->setValue(m_model->grid().height());
    m_dials->setValue(m_model->dials());
}

} // namespace deck
