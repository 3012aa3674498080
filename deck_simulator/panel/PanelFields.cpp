#include "deck_simulator/panel/PanelFields.h"

namespace deck {

PanelFields panelFields(const QString &action, const EntrySettings &settings)
{
    const QString prefix = QStringLiteral("com.quellor.stream.");
    const QString name = action.startsWith(prefix) ? action.mid(prefix.size()) : QString();
    PanelFields fields;
    fields.physicalDisk = name == QLatin1String("system.PhysicalDisk.Temperature");
    fields.temperatureUnit = fields.physicalDisk ||
                             name == QLatin1String("system.cpu.temperature") ||
                             name == QLatin1String("system.Gpu_Temperature");
    fields.titleLines = name == QLatin1String("system.NetWork");
    fields.sensor = name == QLatin1String("AllDATA");
    fields.fan = name == QLatin1String("CPUFan");
    fields.pump = name == QLatin1String("PumpSpeed");
    fields.audioDevice = name == QLatin1String("system.volume");
    fields.diskMode = name == QLatin1String("system.PhysicalDisk");
    fields.volumeName = fields.diskMode;
    fields.drive = fields.diskMode && settings.diskMode == QLatin1String("Single_Disk");
    fields.switchTime = fields.diskMode && settings.diskMode == QLatin1String("Disk_Loop");
    return fields;
}

} // namespace deck
