#pragma once

#include <QString>

/// A reading as a text: the number, directly followed by its units.
namespace readingtext {

/// Decimal, without grouping.
QString integer(qint64 value, const QString &units = QString());

/// With exactly \a decimals digits after the point.
QString fixed(double value, int decimals, const QString &units);

/// The shortest form with at most six significant digits.
QString general(double value, const QString &units);

} // namespace readingtext
