#include "deck_simulator/deck/DeckProfile.h"

#include "deck_simulator/deck/ActionList.h"
#include "deck_simulator/deck/EntrySettings.h"

namespace deck {

namespace {

struct ProfileKey
{
    const char *name = nullptr;
    const char *action = nullptr;
    const char *title = nullptr;
    const char *titleLines = "单行显示";
};

const ProfileKey profileKeys[] = {
    {"CPU usage", "com.quellor.stream.system.cpu", "CPU"},
    {"Memory load", "com.quellor.stream.system.memory", "Mem"},
    {"Network, one line", "com.quellor.stream.system.NetWork", "Net"},
    {"Network, two lines", "com.quellor.stream.system.NetWork", "Up/Down", "双行显示"},
    {"Memory model", "com.quellor.stream.system.Memory_Model", "RAM"},
    {"Free GB of memory", "com.quellor.stream.system.Memory_Free_GB", "Free"},
    {"Used GB of memory", "com.quellor.stream.system.Memory_Used_GB", "Used"},
    {"Total GB of memory", "com.quellor.stream.system.Memory_Total_GB", "Total"},
    {"Upload", "com.quellor.stream.system.NetWork.Upload", "Up"},
    {"Download", "com.quellor.stream.system.NetWork.Download", "Down"},
    {"Free MB of memory", "com.quellor.stream.system.Memory_Free_MB", "Free"},
    {"Used MB of memory", "com.quellor.stream.system.Memory_Used_MB", "Used"},
    {"Total MB of memory", "com.quellor.stream.system.Memory_Total_MB", "Total"},
};

/// A key of the settings deck: what differs from the usual settings.
struct SettingsKey
{
    const char *name;
    const char *action;
    QJsonObject changes;
};

const char *const cpuAction = "com.quellor.stream.system.cpu";
const char *const networkAction = "com.quellor.stream.system.NetWork";

QJsonObject change(const char *member, const QJsonValue &value)
{
    return {{QString::fromUtf8(member), value}};
}

QJsonObject twoLines(const char *title)
{
    return {{QStringLiteral("text"), QString::fromUtf8(title)},
            {QStringLiteral("titleLines"), QStringLiteral("双行显示")}};
}

QVector<SettingsKey> settingsKeys()
{
    return {
        {"Title", cpuAction, change("text", QStringLiteral("CPU"))},
        {"Title hidden", cpuAction, change("showTitle", false)},
        {"Title empty", cpuAction, change("text", QString())},
        {"Title in Chinese", cpuAction, change("text", QStringLiteral("CPU使用率"))},
        {"Two lines", networkAction, twoLines("Up/Down")},
        {"Two lines, slash alone", networkAction, twoLines("/")},
        {"Two lines, no slash", networkAction, twoLines("Net")},
        {"Size 12", cpuAction, change("fontSize", 12)},
        {"Size 60", cpuAction, change("fontSize", 60)},
        {"Colour by name", cpuAction, change("color", QStringLiteral("orange"))},
        {"Colour by number", cpuAction, change("color", QStringLiteral("#40c0ff"))},
        {"Opacity 0.5", cpuAction, change("opacity", 0.5)},
        {"Opacity 1", cpuAction, change("opacity", 1.0)},
    };
}

QString contextOf(int index)
{
    return QStringLiteral("key-%1").arg(index + 1, 2, 10, QLatin1Char('0'));
}

} // namespace

QJsonObject keySettings(const QString &title, const QString &titleLines)
{
    EntrySettings settings;
    settings.text = title;
    settings.titleLines = titleLines;
    return settingsMessage(settings, {deckKeyPixels, deckKeyPixels});
}

namespace {

QJsonObject changedSettings(const QJsonObject &changes)
{
    QJsonObject settings = keySettings(QStringLiteral("CPU"), QStringLiteral("单行显示"));
    QJsonObject parameters = settings.value(QLatin1String("titleParameters")).toObject();
    for (auto member = changes.begin(); member != changes.end(); ++member)
        parameters.insert(member.key(), member.value());
    settings.insert(QStringLiteral("titleParameters"), parameters);
    return settings;
}

QSize gridFor(int keys, int columns)
{
    return {columns, (keys + columns - 1) / columns};
}

} // namespace

DeckProfile defaultDeck(int columns)
{
    DeckProfile deck;
    deck.name = QStringLiteral("Simulated deck");
    for (const ProfileKey &key : profileKeys) {
        deck.keys.append(DeckKey(
            QString::fromUtf8(key.name), QString::fromUtf8(key.action), contextOf(deck.keys.size()),
            keySettings(QString::fromUtf8(key.title), QString::fromUtf8(key.titleLines))));
    }
    deck.grid = gridFor(deck.keys.size(), columns);
    return deck;
}

DeckProfile kindsDeck(int columns)
{
    DeckProfile deck;
    deck.name = QStringLiteral("Every kind of key");
    for (const DeckAction &action : deckActions()) {
        deck.keys.append(DeckKey(action.caption, action.uuid, contextOf(deck.keys.size()),
                                 keySettings(action.caption, QStringLiteral("单行显示"))));
    }
    deck.grid = gridFor(deck.keys.size(), columns);
    return deck;
}

DeckProfile emptyDeck(int columns)
{
    DeckProfile deck;
    deck.name = QStringLiteral("Empty deck");
    deck.grid = {columns, 4};
    return deck;
}

DeckProfile settingsDeck(int columns, const QStringList &fontSpecs)
{
    DeckProfile deck;
    deck.name = QStringLiteral("Settings deck");
    const auto append = [&deck](const QString &name, const char *action,
                                const QJsonObject &changes) {
        deck.keys.append(DeckKey(name, QString::fromUtf8(action), contextOf(deck.keys.size()),
                                 changedSettings(changes)));
    };
    for (const SettingsKey &key : settingsKeys())
        append(QString::fromUtf8(key.name), key.action, key.changes);
    for (const QString &spec : fontSpecs)
        append(spec, cpuAction, change("fontFamily", spec));
    deck.grid = gridFor(deck.keys.size(), columns);
    return deck;
}

} // namespace deck
