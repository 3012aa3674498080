#include "system_monitor_lib/live/network/NetworkCollector.h"

#include "system_monitor_lib/ListedNames.h"
#include "system_monitor_lib/live/Rates.h"

#include <algorithm>
#include <tuple>

namespace {

const QString upLabel = QStringLiteral("Current UP rate");
const QString downLabel = QStringLiteral("Current DL rate");

/// Bytes per second that every link can carry (10 Mbit/s), so that the link speed is not queried.
constexpr double slowestLink = 1'250'000;

/// Some drivers update their counters only every second or two, so that one interval may contain
/// the traffic of two.
constexpr double lateCounters = 2;

/// Bytes per second that no link carries (1 Tbit/s).
constexpr double fastestLink = 125'000'000'000;

QJsonArray rateReading(double bytesPerSecond)
{
    return reading(bytesPerSecond / 1024, QStringLiteral("KB/s"));
}

} // namespace

NetworkCollector::NetworkCollector(const MachineRoots &roots)
    : m_reader(roots)
{
}

bool NetworkCollector::collect(qint64 nowNs, SensorTrees &trees)
{
    std::optional<std::vector<AdapterCounters>> adapters = m_reader.read();
    QHash<QString, State> states;
    if (adapters) {
        std::sort(adapters->begin(), adapters->end(),
                  [](const AdapterCounters &a, const AdapterCounters &b) {
                      return std::tie(a.order, a.name) < std::tie(b.order, b.name);
                  });
        const bool asksAll = m_speeds.isDue(nowNs);
        for (const AdapterCounters &counters : *adapters) {
            State state{counters, nowNs, 0, {}, {}, {}};
            state.figures.sentBytes = counters.sentBytes;
            state.figures.receivedBytes = counters.receivedBytes;
            const auto previous = m_states.constFind(counters.name);
            const bool isKnown =
                previous != m_states.cend() && previous->counters.identity == counters.identity;
            if (isKnown)
                measure(*previous, state);
            if (!isKnown || asksAll)
                state.figures.linkBytesPerSecond = m_reader.linkBytesPerSecond(counters.name);
            add(state, trees);
            states.insert(counters.name, state);
        }
    }
    m_states = std::move(states);
    return adapters.has_value();
}

void NetworkCollector::add(const State &state, SensorTrees &trees)
{
    static const QStringList labels = QStringList{upLabel, downLabel} + adapterLabelNames();
    const QString &name = state.counters.name;
    QJsonObject tree;
    QJsonObject all = adapterLabels(state.figures);
    const auto addRate = [&](const QString &label, std::optional<double> rate) {
        if (!rate)
            return;
        const QJsonArray reading = rateReading(*rate);
        tree.insert(label, reading);
        all.insert(label, reading);
    };
    addRate(upLabel, state.figures.sentBytesPerSecond);
    addRate(downLabel, state.figures.receivedBytesPerSecond);
    trees.addDevice(Query::NetworkInfo, name, tree);
    trees.addGroup({deviceGroup(QStringLiteral("Network"), name), name, {}, labels}, all);
}

void NetworkCollector::measure(const State &previous, State &current) const
{
    current.linkSpeed = previous.linkSpeed;
    current.figures.linkBytesPerSecond = previous.figures.linkBytesPerSecond;
    const qint64 interval = current.timeNs - previous.timeNs;
    const auto sent =
        ratePerSecond(previous.counters.sentBytes, current.counters.sentBytes, interval);
    const auto received =
        ratePerSecond(previous.counters.receivedBytes, current.counters.receivedBytes, interval);
    if (sent && isPossible(*sent, previous.sent, current.sent, current))
        current.figures.sentBytesPerSecond = sent;
    if (received && isPossible(*received, previous.received, current.received, current))
        current.figures.receivedBytesPerSecond = received;
}

bool NetworkCollector::isPossible(double rate, const Excess &before, Excess &now,
                                  State &state) const
{
    if (rate > qMax(state.linkSpeed, slowestLink))
        state.linkSpeed = m_reader.linkBytesPerSecond(state.counters.name);
    now.isLasting = before.isLasting;
    if (state.linkSpeed <= 0 || rate <= state.linkSpeed * lateCounters)
        return true;
    now.isSeen = true;
    // A faulty counter jumps once; an emulated adapter does so repeatedly.
    now.isLasting = (before.isLasting || before.isSeen) && rate <= fastestLink;
    return now.isLasting;
}
