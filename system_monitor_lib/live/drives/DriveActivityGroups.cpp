#include "system_monitor_lib/live/drives/DriveActivityGroups.h"

#include "system_monitor_lib/ListedNames.h"

void DriveActivityGroups::add(const std::vector<Sample> &drives, qint64 nowNs, SensorTrees &trees)
{
    QHash<QString, Past> samples;
    for (const Sample &drive : drives) {
        const QString key = drive.name.place + QLatin1Char('\n') + drive.name.model;
        if (!drive.counters && !m_past.contains(key))
            continue;
        const Past past = m_past.value(key);
        std::optional<DriveActivity> activity;
        if (past.counters && drive.counters)
            activity = driveActivity(*past.counters, *drive.counters, nowNs - past.timeNs);
        trees.addGroup({deviceGroup(QStringLiteral("Drive activity"), drive.name.key),
                        drive.name.model, drive.name.place, driveActivityLabelNames()},
                       activity ? driveActivityLabels(*activity) : QJsonObject());
        samples.insert(key, {drive.counters, nowNs});
    }
    m_past = samples;
}
