#include "tests/support/JsonPattern.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

namespace {

const QString anything = QStringLiteral("…");
const QString anyNumber = QStringLiteral("#");

/// For people: pictures are long.
QString shortText(const QJsonValue &value)
{
    const QString array =
        QString::fromUtf8(QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact));
    const QString text = array.mid(1, array.size() - 2);
    constexpr int enough = 200;
    return text.size() <= enough ? text : text.left(enough) + anything;
}

QString at(const QString &place, const QString &difference)
{
    return difference.isEmpty() ? difference : place + QLatin1Char(' ') + difference;
}

QString objectDifference(const QJsonObject &pattern, const QJsonObject &object)
{
    for (auto member = pattern.begin(); member != pattern.end(); ++member) {
        if (member.key() == anything)
            continue;
        if (!object.contains(member.key()))
            return member.key() + QStringLiteral(" is missing");
        const QString found = jsonpattern::difference(member.value(), object.value(member.key()));
        if (!found.isEmpty())
            return at(member.key(), found);
    }
    if (pattern.contains(anything))
        return {};
    const QStringList names = object.keys();
    for (const QString &name : names) {
        if (!pattern.contains(name))
            return name + QStringLiteral(" is one too many");
    }
    return {};
}

QString arrayDifference(QJsonArray pattern, const QJsonArray &array)
{
    const bool isOpen = !pattern.isEmpty() && pattern.last() == QJsonValue(anything);
    if (isOpen)
        pattern.removeLast();
    if (!isOpen && pattern.size() != array.size())
        return QStringLiteral("has %1 elements").arg(array.size());
    for (int index = 0; index < array.size() && !pattern.isEmpty(); ++index) {
        const QJsonValue expected = pattern.at(qMin(index, pattern.size() - 1));
        const QString found = jsonpattern::difference(expected, array.at(index));
        if (!found.isEmpty())
            return at(QStringLiteral("[%1]").arg(index), found);
    }
    // The last one may be missing, but none before it.
    if (isOpen && array.size() < pattern.size() - 1)
        return QStringLiteral("has %1 elements").arg(array.size());
    return {};
}

} // namespace

bool jsonpattern::matches(const QString &pattern, const QString &text)
{
    QStringList parts = pattern.split(anything);
    for (QString &part : parts)
        part = QRegularExpression::escape(part);
    const QRegularExpression expression(
        QRegularExpression::anchoredPattern(parts.join(QStringLiteral(".*"))),
        QRegularExpression::DotMatchesEverythingOption);
    return expression.match(text).hasMatch();
}

QString jsonpattern::difference(const QJsonValue &pattern, const QJsonValue &value)
{
    if (pattern == QJsonValue(anyNumber) && value.isDouble())
        return {};
    if (pattern.isString() && value.isString() && matches(pattern.toString(), value.toString()))
        return {};
    if (pattern.isObject() && value.isObject())
        return objectDifference(pattern.toObject(), value.toObject());
    if (pattern.isArray() && value.isArray())
        return arrayDifference(pattern.toArray(), value.toArray());
    if (pattern == value)
        return {};
    return QStringLiteral("is %1 and not %2").arg(shortText(value), shortText(pattern));
}
