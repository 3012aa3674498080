#pragma once

#include "system_monitor_lib/SensorTrees.h"

/// The list of all sensors, with a unique label for each sensor. Sensors are found by their label
/// alone, so of several equal labels only one would ever be found. \a groups says which labels
/// belong to which group: the first group that may have a label keeps it unchanged. The labels of
/// other groups are prefixed with the name of their device; if several devices have the same name,
/// all but the first also include their place. So adding a device at the end changes no other
/// device's labels, nor does a device that gives no readings for a while.
QJsonObject withDistinctLabels(const QJsonObject &sensors, const std::vector<SensorGroup> &groups);
