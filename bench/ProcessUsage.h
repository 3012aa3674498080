#pragma once

#include <QtGlobal>

#include <optional>

/// What a process has used so far, with the programs that it has started and seen end.
struct ProcessUsage
{
    double cpuSeconds = 0;
    qint64 residentKiB = 0;
    qint64 anonymousKiB =
        0; ///< Of these, what is the process's own: not its program and libraries.
};

/// Nothing when there is no such process.
std::optional<ProcessUsage> processUsage(qint64 pid);
