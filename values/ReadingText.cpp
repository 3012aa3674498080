#include "values/ReadingText.h"

QString readingtext::integer(qint64 value, const QString &units)
{
    return QString::number(value) + units;
}

QString readingtext::fixed(double value, int decimals, const QString &units)
{
    return QString::number(value, 'f', decimals) + units;
}

QString readingtext::general(double value, const QString &units)
{
    // The same text in less time.
    constexpr double tooLong = 1e6;
    const bool isShort = value > -tooLong && value < tooLong;
    if (isShort && static_cast<int>(value) == value)
        return QString::number(static_cast<int>(value)) + units;
    return QString::number(value, 'g', 6) + units;
}
