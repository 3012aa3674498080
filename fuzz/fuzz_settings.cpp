#include "fuzz/FuzzSupport.h"
#include "plugin/DiskKey.h"
#include "plugin/KeyGauges.h"
#include "plugin/KeyPass.h"
#include "plugin/KeySelections.h"
#include "plugin/SettingsReply.h"
#include "render/normalAction.h"
#include "sensors/VqSystemMonitorLib.h"
#include "tests/support/InMemoryLibrary.h"
#include "json/ParseJson.h"

#include <QJsonDocument>
#include <QJsonObject>

// The settings of a key: parsing, painting, presses, the reply. The input is the message of an
// event.

namespace {

constexpr qint64 second = 1000;

/// The gauges of one key from pass to pass.
struct Deck
{
    KeyGauges gauges;
    qint64 now = 0;
};

void paint(Deck &deck, normalAction &key)
{
    deck.now += second;
    KeyPass pass(deck.gauges, deck.now);
    fuzz::keepSmall(key);
    const std::optional<QString> picture = pass.paint(key);
    const QLatin1String prefix("data:image/png;base64,");
    fuzz::require(!picture || picture->isEmpty() || picture->startsWith(prefix));
}

/// Every extreme, then a press that is held.
void press(Deck &deck, normalAction &key)
{
    constexpr int extremes = 4;
    for (int presses = 0; presses < extremes; ++presses) {
        deck.gauges.press(key, deck.now);
        deck.gauges.release(key, deck.now);
        paint(deck, key);
    }
    deck.gauges.press(key, deck.now);
    deck.gauges.release(key, deck.now + second);
}

void answer(Deck &deck, normalAction &key, const QJsonObject &payload, SettingsOccasion occasion)
{
    VqSystemMonitorLib library(false, nullptr);
    const QJsonObject settings = payload.value(QLatin1String("settings")).toObject();
    key.applySettings(payload);
    deck.gauges.forget(key);
    applySelections(key, occasion);
    key.driveIndex = diskkey::chosenDrive(key);
    fuzz::require(diskkey::switchInterval(key.switchFrequency).count() > 0);
    paint(deck, key);
    const QJsonObject reply = settingsReply(settings, key, occasion, &library);
    fuzz::require(reply.value(QLatin1String("titleParameters")).isObject());
    fuzz::require(reply.value(QLatin1String("display")) ==
                  settings.value(QLatin1String("display")));
    fuzz::require(!QJsonDocument(reply).toJson(QJsonDocument::Compact).isEmpty());
    key.driveIndex = diskkey::nextDrive(key.driveIndex);
    paint(deck, key);
    press(deck, key);
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
    Deck deck;
    answer(deck, key, payload, SettingsOccasion::WillAppear);
    answer(deck, key, payload, SettingsOccasion::DidReceiveSettings);
    InMemoryLibrary::queries.clear();
    return 0;
}
