#pragma once

#include "shell/processes.h"

#include <functional>

/// Copies of the program that an earlier start has left behind.
namespace leftovers {

/// What the system is asked for; tests have other answers.
struct System
{
    std::function<QString()> ownExecutableName = processes::ownExecutableName;
    std::function<qint64()> ownId = processes::ownId;
    std::function<std::optional<QVector<processes::Process>>()> snapshot = processes::snapshot;
    std::function<bool(const processes::Process &)> terminate = processes::terminate;
};

/// Ends every other process whose executable has this one's name, in whatever letters. All that
/// happens, failures too, is a line of the debug stream.
void end(const System &system = {});

} // namespace leftovers
