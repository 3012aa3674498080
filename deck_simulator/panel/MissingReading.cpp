#include "deck_simulator/panel/MissingReading.h"

#include "deck_simulator/panel/PanelText.h"

#include <algorithm>
#include <iterator>

namespace deck {

namespace {

struct MissingRow
{
    const char *request;
    const char *reason; // null: unknown
};

// Requests whose reading is never 0.
const MissingRow missingRows[] = {
    {"Cpu Temperature",
     QT_TRANSLATE_NOOP("deck::SettingsPanel",
                       "no sensor of the processor can be read; virtual machines have none")},
    {"Cpu Clock", nullptr},
    {"Cpu Power",
     QT_TRANSLATE_NOOP(
         "deck::SettingsPanel",
         "no energy counter of the processor can be read; on Linux most are for root only")},
    {"Cpu Voltage",
     QT_TRANSLATE_NOOP("deck::SettingsPanel", "no sensor of the processor can be read")},
    {"Cpu Model", nullptr},
    {"Gpu Temperature",
     QT_TRANSLATE_NOOP("deck::SettingsPanel", "the graphics have no such sensor, or are asleep")},
    {"Gpu Voltage",
     QT_TRANSLATE_NOOP("deck::SettingsPanel", "the graphics have no such sensor, or are asleep")},
    {"Gpu Model", nullptr},
    {"Physical Memory Usage", nullptr},
    {"Memory Free MB", nullptr},
    {"Memory Used MB", nullptr},
    {"Memory Total MB", nullptr},
    {"Memory Model", nullptr},
    {"totalDisksTotalSpace", QT_TRANSLATE_NOOP("deck::SettingsPanel", "no drive can be read")},
    {"defaultAudioEndpointVolume",
     QT_TRANSLATE_NOOP("deck::SettingsPanel",
                       "there is no playback device, or the sound server cannot be reached")},
};

// -1 as the server sends it.
bool isMinusOne(const QString &info)
{
    return info == QLatin1String("4294967295") || info == QLatin1String("-1");
}

bool isZero(const QString &info)
{
    const auto end = std::find_if(info.begin(), info.end(), [](QChar letter) {
        return !letter.isDigit() && letter != QLatin1Char('.');
    });
    const int digits = int(std::distance(info.begin(), end));
    bool isNumber = false;
    const double number = info.left(digits).toDouble(&isNumber);
    return isNumber && number == 0.0;
}

// The plugin's name for the graphics of a machine that tells of none.
bool hasNoGraphics(const QString &graphics)
{
    return graphics == QLatin1String("integrated GPU");
}

} // namespace

QString notAvailable(const QString &reason)
{
    return reason.isEmpty() ? panelText("not available on this machine")
                            : panelText("not available on this machine (%1)").arg(reason);
}

QString missingText(const QString &request, const QString &info, const QString &graphics)
{
    const bool ofGraphics = request.startsWith(QLatin1String("Gpu "));
    if (ofGraphics && hasNoGraphics(graphics) && (isZero(info) || hasNoGraphics(info)))
        return notAvailable(panelText("no graphics card was found"));
    const auto row = std::find_if(std::begin(missingRows), std::end(missingRows),
                                  [&request](const MissingRow &missing) {
                                      return request == QLatin1String(missing.request);
                                  });
    if (row == std::end(missingRows))
        return {};
    // A volume may be 0.
    const bool zeroIsMissing = request != QLatin1String("defaultAudioEndpointVolume");
    const bool missing = info.isEmpty() || isMinusOne(info) || (zeroIsMissing && isZero(info));
    return missing ? notAvailable(row->reason == nullptr ? QString() : panelText(row->reason))
                   : QString();
}

QString missingFanText(const QString &action, const QString &title)
{
    if (!title.endsWith(QLatin1String("nodata")))
        return {};
    if (action == QLatin1String("com.quellor.stream.CPUFan"))
        return notAvailable(panelText("no fan's speed can be read"));
    if (action == QLatin1String("com.quellor.stream.PumpSpeed"))
        return notAvailable(panelText("no pump's speed can be read"));
    return {};
}

} // namespace deck
