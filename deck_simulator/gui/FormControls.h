#pragma once

#include "deck_simulator/panel/SettingsLists.h"

#include <QString>
#include <QVector>

class QComboBox;
class QSpinBox;

namespace deck {

/// Returns \a control with that object name.
template <typename Control>
Control *named(Control *control, const char *name)
{
    control->setObjectName(QString::fromLatin1(name));
    return control;
}

/// Controls with that object name, protected from the wheel (see WheelGuard). The caller owns them.
QComboBox *makeChoice(const char *name, const QVector<ListEntry> &entries = {});
QSpinBox *makeNumber(const char *name, int least, int greatest, const QString &unit);

/// Selects the entry with that value; one that is missing is added.
void select(QComboBox *combo, const QString &value);

/// Offers \a entries and selects \a value. An open list with the same entries stays open.
void fill(QComboBox *combo, const QVector<ListEntry> &entries, const QString &value);

/// \a entries, or a single one that says that there are none and keeps the chosen value.
QVector<ListEntry> orNone(const QVector<ListEntry> &entries, const QString &chosen);

} // namespace deck
