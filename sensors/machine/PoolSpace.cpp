#include "sensors/machine/PoolSpace.h"

#include <QHash>

#include <algorithm>

void PoolSpace::setDataSets(const QStringList &mountPoints)
{
    QHash<QString, DataSet> known;
    for (const DataSet &dataSet : qAsConst(m_dataSets))
        known.insert(dataSet.mountPoint, dataSet);
    m_dataSets.clear();
    for (const QString &mountPoint : mountPoints)
        m_dataSets.append(known.value(mountPoint, {mountPoint, false, {}}));
}

std::optional<DriveSpace> PoolSpace::refresh(const Ask &ask)
{
    quint64 freeBytes = 0;
    const QVector<int> asked = due();
    for (const int index : asked) {
        DataSet &dataSet = m_dataSets[index];
        dataSet.space = ask(dataSet.mountPoint);
        dataSet.wasAsked = true;
        if (dataSet.space)
            freeBytes = std::max(freeBytes, dataSet.space->freeBytes);
    }
    bool isKnown = false;
    quint64 usedBytes = 0;
    for (const DataSet &dataSet : qAsConst(m_dataSets)) {
        if (!dataSet.space)
            continue;
        isKnown = true;
        const DriveSpace space = *dataSet.space;
        usedBytes += space.totalBytes - std::min(space.freeBytes, space.totalBytes);
    }
    return isKnown ? std::make_optional(DriveSpace{freeBytes, usedBytes + freeBytes})
                   : std::nullopt;
}

/// Those that are asked now. The one with the most free is always among them, because what is free
/// to the pool changes with every write to any data set.
QVector<int> PoolSpace::due()
{
    const int count = static_cast<int>(m_dataSets.size());
    QVector<int> due;
    for (int index = 0; index < count; ++index) {
        if (!m_dataSets.at(index).wasAsked)
            due.append(index);
    }
    const int leader = withMostFree();
    if (leader >= 0)
        due.append(leader);
    while (due.size() < std::min(mostAsked, count)) {
        m_next = (m_next + 1) % count;
        if (!due.contains(m_next))
            due.append(m_next);
    }
    return due;
}

/// Among those with an answer; -1 when there is none.
int PoolSpace::withMostFree() const
{
    int leader = -1;
    for (int index = 0; index < m_dataSets.size(); ++index) {
        const std::optional<DriveSpace> &space = m_dataSets.at(index).space;
        if (space && (leader < 0 || space->freeBytes > m_dataSets.at(leader).space->freeBytes))
            leader = index;
    }
    return leader;
}
