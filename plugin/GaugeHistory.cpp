#include "plugin/GaugeHistory.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr qint64 keptFor = 600'000;

/// A source that a key still shows was shown within the last pass.
constexpr qint64 longestPass = 2500;

// The least ends of a rate's scale, in KB/s: 10 KB/s, and the next round number of bits.
constexpr double leastRate = 10;
constexpr double leastRateInBits = 100 * kilobytesPerKilobit;

} // namespace

GaugeRecord GaugeHistory::newRecord(const GaugeKind &kind)
{
    GaugeRecord record;
    if (kind.quantity == Quantity::Rate) {
        record.scale = SteadyScale(RoundSteps::Bytes, leastRate);
        record.scaleInBits = SteadyScale(RoundSteps::Bits, leastRateInBits);
    }
    return record;
}

void GaugeHistory::sample(const GaugeSource &source, GaugeRecord &record, qint64 now)
{
    if (record.sampled == now)
        return;
    record.sampled = now;
    std::optional<double> highest;
    const auto take = [&](GaugeKind::Value value, GaugeRecord::Direction &direction) {
        const Reading<double> reading = value(source.selection);
        if (reading.isMissing || !std::isfinite(reading.value))
            return;
        direction.series.add(now, reading.value);
        direction.extremes.add(reading.value);
        highest = highest ? std::max(*highest, reading.value) : reading.value;
    };
    take(source.kind->value, record.directions[0]);
    if (source.kind->isPair())
        take(source.kind->second, record.directions[1]);
    if (!highest)
        return;
    record.scale.add(*highest);
    record.scaleInBits.add(*highest);
}

void GaugeHistory::beginPass(qint64 now)
{
    for (auto record = m_records.begin(); record != m_records.end();) {
        if (now - record->shown > keptFor) {
            record = m_records.erase(record);
            continue;
        }
        sample(record.key(), *record, now);
        ++record;
    }
}

GaugeRecord *GaugeHistory::show(const GaugeSource &source, qint64 now)
{
    auto record = m_records.find(source);
    if (record == m_records.end()) {
        if (m_records.size() >= mostSources && !makeRoom(now))
            return nullptr;
        record = m_records.insert(source, newRecord(*source.kind));
    }
    record->shown = now;
    return &*record;
}

void GaugeHistory::resetExtremes(const GaugeSource &source)
{
    const auto record = m_records.find(source);
    if (record == m_records.end())
        return;
    for (GaugeRecord::Direction &direction : record->directions)
        direction.extremes = Extremes();
}

/// Forgets the source that was shown longest ago, unless keys still show them all.
bool GaugeHistory::makeRoom(qint64 now)
{
    const auto oldest = std::min_element(
        m_records.begin(), m_records.end(),
        [](const GaugeRecord &one, const GaugeRecord &other) { return one.shown < other.shown; });
    if (now - oldest->shown <= longestPass)
        return false;
    m_records.erase(oldest);
    return true;
}
