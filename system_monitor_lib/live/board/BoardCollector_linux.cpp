#include "system_monitor_lib/live/board/BoardCollector.h"

#include "system_monitor_lib/live/files/HwmonChip.h"

QJsonArray coreVoltage(const QJsonObject &chip)
{
    for (const char *const label : {"Vcore", "CPU Vcore", "CPU Core Voltage", "CPU Core"}) {
        for (auto sensor = chip.begin(); sensor != chip.end(); ++sensor) {
            QJsonArray readings = sensor.value().toArray();
            const bool isVoltage = readings.at(0).toObject().value(QLatin1String("units")) ==
                                   QJsonValue(QStringLiteral("V"));
            if (isVoltage && sensor.key().compare(QLatin1String(label), Qt::CaseInsensitive) == 0)
                return readings;
        }
    }
    return {};
}

std::chrono::nanoseconds restAfter(qint64 spentNs)
{
    constexpr std::chrono::nanoseconds quick = std::chrono::milliseconds(2);
    constexpr std::chrono::nanoseconds shortest = std::chrono::seconds(2);
    constexpr std::chrono::nanoseconds longest = std::chrono::minutes(1);
    constexpr qint64 share = 500;
    if (spentNs <= quick.count())
        return std::chrono::nanoseconds(0);
    if (spentNs >= longest.count() / share)
        return longest;
    return std::max(shortest, std::chrono::nanoseconds(spentNs * share));
}

BoardCollector::BoardCollector(const MachineRoots &roots, const MonotonicClock &stopwatch)
    : m_roots(roots)
    , m_stopwatch(stopwatch)
{
}

void BoardCollector::look()
{
    QStringList present;
    for (const HwmonChip &chip : hwmonChips(m_roots))
        present += chip.directory + chip.name;
    if (m_chips && present == m_present)
        return;
    m_present = present;
    // The library's state is process-wide: the old object must be deleted before the new one is
    // created.
    m_chips.reset();
    m_chips = std::make_unique<BoardChips>();
    m_groups.clear();
    std::vector<FanChip> fans;
    for (const BoardChip &chip : m_chips->chips()) {
        m_groups.push_back(
            {chip, m_chips->labels(chip), {}, Pace(std::chrono::nanoseconds(0)), {}});
        fans.push_back(m_chips->fans(chip));
    }
    name(cpuFan(fans), QStringLiteral("CPU Fan"));
    name(aioPump(fans), QStringLiteral("AIO Pump"));
}

void BoardCollector::name(const std::optional<FanPlace> &fan, const QString &usualLabel)
{
    if (!fan)
        return;
    Group &group = m_groups.at(fan->chip);
    group.usualLabels.insert(fan->label, usualLabel);
    group.mayHave += usualLabel;
}

bool BoardCollector::collect(qint64 nowNs, SensorTrees &trees)
{
    if (m_listing.isDue(nowNs))
        look();
    QJsonArray voltage;
    for (Group &group : m_groups) {
        if (group.pace.isDue(nowNs)) {
            const qint64 start = m_stopwatch();
            group.labels = m_chips->read(group.chip);
            for (auto usual = group.usualLabels.begin(); usual != group.usualLabels.end();
                 ++usual) {
                if (group.labels.contains(usual.key()))
                    group.labels.insert(usual.value(), group.labels.value(usual.key()));
            }
            group.pace.setPeriod(restAfter(m_stopwatch() - start));
        }
        if (group.mayHave.isEmpty())
            continue;
        trees.addGroup({group.chip.name, group.chip.driver, group.chip.place, group.mayHave},
                       group.labels);
        if (voltage.isEmpty())
            voltage = coreVoltage(group.labels);
    }
    if (!voltage.isEmpty())
        trees.add(Query::CpuInfo, {{QStringLiteral("Core VID"), voltage}});
    return !m_groups.empty();
}
