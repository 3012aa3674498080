#pragma once

#include <QJsonArray>
#include <QJsonObject>

/// The first reading under a label; empty when the label is absent.
inline QJsonObject firstReading(const QJsonObject &tree, const QString &label)
{
    return tree.value(label).toArray().at(0).toObject();
}

/// The value under a label; -1, which no reading here has, when it is absent or no number.
inline double value(const QJsonObject &tree, const QString &label)
{
    return firstReading(tree, label).value(QStringLiteral("value")).toDouble(-1);
}

inline QString units(const QJsonObject &tree, const QString &label)
{
    return firstReading(tree, label).value(QStringLiteral("units")).toString();
}
