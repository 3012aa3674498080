#pragma once

#include "system_monitor_lib/SensorTrees.h"

/// The list of all sensors with one label for each sensor. Readers find a sensor by its label
/// alone: of equal ones they would only ever find one. \a groups says whose a label is: the first
/// group that may have it keeps it plain. The labels of other groups begin with the name of their
/// device, of equal names all but the first with their place as well. So a device that is added
/// last changes no other device's labels, nor does one that says nothing for a while.
QJsonObject withDistinctLabels(const QJsonObject &sensors, const std::vector<SensorGroup> &groups);
