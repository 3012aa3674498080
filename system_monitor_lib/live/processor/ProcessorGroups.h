#pragma once

#include <QByteArray>

#include <functional>
#include <vector>

/// The answer of each group of processors of Windows, as ProcessorTimes.h reads it. An empty one is
/// from a group that the system does not tell about.
using ProcessorGroups = std::function<std::vector<QByteArray>()>;

/// Those of this machine.
ProcessorGroups processorGroups();
