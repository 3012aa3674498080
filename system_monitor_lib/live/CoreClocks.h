#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QString>

#include <vector>

/// The label of the clock of a physical core, counted from 0 without gaps.
QString clockLabel(std::size_t core);
QJsonArray clockReading(double megahertz);

/// The labels of the physical cores. \a cores has a mask of processors for each core, of which the
/// first stands for it; \a megahertz the clock of each processor. A core whose clock is absent or
/// absurd has no label. Without masks each processor is a core.
QJsonObject coreClocks(const std::vector<quint64> &cores, const std::vector<unsigned> &megahertz);
