#pragma once

#include <QtGlobal>

#include <optional>

/// What a process has used so far, including its children that have ended.
struct ProcessUsage
{
    double cpuSeconds = 0;
    qint64 residentKiB = 0;
    qint64 anonymousKiB = 0; ///< The private part of it: without its program and libraries.
    // Those of its threads that live; nothing of children.
    qint64 wakeUps = 0;    ///< How often a thread has waited for something.
    qint64 pageFaults = 0; ///< Answered without reading from a disk.
    qint64 reads = 0;      ///< System calls that read.
    qint64 writes = 0;     ///< System calls that write.
};

/// Nothing when there is no such process.
std::optional<ProcessUsage> processUsage(qint64 pid);
