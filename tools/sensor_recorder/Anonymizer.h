#pragma once

#include <QJsonObject>
#include <QStringList>

/// Takes what names one single machine out of sensor trees: addresses of network adapters (also
/// those in names such as "enx001122334455") become "(address 1)", "(address 2)", ..., the same
/// address always the same text; sensors whose label speaks of a serial number are left out. The
/// trees of this project hold neither serial numbers nor addresses of their own accord.
class Anonymizer
{
public:
    QJsonObject anonymized(const QJsonObject &tree);

private:
    QJsonValue anonymizedValue(const QJsonValue &value);
    QString withoutAddresses(const QString &text);

    QStringList m_addresses;
};
