#pragma once

#include <QJsonObject>
#include <QString>
#include <QStringList>

#include <vector>

/// A GPU and its readings at one moment.
struct GpuState
{
    QString name;
    /// Distinguishes it from another GPU with the same name.
    QString place;
    /// Its own memory in MB; 0 when it has none or does not report it.
    double memory = 0;
    /// Whether this is only the size of its window on the bus, which is good enough for choosing a
    /// card, but not for a reading.
    bool isMemoryOfWindow = false;
    QJsonObject labels;
    /// Additional readings for the list of all sensors only.
    QJsonObject listed = {};
    /// The labels that it may have while it is awake.
    QStringList mayHave = {};
    /// Whether the GPU itself must not be queried now, because it is asleep or may fall asleep.
    bool isLeftAlone = false;
};

/// One way to access GPUs. Each is independent: if the GPUs of one vendor cannot be read, the
/// others' still can.
class GpuSource
{
public:
    GpuSource() = default;
    virtual ~GpuSource() = default;
    Q_DISABLE_COPY(GpuSource)

    /// The GPUs that exist now. A sleeping one has no labels and is not woken.
    virtual std::vector<GpuState> read(qint64 nowNs) = 0;
};

/// The labels that addMemoryLabels() may add.
QStringList memoryLabelNames();

/// Adds "GPU Memory Usage" (%), "GPU Memory Allocated" and "GPU Memory Total" (MB) from sizes in
/// bytes, and returns the total in MB. Free memory has no label, because the GPU would then be
/// chosen by it, and the choice would change with the load.
double addMemoryLabels(QJsonObject &labels, quint64 usedBytes, quint64 totalBytes);
