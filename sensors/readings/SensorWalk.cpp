#include "sensors/readings/SensorWalk.h"

#include "sensors/readings/SensorTree.h"
#include "values/ReadingText.h"

#include <QHash>
#include <QJsonArray>
#include <QRegularExpression>
#include <QStringMatcher>
#include <QVector>

#include <functional>
#include <optional>
#include <vector>

using namespace sensortree;

namespace {

/// Nothing when the object is no reading.
std::optional<Reading<double>> readingIn(const QJsonObject &object)
{
    const auto value = object.constFind(QLatin1String("value"));
    const auto units = object.constFind(QLatin1String("units"));
    if (value == object.constEnd() || units == object.constEnd())
        return std::nullopt;
    const QJsonValue number = value.value();
    return Reading<double>{number.toDouble(), units.value().toString(), !number.isDouble()};
}

/// The text of a number. Most sensors have the same number as in the last pass, and finding a text
/// costs less than making it.
QString textOf(const Reading<double> &number)
{
    struct Known
    {
        double value = 0;
        QString units;
        QString text;
    };
    // More than there are sensors; which one has which place does not matter.
    constexpr std::size_t count = 1024;
    constexpr int longestUnits = 16;
    static std::vector<Known> all(count);
    if (number.units.size() > longestUnits)
        return readingtext::general(number.value, number.units);
    const std::size_t hash = std::hash<double>{}(number.value) ^ qHash(number.units);
    Known &known = all[hash % count];
    const bool isEqual = known.value == number.value && known.units == number.units;
    if (!isEqual || known.text.isEmpty())
        known = {number.value, number.units, readingtext::general(number.value, number.units)};
    return known.text;
}

} // namespace

void SensorWalk::addSensor(const QString &label, const Reading<double> &number)
{
    sensors.append({label, textOf(number)});
    sensorNumbers.append(number);
}

void SensorWalk::takeReading(const QString &label, const Reading<double> &number)
{
    // As containsLabel() does, but for each of many labels.
    static const QStringMatcher isPump(QStringLiteral("AIO Pump"), Qt::CaseInsensitive);
    if (isPump.indexIn(label) >= 0) {
        pump = textOf(number);
        pumpNumber = number;
    }
    if (number.units == QLatin1String("RPM") && containsLabel(label, QStringLiteral("CPU")) &&
        containsLabel(label, QStringLiteral("Fan"))) {
        cpuFans.append({label, textOf(number)});
        cpuFanNumbers.append(number);
    }
    addSensor(label, number);
}

/// Takes the sensors of \a array and puts its other objects on \a groups.
void SensorWalk::visitArray(const QString &label, const QJsonArray &array,
                            QVector<QJsonObject> &groups)
{
    for (const QJsonValue element : array) {
        if (!element.isObject())
            continue;
        const QJsonObject object = element.toObject();
        if (const auto number = readingIn(object))
            takeReading(label, *number);
        else
            groups.append(object);
    }
}

/// Takes \a object as a sensor, or puts it on \a groups.
void SensorWalk::visitObject(const QString &label, const QJsonObject &object,
                             QVector<QJsonObject> &groups)
{
    if (const auto number = readingIn(object))
        addSensor(label, *number);
    else
        groups.append(object);
}

void SensorWalk::visit(const QJsonObject &tree)
{
    // Last in, first out: the group that was met last is visited first.
    QVector<QJsonObject> groups{tree};
    while (!groups.isEmpty()) {
        const QJsonObject group = groups.takeLast();
        for (auto member = group.begin(); member != group.end(); ++member) {
            const QJsonValue value = member.value();
            if (value.isArray())
                visitArray(member.key(), value.toArray(), groups);
            else if (value.isObject())
                visitObject(member.key(), value.toObject(), groups);
        }
    }
}

QString sensorText(const QJsonObject &reading)
{
    return textOf(numberOf(reading, QString()));
}

QJsonObject pairsToTree(const systemInfor::SensorTexts &pairs)
{
    static const QRegularExpression numberAndUnits(
        QStringLiteral(R"(^\s*([+-]?\d+(?:\.\d+)?)\s*(.*))"));
    QJsonObject tree;
    for (const auto &pair : pairs) {
        const QRegularExpressionMatch match = numberAndUnits.match(pair.second);
        // Compatibility: values-as-texts
        const QJsonObject reading{{QStringLiteral("value"), match.captured(1)},
                                  {QStringLiteral("units"), match.captured(2).trimmed()}};
        tree.insert(pair.first, QJsonArray{reading});
    }
    return tree;
}
