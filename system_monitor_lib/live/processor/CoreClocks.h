#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QString>

#include <optional>
#include <vector>

/// The label of the clock of a physical core, counted from 0 without gaps.
QString clockLabel(std::size_t core);
QJsonArray clockReading(double megahertz);

/// The clock at which a processor runs: its nominal clock times its performance in percent, which
/// exceeds 100 with turbo. If the performance is unknown or implausible, \a current is used.
unsigned actualMegahertz(unsigned nominal, unsigned current, std::optional<double> performance);

/// The labels of the physical cores. \a cores has a mask of processors for each core, whose first
/// processor represents the core; \a megahertz has the clock of each processor. A core whose clock
/// is missing or implausible has no label. Without masks each processor is a core.
QJsonObject coreClocks(const std::vector<quint64> &cores, const std::vector<unsigned> &megahertz);
