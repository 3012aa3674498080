#include "fuzz/FuzzSupport.h"
#include "system_monitor_lib/recorded/Recording.h"

#include <QJsonDocument>

// A recording of a machine. What was read from one and written again is a recording without errors.

extern "C" int LLVMFuzzerInitialize(int * /*argc*/, char *** /*argv*/)
{
    fuzz::silence();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const auto parsed = parseRecording(fuzz::bytesOf(data, size));
    if (const auto *const complaint = std::get_if<QString>(&parsed)) {
        fuzz::require(!complaint->isEmpty());
        return 0;
    }
    const QJsonObject written = recordingOf(std::get<Recording>(parsed).trees);
    const auto again = parseRecording(QJsonDocument(written).toJson(QJsonDocument::Compact));
    const auto *const recording = std::get_if<Recording>(&again);
    fuzz::require(recording && recording->remarks.isEmpty());
    fuzz::require(recordingOf(recording->trees).keys() == written.keys());
    return 0;
}
