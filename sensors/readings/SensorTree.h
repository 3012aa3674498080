#pragma once

#include "values/Reading.h"

#include <QJsonObject>
#include <QJsonValue>
#include <QString>

#include <optional>

/// Reading of sensor trees: an object that maps a sensor label to an array whose first element
/// holds "value" and "units".
namespace sensortree {

/// Whether \a key contains \a label, ignoring letter case.
bool containsLabel(const QString &key, const QString &label);

/// The first key, in the object's sorted order, that contains \a label.
std::optional<QString> findLabel(const QJsonObject &sensors, const QString &label);

/// The first element of the array \a value; an empty object when there is none.
QJsonObject firstReading(const QJsonValue &value);

/// The first reading under the key that contains \a label; an empty object when there is none.
QJsonObject readingOf(const QJsonObject &sensors, const QString &label);

/// Whether "value" of a reading is a number.
bool hasValue(const QJsonObject &reading);

/// "value" of a reading; 0 when it is missing or no number.
double valueOf(const QJsonObject &reading);

/// Whether "value" of a reading is a whole number.
bool hasWholeValue(const QJsonObject &reading);

/// "value" of a reading that counts whole units: 0 also when the number is not whole.
int wholeValueOf(const QJsonObject &reading);

/// "units" of a reading, or \a fallback when they are missing or empty.
QString unitsOf(const QJsonObject &reading, const QString &fallback);

/// Value and units of a reading; \a fallback as for unitsOf.
Reading<double> numberOf(const QJsonObject &reading, const QString &fallback);

/// \a reading truncated to a whole number and capped; see wholenumber::capped.
Reading<int> wholeNumber(const Reading<double> &reading, unsigned cap);

/// \a reading as a share in whole percent, capped at 100.
Reading<unsigned> shareOf(const Reading<double> &reading);

/// \a reading limited to the range \a lowest to \a highest.
Reading<double> heldTo(const Reading<double> &reading, double lowest, double highest);

/// "°C" for "C"; any other units stay as they are.
QString withDegreeSign(const QString &units);

} // namespace sensortree
