#pragma once

#include "system_monitor_lib/live/Collector.h"
#include "system_monitor_lib/live/Pace.h"

#include <functional>

/// A group of the list of all sensors whose readings take calls that are too dear for every sample.
class PacedGroup : public Collector
{
public:
    static constexpr std::chrono::nanoseconds readingPeriod = std::chrono::seconds(5);

    using Labels = std::function<QJsonObject(qint64 nowNs)>;

    PacedGroup(const QString &group, Labels labels);

    bool collect(qint64 nowNs, SensorTrees &trees) override;

private:
    const QString m_group;
    const Labels m_read;
    Pace m_reading{readingPeriod};
    QJsonObject m_labels;
};
