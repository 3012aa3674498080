#include "deck_simulator/DeckProfile.h"

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

QString contextOf(int index)
{
    return QStringLiteral("key-%1").arg(index + 1, 2, 10, QLatin1Char('0'));
}

} // namespace

QJsonObject keySettings(const QString &title, const QString &titleLines)
{
    const QJsonObject titleParameters{
        {QStringLiteral("text"), title},
        {QStringLiteral("showTitle"), true},
        {QStringLiteral("fontFamily"), QStringLiteral("Roboto|Bold")},
        // Ten letters of this size fill a key; pictures of longer texts are scaled down.
        {QStringLiteral("fontSize"), 28},
        {QStringLiteral("color"), QStringLiteral("#ffffff")},
        {QStringLiteral("opacity"), 0},
        {QStringLiteral("temperatureType"), QStringLiteral("摄氏度")},
        {QStringLiteral("titleLines"), titleLines},
        {QStringLiteral("diskMode"), QStringLiteral("Single_Disk")},
        {QStringLiteral("volumeNameItem"), QStringLiteral("0")},
        {QStringLiteral("switchFrequency"), 3},
        {QStringLiteral("showVolumeName"), true},
    };
    const QJsonObject geometry{
        {QStringLiteral("width"), deckKeyPixels},
        {QStringLiteral("height"), deckKeyPixels},
    };
    return {{QStringLiteral("titleParameters"), titleParameters},
            {QStringLiteral("ActionGeometry"), geometry}};
}

DeckProfile defaultDeck(int columns)
{
    DeckProfile deck;
    deck.name = QStringLiteral("Simulated deck");
    for (const ProfileKey &key : profileKeys) {
        deck.keys.append(DeckKey(
            QString::fromUtf8(key.name), QString::fromUtf8(key.action), contextOf(deck.keys.size()),
            keySettings(QString::fromUtf8(key.title), QString::fromUtf8(key.titleLines))));
    }
    deck.grid = QSize(columns, (deck.keys.size() + columns - 1) / columns);
    return deck;
}
