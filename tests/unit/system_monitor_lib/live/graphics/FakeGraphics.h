#pragma once

#include "system_monitor_lib/live/graphics/AdapterAnswers.h"
#include "system_monitor_lib/live/graphics/DisplayDevices.h"
#include "system_monitor_lib/live/graphics/GraphicsSystem.h"
#include "tests/unit/system_monitor_lib/bytes.h"

#include <QMap>

/// Flags of an adapter's type.
constexpr quint32 hybridDiscrete = 1U << 4U;
constexpr quint32 indirectDisplay = 1U << 6U;

inline QByteArray addressAnswer(quint32 bus, quint32 device, quint32 function)
{
    return bytes(bus) + bytes(device) + bytes(function);
}

/// The number of an engine, its kind, name and flags.
inline QByteArray nodeAnswer(quint32 kind)
{
    return bytes<quint32>(0) + bytes(kind) + gap(72);
}

/// The numbers of engine and GPU; clocks now, highest and overclocked; voltages, and a latency.
inline QByteArray nodePerformance(quint64 hertz, quint32 millivolts)
{
    return gap(8) + bytes(hertz) + bytes<quint64>(2'600'000'000) + bytes<quint64>(2'800'000'000) +
           bytes(millivolts) + bytes<quint32>(1200) + bytes<quint32>(1250) + gap(4) +
           bytes<quint64>(500);
}

/// The number of the GPU; clocks of the memory now, highest and overclocked; two bandwidths, the
/// fan's speed, the power in tenths of a percent, tenths of a degree, a flag.
inline QByteArray adapterPerformance(quint64 hertz, quint32 rpm, quint32 tenths)
{
    return gap(8) + bytes(hertz) + bytes<quint64>(9'000'000'000) + bytes<quint64>(9'500'000'000) +
           bytes<quint64>(0) + bytes<quint64>(0) + bytes(rpm) + bytes<quint32>(371) +
           bytes(tenths) + bytes<quint8>(0) + gap(3);
}

/// The graphics adapters of a machine, as a test describes them.
class FakeGraphics : public GraphicsSystem
{
public:
    using Topic = adapter_answers::Topic;
    using Answers = QMap<Topic, QByteArray>;

    std::vector<DisplayAdapter> adapters() override
    {
        ++listed;
        return present;
    }

    QByteArray ask(quint64 luid, quint32 topic, const QByteArray &question) override
    {
        const auto asked = static_cast<Topic>(topic);
        if (asked == Topic::AdapterPerformance || asked == Topic::NodePerformance)
            ++questions[luid];
        if (asked == Topic::NodeMetadata || asked == Topic::NodePerformance)
            lastNode = numberOfNode(question);
        if (asked == Topic::NodeMetadata && !kinds.empty())
            return lastNode < kinds.size() ? nodeAnswer(kinds[lastNode]) : QByteArray();
        if (asked == Topic::NodeMetadata && lastNode < firstDrawingNode)
            return nodeAnswer(5);
        return answers.value(luid).value(asked);
    }

    std::vector<CounterValue> engineLoads(qint64 /*nowNs*/) override
    {
        ++counted;
        return engines;
    }
    std::vector<CounterValue> memoryInUse(qint64 /*nowNs*/) override { return memory; }

    std::vector<DisplayAdapter> present;
    QMap<quint64, Answers> answers;
    std::vector<CounterValue> engines;
    std::vector<CounterValue> memory;
    quint32 firstDrawingNode = 0;
    /// The kinds of the engines, if the test tells them.
    std::vector<quint32> kinds;

    int listed = 0;
    /// How often the counters were read.
    int counted = 0;
    /// How often the drivers were asked for readings.
    QMap<quint64, int> questions;
    quint32 lastNode = 99;

private:
    static quint32 numberOfNode(const QByteArray &question)
    {
        return qFromLittleEndian<quint32>(question.constData());
    }
};

/// The devices of a machine, as a test describes them.
class FakeDevices : public DisplayDevices
{
public:
    std::vector<DisplayDevice> list() override
    {
        ++listed;
        return present;
    }

    bool sleeps(const QString &instance) override { return sleeping.contains(instance); }

    std::vector<DisplayDevice> present;
    QStringList sleeping;
    int listed = 0;
};
