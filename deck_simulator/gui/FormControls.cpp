#include "deck_simulator/gui/FormControls.h"

#include "deck_simulator/gui/WheelGuard.h"

#include <QComboBox>
#include <QSpinBox>

namespace deck {

QComboBox *makeChoice(const char *name, const QVector<ListEntry> &entries)
{
    auto *combo = named(new QComboBox, name);
    new WheelGuard(combo);
    // A long entry must not widen the panel.
    combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    combo->setMinimumContentsLength(8);
    for (const ListEntry &entry : entries)
        combo->addItem(entry.label, entry.value);
    return combo;
}

QSpinBox *makeNumber(const char *name, int least, int greatest, const QString &unit)
{
    auto *number = named(new QSpinBox, name);
    number->setRange(least, greatest);
    number->setSuffix(unit);
    number->setKeyboardTracking(false); // a number that is half typed is none
    new WheelGuard(number);
    return number;
}

void select(QComboBox *combo, const QString &value)
{
    int index = combo->findData(value);
    if (index < 0 && !value.isEmpty()) {
        combo->addItem(value, value);
        index = combo->count() - 1;
    }
    combo->setCurrentIndex(index);
}

void fill(QComboBox *combo, const QVector<ListEntry> &entries, const QString &value)
{
    QVector<ListEntry> present;
    for (int index = 0; index < combo->count(); ++index)
        present.append({combo->itemData(index).toString(), combo->itemText(index), {}, {}});
    QVector<ListEntry> wanted;
    for (const ListEntry &entry : entries) {
        const QString label = entry.reading.isEmpty()
                                  ? entry.label
                                  : QStringLiteral("%1: %2").arg(entry.label, entry.reading);
        wanted.append({entry.value, label, {}, {}});
    }
    // An open list must not be closed needlessly while it is being used.
    if (present != wanted) {
        combo->clear();
        for (const ListEntry &entry : qAsConst(wanted))
            combo->addItem(entry.label, entry.value);
    }
    select(combo, value);
}

QVector<ListEntry> orNone(const QVector<ListEntry> &entries, const QString &chosen)
{
    if (!entries.isEmpty())
        return entries;
    return {{chosen, QObject::tr("none found"), {}, {}}};
}

} // namespace deck
