#include "sensors/readings/SensorWalk.h"

#include "sensors/readings/SensorTree.h"
#include "values/ReadingText.h"

#include <QJsonArray>
#include <QRegularExpression>
#include <QStringMatcher>
#include <QVector>

using namespace sensortree;

namespace {

bool isReading(const QJsonObject &object)
{
    return object.contains(QLatin1String("value")) && object.contains(QLatin1String("units"));
}

QString textOf(const Reading<double> &number)
{
    return readingtext::general(number.value, number.units);
}

} // namespace

void SensorWalk::addSensor(const QString &label, const Reading<double> &number)
{
    sensors.append({label, textOf(number)});
    sensorNumbers.append(number);
}

void SensorWalk::takeReading(const QString &label, const QJsonObject &reading)
{
    const Reading<double> number = numberOf(reading, QString());
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
        if (isReading(object))
            takeReading(label, object);
        else
            groups.append(object);
    }
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
            else if (value.isObject() && isReading(value.toObject()))
                addSensor(member.key(), numberOf(value.toObject(), QString()));
            else if (value.isObject())
                groups.append(value.toObject());
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
