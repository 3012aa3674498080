#pragma once

#include <QJsonObject>
#include <QString>
#include <QStringList>
#include <QVector>

namespace deck {

/// One entry of a list that a settings panel offers.
struct ListEntry
{
    QString value;   ///< What is sent when it is chosen.
    QString label;   ///< What is shown.
    QString group;   ///< Under which it is shown; empty where there are no groups.
    QString reading; ///< What it reads now, such as "45.5°C"; empty where it has none.
};

bool operator==(const ListEntry &left, const ListEntry &right);

/// The choices that a plugin's settings reply offers. Whatever a reply lacks is empty.
struct SettingsLists
{
    QVector<ListEntry> fonts;
    QVector<ListEntry> sensors;
    QVector<ListEntry> fans;
    QVector<ListEntry> disks;
    QVector<ListEntry> drives; ///< Their values are their numbers.
    QVector<ListEntry> audioDevices;
    QString pump; ///< The reading of the pump.
};

/// The maximum number of entries taken from each list.
constexpr int longestList = 10000;

SettingsLists listsFrom(const QJsonObject &reply);

/// The leaves of a sensor tree: {GROUP: {LABEL: [{"value": ..., "units": ...}]}}, to any depth.
QVector<ListEntry> sensorsFrom(const QJsonObject &tree);

/// The drives in a tree of health records: {DRIVE: {LABEL: [{"value": ..., "units": ...}]}}, with
/// their temperatures.
QVector<ListEntry> disksFrom(const QJsonObject &tree);

} // namespace deck
