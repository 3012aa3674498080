#include "deck_simulator/deck/ActionList.h"

#include <algorithm>

namespace deck {

namespace {

bool isChinese(const QString &language)
{
    return language == QLatin1String("zh_CN");
}

bool isNetworkAction(const QString &uuid)
{
    return uuid == QLatin1String("com.quellor.stream.system.NetWork");
}

QString twoLineTitle(bool chinese)
{
    return chinese ? QStringLiteral("上传/下载") : QStringLiteral("Up/Down");
}

QVector<DeckAction> makeActions()
{
    const struct
    {
        ActionGroup group;
        const char *name;
        const char *caption;
        const char *title;
        const char *chinese;
    } rows[] = {
        {ActionGroup::Cpu, "system.cpu", "CPU usage", "CPU", "CPU使用率"},
        {ActionGroup::Cpu, "system.cpu.temperature", "CPU temperature", "CPU", "CPU温度"},
        {ActionGroup::Cpu, "system.Cpu_Clock", "CPU frequency", "CPU", "CPU频率"},
        {ActionGroup::Cpu, "system.Cpu_Package_Power", "CPU package power", "CPU", "CPU封装功率"},
        {ActionGroup::Cpu, "system.Cpu_Voltage", "CPU voltage", "CPU", "CPU电压"},
        {ActionGroup::Cpu, "system.Cpu_Model", "CPU model", "", "CPU型号"},
        {ActionGroup::Gpu, "system.Gpu_Core_Utility", "GPU core usage", "GPU", "Gpu核心使用率"},
        {ActionGroup::Gpu, "system.Gpu_Temperature", "GPU temperature", "GPU", "Gpu温度"},
        {ActionGroup::Gpu, "system.Gpu_Core_Clock", "GPU core frequency", "GPU", "Gpu核心频率"},
        {ActionGroup::Gpu, "system.Gpu_Memory_Clock", "GPU memory frequency", "VRAM",
         "Gpu显存频率"},
        {ActionGroup::Gpu, "system.Gpu_Memory_Utility", "GPU memory usage", "VRAM",
         "Gpu显存使用率"},
        {ActionGroup::Gpu, "system.Gpu_Memory_Used", "Used GPU memory", "VRAM", "已用显存"},
        {ActionGroup::Gpu, "system.Gpu_Power", "GPU power", "GPU", "Gpu功耗"},
        {ActionGroup::Gpu, "system.Gpu_Voltage", "GPU voltage", "GPU", "GPU电压"},
        {ActionGroup::Gpu, "system.Gpu_Model", "GPU model", "", "GPU型号"},
        {ActionGroup::Memory, "system.memory", "Memory load", "Mem", "内存"},
        {ActionGroup::Memory, "system.Memory_Free_GB", "Available memory (GB)", "Free",
         "可用内存(GB)"},
        {ActionGroup::Memory, "system.Memory_Used_GB", "Used memory (GB)", "Used", "已用内存(GB)"},
        {ActionGroup::Memory, "system.Memory_Total_GB", "Total memory (GB)", "Total", "总内存(GB)"},
        {ActionGroup::Memory, "system.Memory_Free_MB", "Available memory (MB)", "Free",
         "可用内存(MB)"},
        {ActionGroup::Memory, "system.Memory_Used_MB", "Used memory (MB)", "Used", "已用内存(MB)"},
        {ActionGroup::Memory, "system.Memory_Total_MB", "Total memory (MB)", "Total", "总内存(MB)"},
        {ActionGroup::Memory, "system.Memory_Model", "Memory model", "RAM", "内存型号"},
        {ActionGroup::Network, "system.NetWork", "Network speed", "Up/Down", "网速"},
        {ActionGroup::Network, "system.NetWork.Upload", "Upload speed", "Up", "上传网速"},
        {ActionGroup::Network, "system.NetWork.Download", "Download speed", "Down", "下载网速"},
        {ActionGroup::Drives, "system.PhysicalDisk", "Drive space", "", "硬盘"},
        {ActionGroup::Drives, "system.PhysicalDisk.Temperature", "Drive temperature", "Disk",
         "硬盘温度"},
        {ActionGroup::Other, "system.volume", "Volume", "Vol", "音量"},
        {ActionGroup::Other, "CPUFan", "CPU fan speed", "Fan", "风扇"},
        {ActionGroup::Other, "PumpSpeed", "Pump speed", "Pump", "水泵"},
        {ActionGroup::Other, "AllDATA", "Any sensor", "Sensor", "传感器"},
    };
    QVector<DeckAction> actions;
    for (const auto &row : rows)
        actions.append({QStringLiteral("com.quellor.stream.") + QLatin1String(row.name),
                        QLatin1String(row.caption), QLatin1String(row.title),
                        QString::fromUtf8(row.chinese), row.group});
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

QString actionCaption(const QString &uuid, const QString &language)
{
    const DeckAction *action = findAction(uuid);
    if (action == nullptr)
        return uuid;
    return isChinese(language) ? action->chineseCaption : action->caption;
}

QString groupCaption(ActionGroup group, const QString &language)
{
    const bool chinese = isChinese(language);
    switch (group) {
    case ActionGroup::Cpu:
        return QStringLiteral("CPU");
    case ActionGroup::Gpu:
        return QStringLiteral("GPU");
    case ActionGroup::Memory:
        return chinese ? QStringLiteral("内存") : QStringLiteral("Memory");
    case ActionGroup::Network:
        return chinese ? QStringLiteral("网络") : QStringLiteral("Network");
    case ActionGroup::Drives:
        return chinese ? QStringLiteral("硬盘") : QStringLiteral("Drives");
    case ActionGroup::Other:
        break;
    }
    return chinese ? QStringLiteral("其他") : QStringLiteral("Other");
}

QString newTitle(const QString &uuid, const QString &language)
{
    const DeckAction *action = findAction(uuid);
    if (action == nullptr || action->title.isEmpty())
        return {};
    return isChinese(language) ? action->chineseCaption : action->title;
}

QString titleForLines(const QString &uuid, const QString &title, bool twoLines,
                      const QString &language)
{
    if (!isNetworkAction(uuid))
        return title;
    if (twoLines)
        return title.contains(QLatin1Char('/')) ? title : twoLineTitle(isChinese(language));
    const bool isUsual = title == twoLineTitle(false) || title == twoLineTitle(true);
    return isUsual ? newTitle(uuid, language) : title;
}

QString groupIcon(ActionGroup group)
{
    return QStringLiteral(":/Type_%1.png").arg(int(group) + 1);
}

} // namespace deck
