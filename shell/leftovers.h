#pragma once

#include "shell/processes.h"

#include <functional>

/// Copies of the program left behind by an earlier start.
namespace leftovers {

/// The system functions used; tests substitute their own.
struct System
{
    std::function<QString()> ownExecutableName = processes::ownExecutableName;
    std::function<qint64()> ownId = processes::ownId;
    std::function<std::optional<QVector<processes::Process>>()> snapshot = processes::snapshot;
    std::function<bool(const processes::Process &)> terminate = processes::terminate;
};

/// Ends every other process whose executable has the same file name, ignoring letter case. Every
/// step, failures too, is logged to the debug stream.
void end(const System &system = {});

} // namespace leftovers
