#pragma once

#include <QJsonObject>
#include <QString>
#include <QStringList>

#include <vector>

/// A GPU and what it says at one moment.
struct GpuState
{
    QString name;
    /// Tells it from another GPU of the same name.
    QString place;
    /// Its own memory in MB, 0 when it has none or does not tell.
    double memory = 0;
    /// Whether that is only what its window on the bus tells: enough to choose a card by, but not
    /// for a reading.
    bool isMemoryOfWindow = false;
    QJsonObject labels;
    /// What only the list of all sensors has besides.
    QJsonObject listed = {};
    /// The labels that it may have while it is awake.
    QStringList mayHave = {};
};

/// One way to reach GPUs. Each stands alone: what hides one vendor's GPUs leaves the others'.
class GpuSource
{
public:
    GpuSource() = default;
    virtual ~GpuSource() = default;
    Q_DISABLE_COPY(GpuSource)

    /// The GPUs that are there now. One that sleeps has no labels and is not woken.
    virtual std::vector<GpuState> read(qint64 nowNs) = 0;
};

/// The labels that addMemoryLabels() may add.
QStringList memoryLabelNames();

/// Adds "GPU Memory Usage" (%), "GPU Memory Allocated" and "GPU Memory Total" (MB) of sizes in
/// bytes, and gives the total in MB. Free memory has no label: readers would choose the GPU by it,
/// and so another one whenever the load moves.
double addMemoryLabels(QJsonObject &labels, quint64 usedBytes, quint64 totalBytes);
