#pragma once

#include "system_monitor_lib/SensorTrees.h"

/// Makes the labels of the list of all sensors unique. Sensors are found by their label alone, so
/// of several equal labels only one would ever be found. The first group that may have a label
/// keeps it unchanged. The labels of other groups are prefixed with the name of their device; if
/// several devices have the same name, all but the first also include their place. So adding a
/// device at the end changes no other device's labels, nor does a device that gives no readings for
/// a while.
///
/// What is chosen only depends on the arguments of the call. It is kept until groups or labels
/// differ from those of the last call, because they hardly ever do.
class DistinctLabels
{
public:
    /// \a sensors with unique labels; \a groups says which labels belong to which group.
    [[nodiscard]] QJsonObject apply(const QJsonObject &sensors,
                                    const std::vector<SensorGroup> &groups);

private:
    /// A group for which labels were chosen.
    struct Chosen
    {
        SensorGroup group;
        QStringList labels; ///< Those of its readings, in the order of the list.
        /// What they become, in the same order; empty where the group keeps all of them.
        QStringList distinct = {};
    };

    static bool holds(const Chosen &chosen, const SensorGroup &group, const QJsonObject &sensors);
    void choose(const QJsonObject &sensors, const std::vector<SensorGroup> &groups);

    std::vector<Chosen> m_chosen;
};
