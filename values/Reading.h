#pragma once

#include <QString>

/// A number and the units that it is in, such as 45 and "°C".
template <typename Number>
struct Reading
{
    Number value{};
    QString units;
};
