#include "plugin/SettingsReply.h"

#include "SDK/Logger/Logger.h"
#include "render/ActionCatalogue.h"
#include "render/normalAction.h"
#include "sensors/systemInfor.h"

#include <QJsonArray>

namespace {

bool showsTemperature(const QString &uuid)
{
    return uuid == QLatin1String("com.quellor.stream.system.cpu.temperature") ||
           uuid == QLatin1String("com.quellor.stream.system.Gpu_Temperature") ||
           uuid == QLatin1String("com.quellor.stream.system.PhysicalDisk.Temperature");
}

QJsonArray fontList()
{
    LogDebug(labelled("systemInfor::fontlist_one.size(): ", systemInfor::fontlist_one.size()));
    QJsonArray list;
    for (const FontRecord &record : qAsConst(systemInfor::fontlist_one)) {
        list.append(QJsonObject{{QStringLiteral("name"), record.displayName},
                                {QStringLiteral("value"), record.spec}});
    }
    return list;
}

QJsonObject displaySettings(const normalAction &key)
{
    return {{QStringLiteral("text"), key.titleText},
            {QStringLiteral("showTitle"), key.showTitle},
            {QStringLiteral("fontFamily"), key.fontSpec},
            {QStringLiteral("fontSize"), key.font.pixelSize()},
            {QStringLiteral("color"), key.color},
            {QStringLiteral("opacity"), key.opacity}};
}

} // namespace

QJsonObject settingsReply(const QJsonObject &settings, const normalAction &key,
                          SettingsOccasion occasion)
{
    const bool appearing = occasion == SettingsOccasion::WillAppear;
    QJsonObject parameters = displaySettings(key);
    if (appearing || showsTemperature(key.GetAction()))
        parameters.insert(QStringLiteral("temperatureType"), key.temperatureType);
    if (appearing || key.GetAction() == actionuuid::netWork)
        parameters.insert(QStringLiteral("titleLines"), key.titleLines);
    parameters.insert(QStringLiteral("FontList"), fontList());

    QJsonObject reply = settings;
    reply.insert(QStringLiteral("titleParameters"), parameters);
    reply.insert(QStringLiteral("ActionGeometry"),
                 QJsonObject{{QStringLiteral("width"), key.imageWidth},
                             {QStringLiteral("height"), key.imageHeight}});
    return reply;
}
