#include "deck_simulator/gui/FormRows.h"

#include <QFormLayout>
#include <QLabel>

#include <algorithm>

namespace deck {

namespace {

constexpr int gap = 8; // pixels between a label and its field

} // namespace

FormRows::FormRows(QFormLayout *form)
    : m_layout(form)
{
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->setHorizontalSpacing(0); // the labels have it, see alignLabels
    m_layout->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    // Long labels and large texts get a line of their own instead of being cut off.
    m_layout->setRowWrapPolicy(QFormLayout::WrapLongRows);
}

void FormRows::add(const QString &label, QWidget *field)
{
    QWidget *form = m_layout->parentWidget();
    QLabel *caption = label.isEmpty() ? nullptr : new QLabel(label, form);
    if (caption != nullptr) {
        caption->setBuddy(field);
    }
    field->setParent(form);
    m_rows.append({caption, field, true});
}

void FormRows::show(const QWidget *field, bool shown)
{
    for (Row &row : m_rows) {
        if (row.field == field)
            row.shown = shown;
    }
}

// A form keeps the space of a row whose widgets are hidden, so only those that are shown are in it.
void FormRows::layOut()
{
    alignLabels();
    int position = 0;
    for (const Row &row : qAsConst(m_rows)) {
        const bool present = m_layout->indexOf(row.field) >= 0;
        if (present && !row.shown) {
            const QFormLayout::TakeRowResult taken = m_layout->takeRow(row.field);
            delete taken.labelItem;
            delete taken.fieldItem;
        } else if (!present && row.shown && row.label != nullptr) {
            m_layout->insertRow(position, row.label, row.field);
        } else if (!present && row.shown) {
            m_layout->insertRow(position, row.field);
        }
        if (row.label != nullptr)
            row.label->setVisible(row.shown);
        row.field->setVisible(row.shown);
        position += row.shown ? 1 : 0;
    }
}

// A form gives every field the room beside the widest label, but when it decides which rows to wrap
// it looks at the row's own label only, and forgets the space between.
void FormRows::alignLabels()
{
    int widest = 0;
    for (const Row &row : qAsConst(m_rows)) {
        if (row.label != nullptr && row.shown)
            widest = qMax(widest, row.label->sizeHint().width() + gap);
    }
    for (const Row &row : qAsConst(m_rows)) {
        if (row.label != nullptr)
            row.label->setMinimumWidth(widest);
    }
}

bool FormRows::isEmpty() const
{
    return std::none_of(m_rows.begin(), m_rows.end(), [](const Row &row) { return row.shown; });
}

} // namespace deck
