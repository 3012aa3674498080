#pragma once

#include <QString>

/// A number and its units, such as 45 and "°C".
template <typename Number>
struct Reading
{
    Number value{};
    QString units;
    bool isMissing = false; ///< The machine has no such reading; the number stands in for it.
};
