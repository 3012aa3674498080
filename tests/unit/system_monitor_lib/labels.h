#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QStringList>

#include <initializer_list>

/// The first reading under a label; empty when the label is absent.
inline QJsonObject firstReading(const QJsonObject &tree, const QString &label)
{
    return tree.value(label).toArray().at(0).toObject();
}

/// The value under a label; -1, which no reading here has, when it is missing or not a number.
inline double value(const QJsonObject &tree, const QString &label)
{
    return firstReading(tree, label).value(QStringLiteral("value")).toDouble(-1);
}

inline QString units(const QJsonObject &tree, const QString &label)
{
    return firstReading(tree, label).value(QStringLiteral("units")).toString();
}

/// The lines that describe() is expected to give.
inline QStringList texts(std::initializer_list<const char *> lines)
{
    QStringList list;
    for (const char *const line : lines)
        list += QString::fromUtf8(line);
    return list;
}

/// Adds one line per reading and per device without readings.
inline void describe(const QString &path, const QJsonObject &tree, QStringList &lines)
{
    if (tree.isEmpty())
        lines += path;
    for (auto member = tree.begin(); member != tree.end(); ++member) {
        const QString name = QStringLiteral("%1 | %2").arg(path, member.key());
        if (member.value().isObject())
            describe(name, member.value().toObject(), lines);
        else
            lines += QStringLiteral("%1 = %2 %3")
                         .arg(name)
                         .arg(value(tree, member.key()), 0, 'g', 9)
                         .arg(units(tree, member.key()));
    }
}
