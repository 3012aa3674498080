#include "render/ActionCatalogue.h"

#include "SDK/LanguageUtilities.h"

#include <algorithm>

namespace actionuuid {
const QString netWork = QStringLiteral("com.quellor.stream.system.NetWork");
const QString diskTemperature =
    QStringLiteral("com.quellor.stream.system.PhysicalDisk.Temperature");
const QString physicalDisk = QStringLiteral("com.quellor.stream.system.PhysicalDisk");
const QString volume = QStringLiteral("com.quellor.stream.system.volume");
const QString allData = QStringLiteral("com.quellor.stream.AllDATA");
const QString pumpSpeed = QStringLiteral("com.quellor.stream.PumpSpeed");
const QString cpuFan = QStringLiteral("com.quellor.stream.CPUFan");
} // namespace actionuuid

const QVector<ActionCatalogueRow> &actionCatalogue()
{
    static const QVector<ActionCatalogueRow> rows{
        {QStringLiteral("com.quellor.stream.system.memory"), QStringLiteral("内存"),
         QStringLiteral("Memory")},
        {QStringLiteral("com.quellor.stream.system.cpu"), QStringLiteral("CPU使用率"),
         QStringLiteral("CPU usage rate")},
        {QStringLiteral("com.quellor.stream.system.cpu.temperature"), QStringLiteral("CPU温度"),
         QStringLiteral("CPU temperature")},
        {QStringLiteral("com.quellor.stream.system.Cpu_Clock"), QStringLiteral("CPU频率"),
         QStringLiteral("CPU frequency")},
        {QStringLiteral("com.quellor.stream.system.Cpu_Package_Power"),
         QStringLiteral("CPU封装功率"), QStringLiteral("CPU Package Power")},
        {QStringLiteral("com.quellor.stream.system.NetWork"), QStringLiteral("网速"),
         QStringLiteral("Network speed")},
        {QStringLiteral("com.quellor.stream.system.Gpu_Temperature"), QStringLiteral("Gpu温度"),
         QStringLiteral("GPU temperature")},
        {QStringLiteral("com.quellor.stream.system.Gpu_Core_Clock"), QStringLiteral("Gpu核心频率"),
         QStringLiteral("GPU core frequency")},
        {QStringLiteral("com.quellor.stream.system.Gpu_Core_Utility"),
         QStringLiteral("Gpu核心使用率"), QStringLiteral("GPU core usage rate")},
        {QStringLiteral("com.quellor.stream.system.Gpu_Memory_Clock"),
         QStringLiteral("Gpu显存频率"), QStringLiteral("GPU memory clock frequency")},
        {QStringLiteral("com.quellor.stream.system.Gpu_Memory_Utility"),
         QStringLiteral("Gpu显存使用率"), QStringLiteral("GPU memory usage rate")},
        {QStringLiteral("com.quellor.stream.system.PhysicalDisk"), QStringLiteral("硬盘"),
         QStringLiteral("Hard disk")},
        {QStringLiteral("com.quellor.stream.system.Memory_Free_MB"), QStringLiteral("可用内存(MB)"),
         QStringLiteral("Available memory (MB)")},
        {QStringLiteral("com.quellor.stream.system.Memory_Used_MB"), QStringLiteral("已用内存(MB)"),
         QStringLiteral("Used memory (MB)")},
        {QStringLiteral("com.quellor.stream.system.Memory_Total_MB"), QStringLiteral("总内存(MB)"),
         QStringLiteral("Total memory (MB)")},
        {QStringLiteral("com.quellor.stream.system.Memory_Free_GB"), QStringLiteral("可用内存(GB)"),
         QStringLiteral("Available memory (GB)")},
        {QStringLiteral("com.quellor.stream.system.Memory_Used_GB"), QStringLiteral("已用内存(GB)"),
         QStringLiteral("Used memory (GB)")},
        {QStringLiteral("com.quellor.stream.system.Memory_Total_GB"), QStringLiteral("总内存(GB)"),
         QStringLiteral("Total memory (GB)")},
        {QStringLiteral("com.quellor.stream.system.Gpu_Memory_Used"), QStringLiteral("已用显存"),
         QStringLiteral("Used GPU memory")},
        {QStringLiteral("com.quellor.stream.system.Gpu_Power"), QStringLiteral("Gpu功耗"),
         QStringLiteral("GPU power consumption")},
        {QStringLiteral("com.quellor.stream.system.volume"), QStringLiteral("音量"),
         QStringLiteral("Volume")},
        {QStringLiteral("com.quellor.stream.system.Cpu_Model"), QStringLiteral("CPU型号"),
         QStringLiteral("CPU model")},
        {QStringLiteral("com.quellor.stream.system.Gpu_Model"), QStringLiteral("GPU型号"),
         QStringLiteral("GPU model")},
        {QStringLiteral("com.quellor.stream.system.Gpu_Voltage"), QStringLiteral("GPU电压"),
         QStringLiteral("GPU voltage")},
        {QStringLiteral("com.quellor.stream.system.PhysicalDisk.Temperature"),
         QStringLiteral("硬盘温度"), QStringLiteral("Disk temperature")},
        {QStringLiteral("com.quellor.stream.system.Memory_Model"), QStringLiteral("内存型号"),
         QStringLiteral("Memory model")},
        {QStringLiteral("com.quellor.stream.system.NetWork.Upload"), QStringLiteral("上传网速"),
         QStringLiteral("Upload speed")},
        {QStringLiteral("com.quellor.stream.system.NetWork.Download"), QStringLiteral("下载网速"),
         QStringLiteral("Download speed")},
        {QStringLiteral("com.quellor.stream.system.Cpu_Voltage"), QStringLiteral("CPU电压"),
         QStringLiteral("CPU voltage")},
    };
    return rows;
}

const ActionCatalogueRow *findCatalogueRow(const QString &uuid)
{
    const auto &rows = actionCatalogue();
    const auto row =
        std::find_if(rows.begin(), rows.end(),
                     [&uuid](const ActionCatalogueRow &each) { return each.uuid == uuid; });
    return row == rows.end() ? nullptr : &*row;
}

QString defaultTitle(const QString &uuid)
{
    const ActionCatalogueRow *const row = findCatalogueRow(uuid);
    return row ? LanguageUtilities::instance()->Translate(row->englishTitle, row->chineseTitle)
               : QString();
}
