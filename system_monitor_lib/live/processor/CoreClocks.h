#pragma once

#include <QByteArray>
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

/// A physical core: a mask of its processors, which belong to one group of up to 64.
struct CoreMask
{
    unsigned group = 0;
    quint64 processors = 0;
};

/// The physical cores, from the answer of GetLogicalProcessorInformationEx of Windows about cores
/// (winnt.h): an array of records with sizes of their own. Stops where it is malformed.
std::vector<CoreMask> parseCores(const QByteArray &answer);

/// The labels of the physical cores, whose first processor represents the core. \a megahertz has
/// the clocks of the processors of each group. A core whose clock is missing or implausible has no
/// label. Without cores each processor is one.
QJsonObject coreClocks(const std::vector<CoreMask> &cores,
                       const std::vector<std::vector<unsigned>> &megahertz);
