#pragma once

#include "sensors/machine/drives.h"

#include <QString>
#include <QStringList>
#include <QVector>

#include <functional>
#include <optional>

/// The space of a ZFS pool, by that of its mounted data sets. Each of these tells what it holds
/// itself and how much is free to it. The pool's space is the sum of what they hold and the most
/// that is free to any of them.
class PoolSpace
{
public:
    /// Data sets that are asked per refresh, because a pool may have thousands of them.
    static constexpr int mostAsked = 32;

    /// The space of the file system at \a mountPoint; none on failure.
    using Ask = std::function<std::optional<DriveSpace>(const QString &mountPoint)>;

    /// Where the data sets are mounted. Those that were there before keep their last answers.
    void setDataSets(const QStringList &mountPoints);

    /// Asks the new data sets and, if these are fewer than mostAsked, others in turn. The last
    /// answers of the rest count. None while no data set has an answer.
    std::optional<DriveSpace> refresh(const Ask &ask);

private:
    struct DataSet
    {
        QString mountPoint;
        bool wasAsked = false;
        std::optional<DriveSpace> space; ///< The last answer.
    };

    QVector<int> due();
    int withMostFree() const;

    QVector<DataSet> m_dataSets;
    int m_next = 0; ///< Whose turn it is.
};
