#include "deck_simulator/gui/DeckBar.h"

#include "deck_simulator/gui/WheelGuard.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QSpinBox>

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

} // namespace

DeckBar::DeckBar(DeckModel *model, QWidget *parent)
    : QWidget(parent)
    , m_model(model)
    , m_columns(makeNumber(1, DeckModel::mostColumns, tr("Columns")))
    , m_rows(makeNumber(1, DeckModel::mostRows, tr("Rows")))
    , m_dials(makeNumber(0, DeckModel::mostDials, tr("Dials")))
{
    auto *layout = new QHBoxLayout(this);
    layout->addStretch();
    layout->addWidget(new QLabel(tr("Keys")));
    layout->addWidget(m_columns);
    layout->addWidget(new QLabel(QStringLiteral("×")));
    layout->addWidget(m_rows);
    layout->addSpacing(fontMetrics().horizontalAdvance(QLatin1Char('0')) * 2);
    layout->addWidget(new QLabel(tr("Dials")));
    layout->addWidget(m_dials);
    layout->addStretch();
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
