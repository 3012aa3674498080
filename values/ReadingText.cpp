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
    return QString::number(value, 'g', 6) + units;
}
