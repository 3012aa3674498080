#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QString>

#include <optional>
#include <vector>

/// The label of the clock of a physical core, counted from 0 without gaps.
QString clockLabel(std::size_t core);
QJsonArray clockReading(double megahertz);

/// The clock at which a processor runs: its nominal one times the performance in percent of it,
/// which turbo takes above 100. Where the performance is unknown or absurd, \a current stands.
unsigned actualMegahertz(unsigned nominal, unsigned current, std::optional<double> performance);

/// The labels of the physical cores. \a cores has a mask of processors for each core, of which the
/// first stands for it; \a megahertz the clock of each processor. A core whose clock is absent or
/// absurd has no label. Without masks each processor is a core.
QJsonObject coreClocks(const std::vector<quint64> &cores, const std::vector<unsigned> &megahertz);
