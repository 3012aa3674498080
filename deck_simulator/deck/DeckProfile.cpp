#include "deck_simulator/deck/DeckProfile.h"

#include "deck_simulator/deck/ActionList.h"
#include "deck_simulator/deck/DeckModel.h"
#include "deck_simulator/deck/EntrySettings.h"

namespace deck {

namespace {

const char *const cpuAction = "com.quellor.stream.system.cpu";
const char *const clockAction = "com.quellor.stream.system.Cpu_Clock";
const char *const memoryAction = "com.quellor.stream.system.memory";
const char *const networkAction = "com.quellor.stream.system.NetWork";

struct ProfileKey
{
    const char *name;
    const char *action;
    EntrySettings settings;
};

EntrySettings textKey(const char *title, const char *titleLines = "单行显示")
{
    EntrySettings settings;
    settings.text = QString::fromUtf8(title);
    settings.titleLines = QString::fromUtf8(titleLines);
    return settings;
}

EntrySettings gaugeKey(const char *title, const char *style)
{
    EntrySettings settings = textKey(title);
    settings.display.style = QString::fromUtf8(style);
    return settings;
}

EntrySettings inColor(EntrySettings settings, const char *color)
{
    settings.display.normalColor = QString::fromUtf8(color);
    return settings;
}

EntrySettings wide(EntrySettings settings, const char *ground)
{
    settings.display.shape = QStringLiteral("wide");
    settings.display.ground = QString::fromUtf8(ground);
    return settings;
}

EntrySettings inBits(EntrySettings settings)
{
    settings.display.rates = QStringLiteral("bits");
    return settings;
}

EntrySettings withThresholds(EntrySettings settings, double warning, double critical)
{
    settings.display.warning = warning;
    settings.display.critical = critical;
    return settings;
}

// Every style, and lines of text beside them.
QVector<ProfileKey> profileKeys()
{
    return {
        {"CPU usage", cpuAction, gaugeKey("CPU", "ring")},
        {"CPU usage, history", cpuAction, gaugeKey("CPU", "graph")},
        {"CPU frequency", clockAction, inColor(gaugeKey("Clock", "graph"), "#E69F00")},
        {"Memory load", memoryAction, inColor(gaugeKey("Mem", "ring"), "#009E73")},
        {"Free GB of memory", "com.quellor.stream.system.Memory_Free_GB", gaugeKey("Free", "bar")},
        {"Network", networkAction, gaugeKey("Net", "pair")},
        {"Upload", "com.quellor.stream.system.NetWork.Upload",
         inColor(gaugeKey("Up", "graph"), "#CC79A7")},
        {"Download in bits", "com.quellor.stream.system.NetWork.Download",
         inBits(gaugeKey("Down", "graph"))},
        {"CPU usage, wide", cpuAction, wide(gaugeKey("CPU", "graph"), "#14233a")},
        {"Used GB of memory", "com.quellor.stream.system.Memory_Used_GB",
         inColor(gaugeKey("Used", "bar"), "#009E73")},
        {"CPU usage, thresholds", cpuAction, withThresholds(gaugeKey("CPU", "bar"), 20, 60)},
        {"CPU usage, coloured text", cpuAction, withThresholds(textKey("CPU"), 20, 60)},
        {"Network, one line", networkAction, textKey("Net")},
        {"Network, two lines", networkAction, textKey("Up/Down", "双行显示")},
    };
}

/// A key of the settings deck: what differs from the usual settings.
struct SettingsKey
{
    const char *name;
    const char *action;
    QJsonObject changes;
};

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

QString contextOf(QVector<DeckKey>::size_type index)
{
    return QStringLiteral("key-%1").arg(index + 1, 2, 10, QLatin1Char('0'));
}

} // namespace

DeckKey keyOf(const DeckEntry &entry)
{
    DeckKey key(actionCaption(entry.action), entry.action, entry.context,
                settingsMessage(entry.settings, screenPixels(entry.place.dial)));
    key.setPlace(entry.place);
    return key;
}

DeckProfile deckOf(const DeckModel &model)
{
    DeckProfile deck;
    deck.name = QStringLiteral("Simulated deck");
    deck.grid = model.grid();
    for (const DeckEntry &entry : model.entries()) {
        if (model.contains(entry.place))
            deck.keys.append(keyOf(entry));
    }
    return deck;
}

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

QSize gridFor(QVector<DeckKey>::size_type keys, int columns)
{
    return {columns, (static_cast<int>(keys) + columns - 1) / columns};
}

} // namespace

DeckProfile defaultDeck(int columns, int keyPixels)
{
    DeckProfile deck;
    deck.name = QStringLiteral("Simulated deck");
    QVector<ProfileKey> keys = profileKeys();
    for (ProfileKey &key : keys) {
        if (key.settings.display.isGauge())
            key.settings.display.size =
                qBound(DisplaySettings::smallestSize, keyPixels, DisplaySettings::largestSize);
        deck.keys.append(DeckKey(QString::fromUtf8(key.name), QString::fromUtf8(key.action),
                                 contextOf(deck.keys.size()),
                                 settingsMessage(key.settings, {deckKeyPixels, deckKeyPixels})));
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
