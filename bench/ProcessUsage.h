#pragma once

#include <QtGlobal>

#include <optional>

/// What a process has used so far, including its children that have ended.
struct ProcessUsage
{
    double cpuSeconds = 0;
    qint64 residentKiB = 0;
    qint64 anonymousKiB = 0; ///< The private part of it: without its program and libraries.
};

/// Nothing when there is no such process.
std::optional<ProcessUsage> processUsage(qint64 pid);
