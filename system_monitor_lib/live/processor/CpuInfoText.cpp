#include "system_monitor_lib/live/processor/CpuInfoText.h"

#include "system_monitor_lib/live/files/TextFields.h"

#include <string>

namespace {

QString name(std::string_view value)
{
    return QString::fromUtf8(value.data(), static_cast<int>(value.size())).simplified();
}

} // namespace

QString parseCpuModel(std::string_view text)
{
    QString hardware;
    QString model;
    QString core;
    while (const std::optional<std::string_view> line = takeLine(text)) {
        const std::size_t colon = line->find(':');
        if (colon == std::string_view::npos)
            continue;
        const std::string_view key = trimmed(line->substr(0, colon));
        QString value = name(line->substr(colon + 1));
        const bool isName = !value.isEmpty() && value != QLatin1String("unknown");
        if ((key == "model name" || key == "Model Name") && isName)
            return value;
        if (key == "cpu model" || key == "uarch")
            core = value;
        else if (key == "cpu") // "POWER9, altivec supported"
            core = value.section(QStringLiteral(", "), 0, 0);
        else if (key == "Hardware")
            hardware = value;
        else if (key == "Model")
            model = value;
    }
    if (!core.isEmpty())
        return core;
    return hardware.isEmpty() ? model : hardware;
}

std::map<int, double> parseCpuClocks(std::string_view text)
{
    std::map<int, double> clocks;
    int processor = -1;
    while (const std::optional<std::string_view> line = takeLine(text)) {
        const std::size_t colon = line->find(':');
        if (colon == std::string_view::npos)
            continue;
        // Of the many lines of a processor, only two are converted to strings.
        const std::string_view key = trimmed(line->substr(0, colon));
        const std::string_view value = line->substr(colon + 1);
        bool isNumber = false;
        if (key == "processor") {
            processor = name(value).toInt(&isNumber);
            if (!isNumber)
                processor = -1;
        } else if (key == "cpu MHz" && processor >= 0) {
            const double megahertz = name(value).toDouble(&isNumber);
            if (isNumber && isPlausibleClock(megahertz))
                clocks.emplace(processor, megahertz);
        }
    }
    return clocks;
}

bool hasChangingClocks(std::string_view text)
{
    while (const std::optional<std::string_view> line = takeLine(text)) {
        const std::size_t colon = line->find(':');
        if (colon == std::string_view::npos || trimmed(line->substr(0, colon)) != "flags")
            continue;
        const std::string flags = ' ' + std::string(line->substr(colon + 1)) + ' ';
        return flags.find(" aperfmperf ") != std::string::npos;
    }
    return true;
}

bool isPlausibleClock(double megahertz)
{
    constexpr double fastest = 20'000;
    return megahertz > 0 && megahertz <= fastest;
}
