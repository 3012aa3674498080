#include "deck_simulator/deck/ActionList.h"

#include <algorithm>

namespace deck {

namespace {

QVector<DeckAction> makeActions()
{
    const struct
    {
        ActionGroup group;
        const char *name;
        const char *caption;
        const char *title;
    } rows[] = {
        {ActionGroup::Cpu, "system.cpu", "CPU usage", "CPU"},
        {ActionGroup::Cpu, "system.cpu.temperature", "CPU temperature", "CPU"},
        {ActionGroup::Cpu, "system.Cpu_Clock", "CPU frequency", "CPU"},
        {ActionGroup::Cpu, "system.Cpu_Package_Power", "CPU package power", "CPU"},
        {ActionGroup::Cpu, "system.Cpu_Voltage", "CPU voltage", "CPU"},
        {ActionGroup::Cpu, "system.Cpu_Model", "CPU model", ""},
        {ActionGroup::Gpu, "system.Gpu_Core_Utility", "GPU core usage", "GPU"},
        {ActionGroup::Gpu, "system.Gpu_Temperature", "GPU temperature", "GPU"},
        {ActionGroup::Gpu, "system.Gpu_Core_Clock", "GPU core frequency", "GPU"},
        {ActionGroup::Gpu, "system.Gpu_Memory_Clock", "GPU memory frequency", "VRAM"},
        {ActionGroup::Gpu, "system.Gpu_Memory_Utility", "GPU memory usage", "VRAM"},
        {ActionGroup::Gpu, "system.Gpu_Memory_Used", "Used GPU memory", "VRAM"},
        {ActionGroup::Gpu, "system.Gpu_Power", "GPU power", "GPU"},
        {ActionGroup::Gpu, "system.Gpu_Voltage", "GPU voltage", "GPU"},
        {ActionGroup::Gpu, "system.Gpu_Model", "GPU model", ""},
        {ActionGroup::Memory, "system.memory", "Memory load", "Mem"},
        {ActionGroup::Memory, "system.Memory_Free_GB", "Available memory (GB)", "Free"},
        {ActionGroup::Memory, "system.Memory_Used_GB", "Used memory (GB)", "Used"},
        {ActionGroup::Memory, "system.Memory_Total_GB", "Total memory (GB)", "Total"},
        {ActionGroup::Memory, "system.Memory_Free_MB", "Available memory (MB)", "Free"},
        {ActionGroup::Memory, "system.Memory_Used_MB", "Used memory (MB)", "Used"},
        {ActionGroup::Memory, "system.Memory_Total_MB", "Total memory (MB)", "Total"},
        {ActionGroup::Memory, "system.Memory_Model", "Memory model", "RAM"},
        {ActionGroup::Network, "system.NetWork", "Network speed", "Up/Down"},
        {ActionGroup::Network, "system.NetWork.Upload", "Upload speed", "Up"},
        {ActionGroup::Network, "system.NetWork.Download", "Download speed", "Down"},
        {ActionGroup::Drives, "system.PhysicalDisk", "Drive space", ""},
        {ActionGroup::Drives, "system.PhysicalDisk.Temperature", "Drive temperature", "Disk"},
        {ActionGroup::Other, "system.volume", "Volume", "Vol"},
        {ActionGroup::Other, "CPUFan", "CPU fan speed", "Fan"},
        {ActionGroup::Other, "PumpSpeed", "Pump speed", "Pump"},
        {ActionGroup::Other, "AllDATA", "Any sensor", "Sensor"},
    };
    QVector<DeckAction> actions;
    for (const auto &row : rows)
        actions.append({QStringLiteral("com.quellor.stream.") + QLatin1String(row.name),
                        QLatin1String(row.caption), QLatin1String(row.title), row.group});
    return actions;
}

} // namespace

const QVector<DeckAction> &deckActions()
{
    static const QVector<DeckAction> actions = makeActions();
    return actions;
}

const DeckAction *findAction(const QString &uuid)
{
    const QVector<DeckAction> &actions = deckActions();
    const auto found =
        std::find_if(actions.begin(), actions.end(),
                     [&uuid](const DeckAction &action) { return action.uuid == uuid; });
    return found == actions.end() ? nullptr : &*found;
}

QString actionCaption(const QString &uuid)
{
    const DeckAction *action = findAction(uuid);
    return action == nullptr ? uuid : action->caption;
}

QString groupCaption(ActionGroup group)
{
    switch (group) {
    case ActionGroup::Cpu:
        return QStringLiteral("CPU");
    case ActionGroup::Gpu:
        return QStringLiteral("GPU");
    case ActionGroup::Memory:
        return QStringLiteral("Memory");
    case ActionGroup::Network:
        return QStringLiteral("Network");
    case ActionGroup::Drives:
        return QStringLiteral("Drives");
    case ActionGroup::Other:
        break;
    }
    return QStringLiteral("Other");
}

QString groupIcon(ActionGroup group)
{
    return QStringLiteral(":/Type_%1.png").arg(int(group) + 1);
}

} // namespace deck
