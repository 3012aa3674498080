#pragma once

#include "system_monitor_lib/live/files/Attribute.h"
#include "system_monitor_lib/live/graphics/GpuSource.h"

#include <chrono>
#include <memory>

/// One GPU of /sys/class/drm. Which attributes exist depends on driver and model; one that does not
/// exist or cannot be read is an absent label.
class SysfsGpu
{
public:
    /// What a GPU says sooner after it woke is not trusted.
    static constexpr std::chrono::nanoseconds wakingTime = std::chrono::seconds(2);

    /// \a card is its folder, links resolved.
    SysfsGpu(const QString &card, const QString &driver, const QString &pciIds);
    ~SysfsGpu();
    Q_DISABLE_COPY(SysfsGpu)

    /// The folders that it reads; another place means that it must be made anew.
    [[nodiscard]] QString place() const { return m_card + m_hwmon; }
    /// The place that a GPU of this folder would have.
    static QString placeOf(const QString &card);
    /// Whether GPUs of this driver can be read.
    static bool isKnown(const QString &driver);

    GpuState read(qint64 nowNs);

private:
    struct Sensor;
    struct Sample
    {
        quint64 microjoules = 0;
        qint64 timeNs = 0;
    };

    void open(const QString &driver);
    [[nodiscard]] QString resolved(const QString &file) const;
    bool isAwake(qint64 nowNs);
    void addMemory(QJsonObject &labels);
    /// The memory of a card that does not tell it itself.
    void askWindow();
    void addEnergy(QJsonObject &labels, qint64 nowNs);

    const QString m_card;
    const QString m_hwmon;
    GpuState m_state;
    std::vector<std::unique_ptr<Sensor>> m_sensors;
    Attribute m_runtimeStatus;
    Attribute m_memoryUsed;
    Attribute m_memoryTotal;
    Attribute m_energy;
    std::optional<Sample> m_sample;
    bool m_slept = false;
    qint64 m_wokeNs = 0;
};
