#include "deck_simulator/panel/GaugeKinds.h"

#include "deck_simulator/panel/PanelText.h"

#include <algorithm>
#include <iterator>

namespace deck {

namespace {

// How a kind's values lie on a scale.
enum class Scale { Share, Heat, DriveHeat, Used, Free, Space, Video, Steady, Rate, Rates };

struct KindRow
{
    const char *action;
    const char *shortTitle;
    Scale scale;
    const char *unit;
};

const KindRow kindRows[] = {
    {"system.cpu", "CPU", Scale::Share, "%"},
    {"system.cpu.temperature", "CPU temp", Scale::Heat, ""},
    {"system.Cpu_Clock", "CPU clock", Scale::Steady, "MHz"},
    {"system.Cpu_Package_Power", "CPU power", Scale::Steady, "W"},
    {"system.Cpu_Voltage", "CPU volts", Scale::Steady, "V"},
    {"system.Gpu_Core_Utility", "GPU", Scale::Share, "%"},
    {"system.Gpu_Temperature", "GPU temp", Scale::Heat, ""},
    {"system.Gpu_Core_Clock", "GPU clock", Scale::Steady, "MHz"},
    {"system.Gpu_Memory_Clock", "Mem clock", Scale::Steady, "MHz"},
    {"system.Gpu_Memory_Utility", "GPU mem", Scale::Share, "%"},
    {"system.Gpu_Memory_Used", "VRAM", Scale::Video, "MB"},
    {"system.Gpu_Power", "GPU power", Scale::Steady, "W"},
    {"system.Gpu_Voltage", "GPU volts", Scale::Steady, "V"},
    {"system.memory", "Memory", Scale::Share, "%"},
    {"system.Memory_Free_GB", "Free", Scale::Free, "GB"},
    {"system.Memory_Used_GB", "Used", Scale::Used, "GB"},
    {"system.Memory_Free_MB", "Free", Scale::Free, "MB"},
    {"system.Memory_Used_MB", "Used", Scale::Used, "MB"},
    {"system.NetWork", "Network", Scale::Rates, "KB/s"},
    {"system.NetWork.Upload", "Up", Scale::Rate, "KB/s"},
    {"system.NetWork.Download", "Down", Scale::Rate, "KB/s"},
    {"system.PhysicalDisk", "", Scale::Space, "%"},
    {"system.PhysicalDisk.Temperature", "Disk temp", Scale::DriveHeat, ""},
    {"system.volume", "Volume", Scale::Share, "%"},
    {"CPUFan", "Fan", Scale::Steady, "RPM"},
    {"PumpSpeed", "Pump", Scale::Steady, "RPM"},
    {"AllDATA", "", Scale::Steady, ""},
};

const KindRow *findRow(const QString &action)
{
    const QString prefix = QStringLiteral("com.quellor.stream.");
    const auto *const found =
        std::find_if(std::begin(kindRows), std::end(kindRows), [&](const KindRow &row) {
            return action == prefix + QLatin1String(row.action);
        });
    return found == std::end(kindRows) ? nullptr : found;
}

QString degrees(int celsius, bool fahrenheit)
{
    return QString::number(fahrenheit ? celsius * 9 / 5 + 32 : celsius);
}

void setHeat(GaugeKind &kind, bool fahrenheit, int maximum, int warning, int critical)
{
    kind.unit = fahrenheit ? QStringLiteral("°F") : QStringLiteral("°C");
    kind.minimum = degrees(20, fahrenheit);
    kind.maximum = degrees(maximum, fahrenheit);
    kind.warning = degrees(warning, fahrenheit);
    kind.critical = degrees(critical, fahrenheit);
}

void setScale(GaugeKind &kind, Scale scale, bool fahrenheit)
{
    const QString zero = QStringLiteral("0");
    const QString hundred = QStringLiteral("100");
    switch (scale) {
    case Scale::Share:
        kind.minimum = zero;
        kind.maximum = hundred;
        break;
    case Scale::Heat:
        setHeat(kind, fahrenheit, 100, 80, 95);
        break;
    case Scale::DriveHeat:
        setHeat(kind, fahrenheit, 80, 50, 65);
        break;
    case Scale::Free:
        kind.warning = panelText("10 % of the total");
        kind.critical = panelText("5 % of the total");
        kind.below = true;
        Q_FALLTHROUGH();
    case Scale::Used:
        kind.minimum = zero;
        kind.maximum = panelText("the total");
        break;
    case Scale::Space:
        kind.minimum = zero;
        kind.maximum = hundred;
        kind.warning = QStringLiteral("85");
        kind.critical = QStringLiteral("95");
        break;
    case Scale::Video:
        kind.minimum = zero;
        kind.maximum = panelText("the card's memory");
        break;
    case Scale::Steady:
    case Scale::Rate:
    case Scale::Rates:
        break;
    }
}

} // namespace

GaugeKind gaugeKind(const QString &action, const EntrySettings &settings)
{
    GaugeKind kind;
    const KindRow *row = findRow(action);
    if (row == nullptr)
        return kind;
    if (row->scale == Scale::Rates)
        kind.styles = QStringList{QStringLiteral("pair")};
    else
        kind.styles =
            QStringList{QStringLiteral("bar"), QStringLiteral("ring"), QStringLiteral("graph")};
    kind.shortTitle = QString::fromUtf8(row->shortTitle);
    kind.unit = QString::fromUtf8(row->unit);
    kind.isRate = row->scale == Scale::Rate || row->scale == Scale::Rates;
    setScale(kind, row->scale, settings.temperatureType == QStringLiteral("华氏度"));
    return kind;
}

QString shownStyle(const QString &action, const EntrySettings &settings)
{
    const QStringList styles = gaugeKind(action, settings).styles;
    if (styles.contains(settings.display.style))
        return settings.display.style;
    // Both rates are shown together in whatever gauge is asked for.
    return settings.display.isGauge() && styles.size() == 1 ? styles.constFirst()
                                                            : QStringLiteral("text");
}

} // namespace deck
