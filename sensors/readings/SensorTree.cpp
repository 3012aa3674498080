#include "sensors/readings/SensorTree.h"

#include "values/WholeNumber.h"

#include <QJsonArray>

#include <algorithm>

namespace sensortree {

bool containsLabel(const QString &key, const QString &label)
{
    // Compatibility: labels-by-part
    return key.contains(label, Qt::CaseInsensitive);
}

std::optional<QString> findLabel(const QJsonObject &sensors, const QString &label)
{
    for (auto sensor = sensors.begin(); sensor != sensors.end(); ++sensor) {
        if (containsLabel(sensor.key(), label))
            return sensor.key();
    }
    return std::nullopt;
}

QJsonObject firstReading(const QJsonValue &value)
{
    return value.toArray().at(0).toObject();
}

QJsonObject readingOf(const QJsonObject &sensors, const QString &label)
{
    const std::optional<QString> key = findLabel(sensors, label);
    return key ? firstReading(sensors.value(*key)) : QJsonObject();
}

bool hasValue(const QJsonObject &reading)
{
    return reading.value(QLatin1String("value")).isDouble();
}

// Compatibility: missing-is-zero
double valueOf(const QJsonObject &reading)
{
    return reading.value(QLatin1String("value")).toDouble();
}

bool hasWholeValue(const QJsonObject &reading)
{
    const QJsonValue value = reading.value(QLatin1String("value"));
    return value.toInt(0) == value.toInt(1);
}

// Compatibility: whole-numbers
int wholeValueOf(const QJsonObject &reading)
{
    return reading.value(QLatin1String("value")).toInt();
}

QString unitsOf(const QJsonObject &reading, const QString &fallback)
{
    const QString units = reading.value(QLatin1String("units")).toString();
    return units.isEmpty() ? fallback : units;
}

Reading<double> numberOf(const QJsonObject &reading, const QString &fallback)
{
    const QJsonValue value = reading.value(QLatin1String("value"));
    return {value.toDouble(), unitsOf(reading, fallback), !value.isDouble()};
}

Reading<int> wholeNumber(const Reading<double> &reading, unsigned cap)
{
    return {wholenumber::capped(wholenumber::truncated(reading.value), cap), reading.units,
            reading.isMissing};
}

Reading<unsigned> shareOf(const Reading<double> &reading)
{
    constexpr unsigned whole = 100;
    const Reading<int> share = wholeNumber(reading, whole);
    return {static_cast<unsigned>(share.value), share.units, share.isMissing};
}

Reading<double> heldTo(const Reading<double> &reading, double lowest, double highest)
{
    return {std::clamp(reading.value, lowest, highest), reading.units, reading.isMissing};
}

QString withDegreeSign(const QString &units)
{
    return units == QLatin1String("C") ? QStringLiteral("°C") : units;
}

} // namespace sensortree
