#include "render/ActionCatalogue.h"

#include "SDK/LanguageUtilities.h"
#include "render/ActionUuids.h"

#include <algorithm>

const QVector<ActionCatalogueRow> &actionCatalogue()
{
    static const QVector<ActionCatalogueRow> rows{
        {actionuuid::memory, QStringLiteral("内存"), QStringLiteral("Memory")},
        {actionuuid::cpu, QStringLiteral("CPU使用率"), QStringLiteral("CPU usage rate")},
        {actionuuid::cpuTemperature, QStringLiteral("CPU温度"), QStringLiteral("CPU temperature")},
        {actionuuid::cpuClock, QStringLiteral("CPU频率"), QStringLiteral("CPU frequency")},
        {actionuuid::cpuPower, QStringLiteral("CPU封装功率"), QStringLiteral("CPU Package Power")},
        {actionuuid::netWork, QStringLiteral("网速"), QStringLiteral("Network speed")},
        // Compatibility: mixed-titles
        {actionuuid::gpuTemperature, QStringLiteral("Gpu温度"), QStringLiteral("GPU temperature")},
        {actionuuid::gpuClock, QStringLiteral("Gpu核心频率"), QStringLiteral("GPU core frequency")},
        {actionuuid::gpuLoad, QStringLiteral("Gpu核心使用率"),
         QStringLiteral("GPU core usage rate")},
        {actionuuid::gpuMemoryClock, QStringLiteral("Gpu显存频率"),
         QStringLiteral("GPU memory clock frequency")},
        {actionuuid::gpuMemoryUsage, QStringLiteral("Gpu显存使用率"),
         QStringLiteral("GPU memory usage rate")},
        {actionuuid::physicalDisk, QStringLiteral("硬盘"), QStringLiteral("Hard disk")},
        {actionuuid::memoryFreeMB, QStringLiteral("可用内存(MB)"),
         QStringLiteral("Available memory (MB)")},
        {actionuuid::memoryUsedMB, QStringLiteral("已用内存(MB)"),
         QStringLiteral("Used memory (MB)")},
        {actionuuid::memoryTotalMB, QStringLiteral("总内存(MB)"),
         QStringLiteral("Total memory (MB)")},
        {actionuuid::memoryFreeGB, QStringLiteral("可用内存(GB)"),
         QStringLiteral("Available memory (GB)")},
        {actionuuid::memoryUsedGB, QStringLiteral("已用内存(GB)"),
         QStringLiteral("Used memory (GB)")},
        {actionuuid::memoryTotalGB, QStringLiteral("总内存(GB)"),
         QStringLiteral("Total memory (GB)")},
        {actionuuid::gpuMemoryUsed, QStringLiteral("已用显存"), QStringLiteral("Used GPU memory")},
        {actionuuid::gpuPower, QStringLiteral("Gpu功耗"), QStringLiteral("GPU power consumption")},
        {actionuuid::volume, QStringLiteral("音量"), QStringLiteral("Volume")},
        {actionuuid::cpuModel, QStringLiteral("CPU型号"), QStringLiteral("CPU model")},
        {actionuuid::gpuModel, QStringLiteral("GPU型号"), QStringLiteral("GPU model")},
        {actionuuid::gpuVoltage, QStringLiteral("GPU电压"), QStringLiteral("GPU voltage")},
        {actionuuid::diskTemperature, QStringLiteral("硬盘温度"),
         QStringLiteral("Disk temperature")},
        {actionuuid::memoryModel, QStringLiteral("内存型号"), QStringLiteral("Memory model")},
        {actionuuid::upload, QStringLiteral("上传网速"), QStringLiteral("Upload speed")},
        {actionuuid::download, QStringLiteral("下载网速"), QStringLiteral("Download speed")},
        {actionuuid::cpuVoltage, QStringLiteral("CPU电压"), QStringLiteral("CPU voltage")},
    };
    return rows;
}

namespace {

/// Null where there is none.
const ActionCatalogueRow *findRow(const QString &uuid)
{
    const auto &rows = actionCatalogue();
    const auto row =
        std::find_if(rows.begin(), rows.end(),
                     [&uuid](const ActionCatalogueRow &each) { return each.uuid == uuid; });
    return row == rows.end() ? nullptr : &*row;
}

QString translatedTitle(const ActionCatalogueRow &row)
{
    return LanguageUtilities::instance()->Translate(row.englishTitle, row.chineseTitle);
}

} // namespace

QString defaultTitle(const QString &uuid)
{
    const ActionCatalogueRow *const row = findRow(uuid);
    return row ? translatedTitle(*row) : QString();
}

bool isDefaultTitle(const QString &uuid, const QString &title)
{
    const ActionCatalogueRow *const row = findRow(uuid);
    if (!row)
        return title.isEmpty();
    return title == row->chineseTitle || title == row->englishTitle ||
           title == translatedTitle(*row);
}
