#include "system_monitor_lib/live/graphics/AdapterGpus.h"

#include "system_monitor_lib/SensorTrees.h"

#include <algorithm>

using namespace adapter_answers;

namespace {

const QString loadLabel = QStringLiteral("GPU Core Load");
const QString allocatedLabel = QStringLiteral("GPU Memory Allocated");

QStringList adapterLabels()
{
    return QStringList{QStringLiteral("GPU Temperature"),  QStringLiteral("GPU Clock"),
                       QStringLiteral("GPU Memory Clock"), QStringLiteral("GPU Core Voltage"),
                       QStringLiteral("GPU Fan"),          loadLabel} +
           memoryLabelNames();
}

void addLabel(QJsonObject &labels, const QString &label, std::optional<double> value,
              const QString &units)
{
    if (value)
        labels.insert(label, reading(*value, units));
}

/// Whether the library's GPU is the card: by its address, else by its name, which either may
/// begin with the maker's.
bool isCard(const GpuState &known, const GraphicsCard &card)
{
    const bool hasAddress = known.place.contains(QLatin1Char(':')) && !card.address.isEmpty();
    if (hasAddress)
        return isSamePlace(known.place, card.address);
    return !known.name.isEmpty() && (known.name.endsWith(card.name, Qt::CaseInsensitive) ||
                                     card.name.endsWith(known.name, Qt::CaseInsensitive));
}

bool isAsleep(const GpuState &known)
{
    return known.isLeftAlone && known.labels.isEmpty();
}

/// Whether the counters have nothing to add.
bool hasUsage(const GpuState &known)
{
    return isAsleep(known) ||
           (known.labels.contains(loadLabel) && known.labels.contains(allocatedLabel));
}

double megabytesOf(const GraphicsCard &card)
{
    constexpr double bytesPerMegabyte = 1024.0 * 1024.0;
    return static_cast<double>(card.memoryBytes) / bytesPerMegabyte;
}

} // namespace

AdapterGpus::AdapterGpus(std::unique_ptr<GpuSource> library, std::shared_ptr<GraphicsCards> cards,
                         std::shared_ptr<DisplayPower> power)
    : m_library(std::move(library))
    , m_cards(std::move(cards))
    , m_power(std::move(power))
{
}

void AdapterGpus::look(qint64 nowNs)
{
    std::vector<Unit> units;
    for (const GraphicsCard &card : m_cards->look(nowNs)) {
        const auto known = std::find_if(m_units.begin(), m_units.end(), [&card](const Unit &unit) {
            return unit.card.luid == card.luid;
        });
        units.push_back(known == m_units.end() ? Unit() : std::move(*known));
        units.back().card = card;
    }
    m_units = std::move(units);
}

QByteArray AdapterGpus::ask(const Unit &unit, Topic topic, quint32 node) const
{
    return m_cards->system().ask(unit.card.luid, static_cast<quint32>(topic),
                                 question(topic, node));
}

quint32 AdapterGpus::drawingNode(Unit &unit) const
{
    constexpr quint32 most = 32;
    for (quint32 node = 0; !unit.drawingNode && node < most; ++node) {
        const QByteArray metadata = ask(unit, Topic::NodeMetadata, node);
        if (metadata.isEmpty())
            break;
        if (isDrawingNode(metadata))
            unit.drawingNode = node;
    }
    if (!unit.drawingNode)
        unit.drawingNode = 0;
    return *unit.drawingNode;
}

void AdapterGpus::measure(Unit &unit) const
{
    const QString megahertz = QStringLiteral("MHz");
    const AdapterPerformance adapter =
        parseAdapterPerformance(ask(unit, Topic::AdapterPerformance));
    const NodePerformance node =
        parseNodePerformance(ask(unit, Topic::NodePerformance, drawingNode(unit)));
    QJsonObject labels;
    addLabel(labels, QStringLiteral("GPU Temperature"), adapter.celsius, QStringLiteral("°C"));
    addLabel(labels, QStringLiteral("GPU Memory Clock"), adapter.memoryMegahertz, megahertz);
    addLabel(labels, QStringLiteral("GPU Fan"), adapter.fanRpm, QStringLiteral("RPM"));
    addLabel(labels, QStringLiteral("GPU Clock"), node.megahertz, megahertz);
    addLabel(labels, QStringLiteral("GPU Core Voltage"), node.volts, QStringLiteral("V"));
    unit.measured = labels;
}

