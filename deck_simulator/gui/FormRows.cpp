#include "deck_simulator/gui/FormRows.h"

#include <QFormLayout>
#include <QLabel>

#include <algorithm>

namespace deck {

namespace {

constexpr int overhang = 2; // pixels that a last letter may reach beyond its width

} // namespace

FormRows::FormRows(QFormLayout *form)
    : m_layout(form)
{
    m_layout->setContentsMargins(0, 0, 0, 0);
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
        caption->setMinimumWidth(caption->sizeHint().width() + overhang);
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

bool FormRows::isEmpty() const
{
    return std::none_of(m_rows.begin(), m_rows.end(), [](const Row &row) { return row.shown; });
}

} // namespace deck
