#pragma once

#include "system_monitor_lib/live/Collector.h"
#include "system_monitor_lib/live/Pace.h"
#include "system_monitor_lib/live/power/BatterySystem.h"

/// The labels of each battery of \a system, for the groups "Battery: NAME", and "Mains Power" of a
/// machine with a battery. Drivers ask a battery's own controller, which is slow: the readings are
/// made anew every 10 seconds.
class BatteryDevices : public Collector
{
public:
    static constexpr std::chrono::nanoseconds readingPeriod = std::chrono::seconds(10);

    explicit BatteryDevices(std::unique_ptr<BatterySystem> system);

    bool collect(qint64 nowNs, SensorTrees &trees) override;

private:
    struct Battery
    {
        QString name;
        /// Tells it from another one of that name.
        QString place;
        QJsonObject labels;
    };

    void read();

    const std::unique_ptr<BatterySystem> m_system;
    Pace m_reading{readingPeriod};
    std::vector<Battery> m_batteries;
    std::optional<bool> m_isPluggedIn;
};
