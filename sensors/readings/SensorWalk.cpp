#include "sensors/readings/SensorWalk.h"

#include "sensors/readings/SensorTree.h"
#include "values/ReadingText.h"

#include <QJsonArray>
#include <QRegularExpression>
#include <QVector>

using namespace sensortree;

namespace {

bool isReading(const QJsonObject &object)
{
    return object.contains(QLatin1String("value")) && object.contains(QLatin1String("units"));
}

void takeReading(SensorWalk &walk, const QString &label, const QJsonObject &reading)
{
    const QString text = sensorText(reading);
    if (containsLabel(label, QStringLiteral("AIO Pump")))
        walk.pump = text;
    if (containsLabel(label, QStringLiteral("CPU")) &&
        containsLabel(label, QStringLiteral("Fan")) &&
        unitsOf(reading, QString()) == QLatin1String("RPM"))
        walk.cpuFans.append({label, text});
    walk.sensors.append({label, text});
}

/// Takes the sensors of \a array and puts its other objects on \a groups.
void visitArray(SensorWalk &walk, const QString &label, const QJsonArray &array,
                QVector<QJsonObject> &groups)
{
    for (const QJsonValue element : array) {
        if (!element.isObject())
            continue;
        if (isReading(element.toObject()))
            takeReading(walk, label, element.toObject());
        else
            groups.append(element.toObject());
    }
}

} // namespace

void SensorWalk::visit(const QJsonObject &tree)
{
    // Last in, first out: the group that was met last is visited first.
    QVector<QJsonObject> groups{tree};
    while (!groups.isEmpty()) {
        const QJsonObject group = groups.takeLast();
        for (auto member = group.begin(); member != group.end(); ++member) {
            const QJsonValue value = member.value();
            if (value.isArray())
                visitArray(*this, member.key(), value.toArray(), groups);
            else if (value.isObject() && isReading(value.toObject()))
                sensors.append({member.key(), sensorText(value.toObject())});
            else if (value.isObject())
                groups.append(value.toObject());
        }
    }
}

QString sensorText(const QJsonObject &reading)
{
    return readingtext::general(valueOf(reading), unitsOf(reading, QString()));
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
