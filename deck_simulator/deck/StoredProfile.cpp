#include "deck_simulator/deck/StoredProfile.h"

#include "deck_simulator/deck/ActionList.h"
#include "deck_simulator/deck/DeckProfile.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QUuid>

namespace deck {

namespace {

constexpr int longestKey = 1 << 20; // bytes

QJsonObject placeObject(const DeckPlace &place)
{
    if (place.dial)
        return {{QStringLiteral("dial"), place.column}};
    return {{QStringLiteral("column"), place.column}, {QStringLiteral("row"), place.row}};
}

DeckPlace placeFrom(const QJsonObject &object)
{
    const int dial = object.value(QLatin1String("dial")).toInt(-1);
    if (dial >= 0)
        return {dial, 0, true};
    return {object.value(QLatin1String("column")).toInt(-1),
            object.value(QLatin1String("row")).toInt(-1)};
}

bool isPossible(const DeckPlace &place)
{
    if (place.dial)
        return place.column < DeckModel::mostDials;
    return place.column >= 0 && place.column < DeckModel::mostColumns && place.row >= 0 &&
           place.row < DeckModel::mostRows;
}

QJsonObject entryObject(const DeckEntry &entry)
{
    QJsonObject object = placeObject(entry.place);
    object.insert(QStringLiteral("action"), entry.action);
    object.insert(QStringLiteral("settings"),
                  settingsMessage(entry.settings, {deckKeyPixels, deckKeyPixels}));
    object.insert(QStringLiteral("fillsKey"), entry.settings.fillsKey);
    return object;
}

DeckEntry entryFrom(const QJsonObject &object)
{
    DeckEntry entry;
    entry.context = QUuid::createUuid().toString(QUuid::WithoutBraces);
    entry.action = object.value(QLatin1String("action")).toString();
    entry.place = placeFrom(object);
    entry.settings = settingsFrom(object.value(QLatin1String("settings")).toObject(), {});
    entry.settings.fillsKey = object.value(QLatin1String("fillsKey")).toBool();
    return entry;
}

QByteArray bytesOf(const QJsonValue &base64)
{
    return QByteArray::fromBase64(base64.toString().toLatin1());
}

LaunchChoices launchFrom(const QJsonObject &object)
{
    LaunchChoices launch;
    launch.language = object.value(QLatin1String("language")).toString(launch.language);
    launch.quoteStripped = object.value(QLatin1String("quoteStripped")).toBool();
    launch.recording = object.value(QLatin1String("recording")).toString();
    return launch;
}

void readEntries(const QJsonArray &keys, StoredProfile &profile, QStringList *faults)
{
    int number = 0;
    for (const QJsonValue &key : keys) {
        ++number;
        const DeckEntry entry = entryFrom(key.toObject());
        if (entry.action.isEmpty() || !isPossible(entry.place))
            faults->append(QStringLiteral("key %1 has no action or no place").arg(number));
        else
            profile.entries.append(entry);
    }
}

DeckEntry entryOf(const char *action, const char *title, int column, int row)
{
    DeckEntry entry;
    entry.context = QUuid::createUuid().toString(QUuid::WithoutBraces);
    entry.action = QStringLiteral("com.quellor.stream.") + QLatin1String(action);
    entry.place = {column, row};
    entry.settings.text = QLatin1String(title);
    entry.settings.showTitle = !entry.settings.text.isEmpty();
    entry.settings.fillsKey = true;
    return entry;
}

DeckEntry gaugeOf(const char *action, const char *title, const char *style, int column, int row)
{
    DeckEntry entry = entryOf(action, title, column, row);
    entry.settings.display.style = QLatin1String(style);
    return entry;
}

// Only the screens of dials show long texts and wide gauges in letters that can be read.
DeckEntry onDial(DeckEntry entry)
{
    entry.place = {entry.place.column, 0, true};
    if (entry.settings.display.isGauge())
        entry.settings.display.shape = QStringLiteral("wide");
    return entry;
}

// English titles stay, even if they are not those of new keys.
void translateTitle(DeckEntry &entry, const QString &language)
{
    const QString title = newTitle(entry.action, language);
    if (title == newTitle(entry.action, QStringLiteral("en")))
        return;
    const bool twoLines = entry.settings.titleLines == QStringLiteral("双行显示");
    entry.settings.text = titleForLines(entry.action, title, twoLines, language);
}

} // namespace

bool operator==(const LaunchChoices &left, const LaunchChoices &right)
{
    return left.language == right.language && left.quoteStripped == right.quoteStripped &&
           left.recording == right.recording;
}

QByteArray profileText(const StoredProfile &profile)
{
    QJsonArray keys;
    for (const DeckEntry &entry : profile.entries)
        keys.append(entryObject(entry));
    const QJsonObject root{
        {QStringLiteral("grid"), QJsonObject{{QStringLiteral("columns"), profile.grid.width()},
                                             {QStringLiteral("rows"), profile.grid.height()},
                                             {QStringLiteral("dials"), profile.dials}}},
        {QStringLiteral("keys"), keys},
        {QStringLiteral("plugin"),
         QJsonObject{{QStringLiteral("language"), profile.launch.language},
                     {QStringLiteral("quoteStripped"), profile.launch.quoteStripped},
                     {QStringLiteral("recording"), profile.launch.recording}}},
        {QStringLiteral("window"),
         QJsonObject{
             {QStringLiteral("geometry"), QString::fromLatin1(profile.windowGeometry.toBase64())},
             {QStringLiteral("state"), QString::fromLatin1(profile.windowState.toBase64())}}},
    };
    return QJsonDocument(root).toJson();
}

StoredProfile readProfile(const QByteArray &text, QStringList *faults)
{
    StoredProfile profile;
    QJsonParseError error{};
    const QJsonDocument document = QJsonDocument::fromJson(text, &error);
    const QJsonObject root = document.object();
    if (!document.isObject()) {
        faults->append(
            error.error == QJsonParseError::NoError
                ? QStringLiteral("it is no JSON object")
                : QStringLiteral("%1 at byte %2").arg(error.errorString()).arg(error.offset));
        return profile;
    }
    if (!root.value(QLatin1String("keys")).isArray()) {
        faults->append(QStringLiteral("it has no list of keys"));
        return profile;
    }
    const QJsonObject grid = root.value(QLatin1String("grid")).toObject();
    profile.grid = {grid.value(QLatin1String("columns")).toInt(profile.grid.width()),
                    grid.value(QLatin1String("rows")).toInt(profile.grid.height())};
    profile.dials = grid.value(QLatin1String("dials")).toInt(profile.dials);
    readEntries(root.value(QLatin1String("keys")).toArray(), profile, faults);
    profile.launch = launchFrom(root.value(QLatin1String("plugin")).toObject());
    const QJsonObject window = root.value(QLatin1String("window")).toObject();
    profile.windowGeometry = bytesOf(window.value(QLatin1String("geometry")));
    profile.windowState = bytesOf(window.value(QLatin1String("state")));
    return profile;
}

QByteArray keyText(const DeckEntry &entry)
{
    return QJsonDocument(entryObject(entry)).toJson(QJsonDocument::Compact);
}

std::optional<DeckEntry> readKey(const QByteArray &text)
{
    if (text.size() > longestKey)
        return std::nullopt;
    const DeckEntry entry = entryFrom(QJsonDocument::fromJson(text).object());
    return entry.action.isEmpty() ? std::nullopt : std::make_optional(entry);
}

StoredProfile firstProfile(const QString &language)
{
    StoredProfile profile;
    profile.entries = {
        gaugeOf("system.cpu", "CPU", "ring", 0, 0),
        gaugeOf("system.cpu", "CPU", "graph", 1, 0),
        gaugeOf("system.cpu.temperature", "CPU temp", "bar", 2, 0),
        gaugeOf("system.Cpu_Clock", "Clock", "graph", 3, 0),
        gaugeOf("system.memory", "Mem", "ring", 4, 0),
        gaugeOf("system.Memory_Free_GB", "Free", "bar", 5, 0),
        gaugeOf("system.NetWork", "Net", "pair", 0, 1),
        gaugeOf("system.NetWork.Upload", "Up", "graph", 1, 1),
        gaugeOf("system.NetWork.Download", "Down", "graph", 2, 1),
        gaugeOf("system.volume", "Vol", "bar", 3, 1),
        entryOf("AllDATA", "Sensor", 4, 1),
        entryOf("system.cpu", "CPU", 0, 2),
        entryOf("system.NetWork", "Up/Down", 1, 2),
        entryOf("system.Memory_Used_GB", "Used", 2, 2),
        onDial(entryOf("system.PhysicalDisk", "", 0, 0)),
        onDial(gaugeOf("system.cpu", "CPU", "graph", 1, 0)),
        onDial(gaugeOf("system.memory", "Mem", "bar", 2, 0)),
    };
    profile.entries[11].settings.display.warning = 50;
    profile.entries[11].settings.display.critical = 90;
    profile.entries[12].settings.titleLines = QStringLiteral("双行显示");
    for (DeckEntry &entry : profile.entries)
        translateTitle(entry, language);
    return profile;
}

StoredProfile profileWith(const DeckProfile &deck)
{
    StoredProfile profile;
    const int columns = qMax(1, deck.grid.width());
    profile.grid = deck.grid;
    for (const DeckKey &key : deck.keys) {
        DeckEntry entry;
        entry.context = QUuid::createUuid().toString(QUuid::WithoutBraces);
        entry.action = key.action();
        const int number = static_cast<int>(profile.entries.size());
        entry.place = {number % columns, number / columns};
        entry.settings = settingsFrom(key.settings(), {});
        profile.entries.append(entry);
    }
    return profile;
}

} // namespace deck