void AdapterGpus::describe(Unit &unit, const GpuUsage &usage, GpuState &state)
{
    state.labels = unit.measured;
    addLabel(state.labels, loadLabel, usage.loadPercent, QStringLiteral("%"));
    const quint64 total = unit.card.memoryBytes;
    addMemoryLabels(state.labels, usage.memoryBytes.value_or(total + 1), total);
    for (const QString &label : state.labels.keys()) {
        if (!unit.told.contains(label))
            unit.told += label;
    }
}

GpuState AdapterGpus::own(Unit &unit, const GpuUsage &usage, qint64 nowNs)
{
    constexpr double leastLoad = 1;
    const bool sleeps = unit.card.maySleep && m_power->sleeps(unit.card.address, nowNs);
    const auto delay = unit.card.maySleep
                           ? std::optional<std::chrono::nanoseconds>(GraphicsCards::sleepDelay)
                           : std::nullopt;
    const GpuRest::Turn turn = unit.rest.turn(sleeps, delay, nowNs);
    GpuState state;
    state.name = unit.card.name;
    state.place = unit.card.address.isEmpty() ? QStringLiteral("LUID %1").arg(unit.card.luid)
                                              : unit.card.address;
    state.memory = megabytesOf(unit.card);
    state.isLeftAlone = turn != GpuRest::Turn::Ask;
    if (turn == GpuRest::Turn::Sleeps) {
        unit.measured = {};
        // What it will say when it wakes is not known if it has been asleep since the start.
        state.mayHave = unit.told.isEmpty() ? adapterLabels() : unit.told;
        return state;
    }
    if (turn == GpuRest::Turn::Ask) {
        measure(unit);
        unit.rest.setIdle(usage.loadPercent && *usage.loadPercent < leastLoad, nowNs);
    }
    describe(unit, usage, state);
    state.mayHave = unit.told;
    return state;
}

void AdapterGpus::supplement(GpuState &known, Unit &unit, const GpuUsage &usage) const
{
    const bool sleeps = isAsleep(known);
    if (sleeps)
        unit.measured = {};
    else if (!known.isLeftAlone)
        measure(unit);
    if (!sleeps) {
        GpuState state;
        describe(unit, usage, state);
        for (auto label = state.labels.constBegin(); label != state.labels.constEnd(); ++label) {
            if (!known.labels.contains(label.key()))
                known.labels.insert(label.key(), label.value());
        }
    }
    if (known.memory <= 0)
        known.memory = megabytesOf(unit.card);
    for (const QString &label : qAsConst(unit.told)) {
        if (!known.mayHave.contains(label))
            known.mayHave += label;
    }
}

std::vector<GpuState *> AdapterGpus::match(std::vector<GpuState> &gpus) const
{
    std::vector<GpuState *> matches;
    for (const Unit &unit : m_units) {
        const auto isIt = [&](GpuState &gpu) {
            return isCard(gpu, unit.card) &&
                   std::find(matches.begin(), matches.end(), &gpu) == matches.end();
        };
        const auto known = std::find_if(gpus.begin(), gpus.end(), isIt);
        matches.push_back(known == gpus.end() ? nullptr : &*known);
    }
    return matches;
}

QHash<quint64, GpuUsage> AdapterGpus::usage(const std::vector<GpuState *> &matches,
                                            qint64 nowNs) const
{
    if (std::all_of(matches.begin(), matches.end(),
                    [](const GpuState *known) { return known && hasUsage(*known); }))
        return {};
    GraphicsSystem &system = m_cards->system();
    return gpuUsage(system.engineLoads(nowNs), system.memoryInUse(nowNs));
}

std::vector<GpuState> AdapterGpus::read(qint64 nowNs)
{
    std::vector<GpuState> gpus = m_library->read(nowNs);
    look(nowNs);
    const std::vector<GpuState *> matches = match(gpus);
    const QHash<quint64, GpuUsage> usages = usage(matches, nowNs);
    std::vector<GpuState> others;
    for (std::size_t index = 0; index < m_units.size(); ++index) {
        Unit &unit = m_units[index];
        const GpuUsage used = usages.value(unit.card.luid);
        if (matches[index])
            supplement(*matches[index], unit, used);
        else
            others.push_back(own(unit, used, nowNs));
    }
    std::move(others.begin(), others.end(), std::back_inserter(gpus));
    return gpus;
}
