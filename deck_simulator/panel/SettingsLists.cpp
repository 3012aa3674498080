#include "deck_simulator/panel/SettingsLists.h"

#include <QJsonArray>

#include <tuple>

namespace deck {

namespace {

constexpr int deepestTree = 32;

QString readingOf(const QJsonObject &sensor)
{
    const QJsonValue value = sensor.value(QLatin1String("value"));
    const QString number =
        value.isDouble() ? QString::number(value.toDouble(), 'g', 6) : value.toString();
    return number + sensor.value(QLatin1String("units")).toString();
}

bool isSensor(const QJsonObject &object)
{
    return object.contains(QLatin1String("value")) && object.contains(QLatin1String("units"));
}

void collect(const QString &label, const QJsonValue &value, const QString &group, int depth,
             QVector<ListEntry> &list)
{
    if (depth > deepestTree || list.size() >= longestList)
        return;
    if (value.isArray()) {
        const QJsonArray elements = value.toArray();
        for (const QJsonValue &element : elements)
            collect(label, element, group, depth + 1, list);
        return;
    }
    const QJsonObject object = value.toObject();
    if (isSensor(object)) {
        list.append({label, label, group, readingOf(object)});
        return;
    }
    for (auto member = object.begin(); member != object.end(); ++member)
        collect(member.key(), member.value(), label, depth + 1, list);
}

QVector<ListEntry> fontsFrom(const QJsonArray &fonts)
{
    QVector<ListEntry> list;
    for (const QJsonValue &font : fonts) {
        const QString value = font.toObject().value(QLatin1String("value")).toString();
        // The "name" is of the file, which may hold other styles too.
        if (!value.isEmpty() && list.size() < longestList)
            list.append(
                {value, QString(value).replace(QLatin1Char('|'), QLatin1Char(' ')), {}, {}});
    }
    return list;
}

QVector<ListEntry> devicesFrom(const QJsonArray &devices)
{
    QVector<ListEntry> list;
    for (const QJsonValue &device : devices) {
        if (device.isString() && list.size() < longestList)
            list.append({device.toString(), device.toString(), {}, {}});
    }
    return list;
}

QVector<ListEntry> drivesFrom(const QJsonArray &drives, const QJsonArray &volumes)
{
    QVector<ListEntry> list;
    for (int index = 0; index < drives.size() && index < longestList; ++index) {
        const QString drive = drives.at(index).toString();
        const QString volume = volumes.at(index).toString();
        const bool named = !volume.isEmpty() && volume != drive;
        list.append({QString::number(index),
                     named ? QStringLiteral("%1 (%2)").arg(drive, volume) : drive,
                     {},
                     {}});
    }
    return list;
}

} // namespace

bool operator==(const ListEntry &left, const ListEntry &right)
{
    return std::tie(left.value, left.label, left.group, left.reading) ==
           std::tie(right.value, right.label, right.group, right.reading);
}

QVector<ListEntry> sensorsFrom(const QJsonObject &tree)
{
    QVector<ListEntry> list;
    for (auto group = tree.begin(); group != tree.end(); ++group)
        collect(group.key(), group.value(), {}, 0, list);
    return list;
}

QVector<ListEntry> disksFrom(const QJsonObject &tree)
{
    QVector<ListEntry> list;
    for (auto disk = tree.begin(); disk != tree.end() && list.size() < longestList; ++disk) {
        ListEntry entry{disk.key(), disk.key(), {}, {}};
        const QVector<ListEntry> readings = sensorsFrom(disk.value().toObject());
        for (const ListEntry &reading : readings) {
            if (entry.reading.isEmpty() && reading.label.contains(QLatin1String("Temperature")))
                entry.reading = reading.reading;
        }
        list.append(entry);
    }
    return list;
}

SettingsLists listsFrom(const QJsonObject &reply)
{
    const QJsonObject parameters = reply.value(QLatin1String("titleParameters")).toObject();
    // A list stands with the other settings or beside them.
    const auto find = [&reply, &parameters](QLatin1String name) {
        return parameters.contains(name) ? parameters.value(name) : reply.value(name);
    };
    SettingsLists lists;
    lists.fonts = fontsFrom(find(QLatin1String("FontList")).toArray());
    lists.sensors = sensorsFrom(find(QLatin1String("AllData")).toObject());
    lists.fans = sensorsFrom(find(QLatin1String("CPUFanList")).toObject());
    lists.disks = disksFrom(find(QLatin1String("PhysicalDiskTemperatureList")).toObject());
    lists.drives = drivesFrom(find(QLatin1String("DriveNames")).toArray(),
                              find(QLatin1String("VolumeNames")).toArray());
    lists.audioDevices = devicesFrom(find(QLatin1String("devices")).toArray());
    lists.pump = find(QLatin1String("PumpSpeed")).toString();
    return lists;
}

} // namespace deck
