#include "system_monitor_lib/live/processor/ArmCores.h"

#include "system_monitor_lib/live/files/TextFields.h"

#include <QStringList>

#include <algorithm>
#include <iterator>

namespace {

struct Part
{
    int maker;
    int number;
    const char *makerName;
    const char *name;
};

// The makers' technical reference manuals, register MIDR.
constexpr Part parts[] = {
    {0x41, 0xb76, "ARM", "ARM1176"},
    {0x41, 0xc05, "ARM", "Cortex-A5"},
    {0x41, 0xc07, "ARM", "Cortex-A7"},
    {0x41, 0xc08, "ARM", "Cortex-A8"},
    {0x41, 0xc09, "ARM", "Cortex-A9"},
    {0x41, 0xc0d, "ARM", "Cortex-A17"},
    {0x41, 0xc0e, "ARM", "Cortex-A17"},
    {0x41, 0xc0f, "ARM", "Cortex-A15"},
    {0x41, 0xd01, "ARM", "Cortex-A32"},
    {0x41, 0xd02, "ARM", "Cortex-A34"},
    {0x41, 0xd03, "ARM", "Cortex-A53"},
    {0x41, 0xd04, "ARM", "Cortex-A35"},
    {0x41, 0xd05, "ARM", "Cortex-A55"},
    {0x41, 0xd07, "ARM", "Cortex-A57"},
    {0x41, 0xd08, "ARM", "Cortex-A72"},
    {0x41, 0xd09, "ARM", "Cortex-A73"},
    {0x41, 0xd0a, "ARM", "Cortex-A75"},
    {0x41, 0xd0b, "ARM", "Cortex-A76"},
    {0x41, 0xd0c, "ARM", "Neoverse-N1"},
    {0x41, 0xd0d, "ARM", "Cortex-A77"},
    {0x41, 0xd40, "ARM", "Neoverse-V1"},
    {0x41, 0xd41, "ARM", "Cortex-A78"},
    {0x41, 0xd44, "ARM", "Cortex-X1"},
    {0x41, 0xd46, "ARM", "Cortex-A510"},
    {0x41, 0xd47, "ARM", "Cortex-A710"},
    {0x41, 0xd48, "ARM", "Cortex-X2"},
    {0x41, 0xd49, "ARM", "Neoverse-N2"},
    {0x41, 0xd4a, "ARM", "Neoverse-E1"},
    {0x41, 0xd4b, "ARM", "Cortex-A78C"},
    {0x41, 0xd4d, "ARM", "Cortex-A715"},
    {0x41, 0xd4e, "ARM", "Cortex-X3"},
    {0x41, 0xd4f, "ARM", "Neoverse-V2"},
    {0x41, 0xd80, "ARM", "Cortex-A520"},
    {0x41, 0xd81, "ARM", "Cortex-A720"},
    {0x41, 0xd82, "ARM", "Cortex-X4"},
    {0xc0, 0xac3, "Ampere", "Ampere-1"},
    {0xc0, 0xac4, "Ampere", "Ampere-1a"},
    {0x61, 0x022, "Apple", "Icestorm"},
    {0x61, 0x023, "Apple", "Firestorm"},
    {0x61, 0x032, "Apple", "Blizzard"},
    {0x61, 0x033, "Apple", "Avalanche"},
    {0x43, 0x0a1, "Cavium", "ThunderX"},
    {0x43, 0x0af, "Cavium", "ThunderX2"},
    {0x51, 0x800, "Qualcomm", "Kryo 2xx Gold"},
    {0x51, 0x801, "Qualcomm", "Kryo 2xx Silver"},
    {0x51, 0x802, "Qualcomm", "Kryo 3xx Gold"},
    {0x51, 0x803, "Qualcomm", "Kryo 3xx Silver"},
    {0x51, 0x804, "Qualcomm", "Kryo 4xx Gold"},
    {0x51, 0x805, "Qualcomm", "Kryo 4xx Silver"},
    {0x51, 0x001, "Qualcomm", "Oryon"},
};

const Part *partOf(int maker, int number)
{
    const Part *const found =
        std::find_if(std::begin(parts), std::end(parts), [&](const Part &part) {
            return part.maker == maker && part.number == number;
        });
    return found == std::end(parts) ? nullptr : found;
}

int hexadecimal(std::string_view value)
{
    constexpr int base = 16;
    bool isNumber = false;
    const int number =
        QString::fromUtf8(value.data(), static_cast<int>(value.size())).toInt(&isNumber, base);
    return isNumber ? number : -1;
}

} // namespace

QString armCores(std::string_view cpuInfo)
{
    QString maker;
    QStringList names;
    int makerNumber = -1;
    while (const std::optional<std::string_view> line = takeLine(cpuInfo)) {
        const std::size_t colon = line->find(':');
        if (colon == std::string_view::npos)
            continue;
        const std::string_view key = trimmed(line->substr(0, colon));
        const std::string_view value = trimmed(line->substr(colon + 1));
        if (key == "CPU implementer")
            makerNumber = hexadecimal(value);
        if (key != "CPU part")
            continue;
        const Part *const part = partOf(makerNumber, hexadecimal(value));
        if (!part)
            return {};
        maker = QString::fromLatin1(part->makerName);
        const QString name = QString::fromLatin1(part->name);
        names.removeAll(name);
        names.prepend(name);
    }
    return names.isEmpty() ? QString()
                           : QStringLiteral("%1 %2").arg(maker, names.join(QStringLiteral(" / ")));
}
