#include "fuzz/FuzzSupport.h"
#include "plugin/DiskKey.h"
#include "plugin/KeyPass.h"
#include "plugin/KeySelections.h"
#include "plugin/SettingsReply.h"
#include "render/normalAction.h"
#include "sensors/VqSystemMonitorLib.h"
#include "tests/support/InMemoryLibrary.h"
#include "json/ParseJson.h"

#include <QJsonDocument>
#include <QJsonObject>

// The settings of a key: parsing, painting, the reply. The input is the message of an event.

namespace {

void paint(normalAction &key)
{
    KeyPass pass;
    fuzz::keepSmall(key);
    const std::optional<QString> picture = pass.paint(key);
    const QLatin1String prefix("data:image/png;base64,");
    fuzz::require(!picture || picture->isEmpty() || picture->startsWith(prefix));
}

void answer(normalAction &key, const QJsonObject &payload, SettingsOccasion occasion)
{
    VqSystemMonitorLib library(false, nullptr);
    const QJsonObject settings = payload.value(QLatin1String("settings")).toObject();
    key.applySettings(payload);
    applySelections(key, occasion);
    key.driveIndex = diskkey::chosenDrive(key);
    fuzz::require(diskkey::switchInterval(key.switchFrequency).count() > 0);
    paint(key);
    const QJsonObject reply = settingsReply(settings, key, occasion, &library);
    fuzz::require(reply.value(QLatin1String("titleParameters")).isObject());
    fuzz::require(!QJsonDocument(reply).toJson(QJsonDocument::Compact).isEmpty());
    key.driveIndex = diskkey::nextDrive(key.driveIndex);
    paint(key);
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int * /*argc*/, char *** /*argv*/)
{
    fuzz::makeApplication();
    fuzz::takeDesktopReadings();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QJsonObject message = parseJson(fuzz::bytesOf(data, size)).object();
    const QJsonObject payload = message.value(QLatin1String("payload")).toObject();
    normalAction key(nullptr, message.value(QLatin1String("action")).toString(), QString());
    answer(key, payload, SettingsOccasion::WillAppear);
    answer(key, payload, SettingsOccasion::DidReceiveSettings);
    InMemoryLibrary::queries.clear();
    return 0;
}
