#include "system_monitor_lib/live/graphics/AdapterGpus.h"

#include "system_monitor_lib/SensorTrees.h"

#include <algorithm>
#include <array>

using namespace adapter_answers;

namespace {

const QString loadLabel = QStringLiteral("GPU Core Load");
const QString allocatedLabel = QStringLiteral("GPU Memory Allocated");

struct EngineKind
{
    NodeKind kind;
    std::optional<double> GraphicsDetails::*load;
};

constexpr std::array engineKinds{
    EngineKind{NodeKind::Drawing, &GraphicsDetails::drawPercent},
    EngineKind{NodeKind::Copy, &GraphicsDetails::copyPercent},
    EngineKind{NodeKind::VideoDecode, &GraphicsDetails::decodePercent},
    EngineKind{NodeKind::VideoEncode, &GraphicsDetails::encodePercent}};

QStringList engineLabels()
{
    GraphicsDetails all;
    for (const EngineKind &each : engineKinds)
        all.*each.load = 0;
    return graphicsDetailLabels(all).keys();
}

QStringList adapterLabels()
{
    return QStringList{QStringLiteral("GPU Temperature"),  QStringLiteral("GPU Clock"),
                       QStringLiteral("GPU Memory Clock"), QStringLiteral("GPU Core Voltage"),
                       QStringLiteral("GPU Fan"),          loadLabel} +
           memoryLabelNames() + engineLabels();
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

void addMissing(QJsonObject &labels, const QJsonObject &more)
{
    for (auto label = more.constBegin(); label != more.constEnd(); ++label) {
        if (!labels.contains(label.key()))
            labels.insert(label.key(), label.value());
    }
}

/// An engine that no process uses is idle. \a engines are those that are known.
GraphicsDetails engineLoads(GraphicsDetails &engines, const GpuUsage &usage)
{
    GraphicsDetails loads;
    for (const EngineKind &each : engineKinds) {
        if (!usage.loadPercent || !(engines.*each.load || usage.engines.*each.load))
            continue;
        loads.*each.load = (usage.engines.*each.load).value_or(0);
        engines.*each.load = 0;
    }
    return loads;
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

void AdapterGpus::findEngines(Unit &unit) const
{
    constexpr quint32 most = 32;
    if (unit.drawingNode)
        return;
    for (quint32 node = 0; node < most; ++node) {
        const QByteArray metadata = ask(unit, Topic::NodeMetadata, node);
        if (metadata.isEmpty())
            break;
        const NodeKind kind = parseNodeKind(metadata);
        if (kind == NodeKind::Drawing && !unit.drawingNode)
            unit.drawingNode = node;
        for (const EngineKind &each : engineKinds) {
            if (each.kind == kind)
                unit.engines.*each.load = 0;
        }
    }
    if (!unit.drawingNode)
        unit.drawingNode = 0;
}

void AdapterGpus::measure(Unit &unit) const
{
    const QString megahertz = QStringLiteral("MHz");
    findEngines(unit);
    const AdapterPerformance adapter =
        parseAdapterPerformance(ask(unit, Topic::AdapterPerformance));
    const NodePerformance node =
        parseNodePerformance(ask(unit, Topic::NodePerformance, *unit.drawingNode));
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
    state.listed = graphicsDetailLabels(engineLoads(unit.engines, usage));
    for (const QString &label : state.labels.keys() + state.listed.keys()) {
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
        addMissing(known.labels, state.labels);
        addMissing(known.listed, state.listed);
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

void AdapterGpus::count(const std::vector<GpuState *> &matches, qint64 nowNs)
{
    const auto lacks = [](const GpuState *known) { return !known || !hasUsage(*known); };
    const auto isUp = [](const GpuState *known) { return !isAsleep(*known); };
    const bool isNeeded = std::any_of(matches.begin(), matches.end(), lacks);
    if (!isNeeded && std::none_of(matches.begin(), matches.end(), isUp))
        m_usages.clear();
    else if (m_counting.isDue(nowNs) || isNeeded) {
        GraphicsSystem &system = m_cards->system();
        m_usages = gpuUsage(system.engineLoads(nowNs), system.memoryInUse(nowNs));
    }
}

std::vector<GpuState> AdapterGpus::read(qint64 nowNs)
{
    std::vector<GpuState> gpus = m_library->read(nowNs);
    look(nowNs);
    const std::vector<GpuState *> matches = match(gpus);
    count(matches, nowNs);
    std::vector<GpuState> others;
    for (std::size_t index = 0; index < m_units.size(); ++index) {
        Unit &unit = m_units[index];
        const GpuUsage used = m_usages.value(unit.card.luid);
        if (matches[index])
            supplement(*matches[index], unit, used);
        else
            others.push_back(own(unit, used, nowNs));
    }
    std::move(others.begin(), others.end(), std::back_inserter(gpus));
    return gpus;
}
