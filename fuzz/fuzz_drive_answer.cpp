#include "fuzz/FuzzSupport.h"
#include "system_monitor_lib/live/drives/StorageAnswers.h"
#include "system_monitor_lib/live/files/SysfsText.h"

// The answers of a drive on Windows about its temperature and its model.

extern "C" int LLVMFuzzerInitialize(int * /*argc*/, char *** /*argv*/)
{
    fuzz::silence();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray answer = fuzz::bytesOf(data, size);
    if (const auto celsius = parseDriveCelsius(answer))
        fuzz::require(isPlausibleCelsius(*celsius));
    fuzz::require(parseDriveModel(answer).size() <= 2 * answer.size() + 1);
    parseIsRotating(answer);
    fuzz::require(parseServed(answer).size() <= answer.size());
    return 0;
}
