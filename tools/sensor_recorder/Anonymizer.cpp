#include "tools/sensor_recorder/Anonymizer.h"

#include <QJsonArray>
#include <QRegularExpression>

QJsonObject Anonymizer::anonymized(const QJsonObject &tree)
{
    QJsonObject result;
    for (auto member = tree.begin(); member != tree.end(); ++member) {
        if (!member.key().contains(QLatin1String("serial"), Qt::CaseInsensitive))
            result.insert(withoutAddresses(member.key()), anonymizedValue(member.value()));
    }
    return result;
}

QJsonValue Anonymizer::anonymizedValue(const QJsonValue &value)
{
    if (value.isObject())
        return anonymized(value.toObject());
    if (value.isString())
        return withoutAddresses(value.toString());
    if (!value.isArray())
        return value;
    QJsonArray elements;
    for (const QJsonValue element : value.toArray())
        elements.append(anonymizedValue(element));
    return elements;
}

QString Anonymizer::withoutAddresses(const QString &text)
{
    static const QRegularExpression address(
        QStringLiteral("(?<![0-9A-Fa-f])(?:[0-9A-Fa-f]{2}[:-]){5}[0-9A-Fa-f]{2}(?![0-9A-Fa-f])"
                       "|(?<=enx|wlx|wwx)[0-9a-f]{12}"));
    QString result = text;
    QRegularExpressionMatch match = address.match(result);
    while (match.hasMatch()) {
        const QString found =
            match.captured().remove(QLatin1Char(':')).remove(QLatin1Char('-')).toLower();
        if (!m_addresses.contains(found))
            m_addresses += found;
        const QString stead = QStringLiteral("(address %1)").arg(m_addresses.indexOf(found) + 1);
        result.replace(match.capturedStart(), match.capturedLength(), stead);
        match = address.match(result, match.capturedStart() + stead.size());
    }
    return result;
}
