#include "bench/BenchDeck.h"

#include "render/ActionCatalogue.h"
#include "render/ActionUuids.h"
#include "tests/support/TestFonts.h"

#include <cstdio>

namespace {

struct Kind
{
    QString action;
    QString title;
};

/// Every kind of key whose reading comes from the library.
QVector<Kind> kinds()
{
    QVector<Kind> kinds;
    for (const ActionCatalogueRow &row : actionCatalogue()) {
        if (row.uuid != actionuuid::physicalDisk && row.uuid != actionuuid::volume)
            kinds.append({row.uuid, row.englishTitle});
    }
    kinds.append({actionuuid::pumpSpeed, QStringLiteral("Pump")});
    kinds.append({actionuuid::cpuFan, QStringLiteral("CPU fan")});
    kinds.append({actionuuid::allData, QStringLiteral("Sensor")});
    kinds.append({actionuuid::netWork, QStringLiteral("Up/Down")});
    return kinds;
}

QJsonObject settings(const QString &title, bool twoLines, const QString &style)
{
    constexpr int keyPixels = 144;
    const QJsonObject titleParameters{
        {QStringLiteral("text"), title},
        {QStringLiteral("showTitle"), true},
        {QStringLiteral("fontFamily"), QStringLiteral("Roboto|Bold")},
        {QStringLiteral("fontSize"), 28},
        {QStringLiteral("color"), QStringLiteral("#ffffff")},
        {QStringLiteral("opacity"), 0},
        {QStringLiteral("temperatureType"), QStringLiteral("摄氏度")},
        {QStringLiteral("titleLines"),
         twoLines ? QStringLiteral("双行显示") : QStringLiteral("单行显示")},
        {QStringLiteral("diskMode"), QStringLiteral("Single_Disk")},
        {QStringLiteral("volumeNameItem"), QStringLiteral("0")},
        {QStringLiteral("switchFrequency"), 3},
        {QStringLiteral("showVolumeName"), true},
    };
    QJsonObject settings{
        {QStringLiteral("titleParameters"), titleParameters},
        {QStringLiteral("ActionGeometry"),
         QJsonObject{{QStringLiteral("width"), keyPixels}, {QStringLiteral("height"), keyPixels}}}};
    if (!style.isEmpty())
        settings.insert(QStringLiteral("display"), QJsonObject{{QStringLiteral("style"), style}});
    return settings;
}

} // namespace

QVector<BenchKey> benchDeck(int keys, const QString &style)
{
    const QVector<Kind> all = kinds();
    QVector<BenchKey> deck;
    for (int number = 0; number < keys; ++number) {
        const Kind &kind = all.at(number % all.size());
        const bool twoLines = kind.title.contains(QLatin1Char('/'));
        deck.append({kind.action,
                     QStringLiteral("8C7F3D21E0A94B5%1").arg(number, 17, 16, QLatin1Char('0')),
                     {{QStringLiteral("settings"), settings(kind.title, twoLines, style)}}});
    }
    return deck;
}

void prepareEnvironment()
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testfonts::hideMachineFonts();
}

bool registerDeckFont()
{
    if (testfonts::registerFile(QStringLiteral("Roboto-Bold.ttf")))
        return true;
    std::fputs("Roboto-Bold.ttf of fonts-roboto-unhinted is missing\n", stderr);
    return false;
}
