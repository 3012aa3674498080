#include "fuzz/FuzzSupport.h"
#include "system_monitor_lib/live/files/SysfsText.h"
#include "system_monitor_lib/live/files/TextFields.h"
#include "system_monitor_lib/live/graphics/PciMemory.h"
#include "system_monitor_lib/live/network/NetworkText.h"

#include <string_view>

// Attributes of /sys. Each parser gets each input.

extern "C" int LLVMFuzzerInitialize(int * /*argc*/, char *** /*argv*/)
{
    fuzz::silence();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const std::string_view text(reinterpret_cast<const char *>(data), size);
    constexpr auto most = static_cast<qint64>(largestPlausibleNumber);
    if (const auto number = parseInteger(text))
        fuzz::require(*number >= -most && *number <= most);
    if (const auto celsius = parseCelsius(text))
        fuzz::require(isPlausibleCelsius(*celsius));
    if (const auto counter = parseCounter(text))
        fuzz::require(*counter <= largestPlausibleNumber);
    if (const auto processor = parseFirstProcessor(text))
        fuzz::require(*processor >= 0);
    fuzz::require(parseLinkSpeed(text) >= 0);
    fuzz::require(!parseWord(text).contains(QLatin1Char('\n')));
    parseUevent(text, "PCI_ID");
    parseLargestWindow(text);
    parseLargestSize(text);
    return 0;
}
