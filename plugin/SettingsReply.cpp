#include "plugin/SettingsReply.h"

#include "SDK/Logger/Logger.h"
#include "render/ActionCatalogue.h"
#include "render/normalAction.h"
#include "sensors/SensorWalk.h"
#include "sensors/VqSystemMonitorLib.h"
#include "sensors/systemInfor.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace {

bool showsTemperature(const QString &uuid)
{
    return uuid == QLatin1String("com.quellor.stream.system.cpu.temperature") ||
           uuid == QLatin1String("com.quellor.stream.system.Gpu_Temperature") ||
           uuid == actionuuid::diskTemperature;
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

void insertSensors(QJsonObject &parameters, const normalAction &key, SettingsOccasion occasion)
{
    parameters.insert(QStringLiteral("AllData"), systemInfor::AllSensorsData);
    LogDebug(labelled(occasion == SettingsOccasion::WillAppear
                          ? "currentOperator->alldataSelect 当前选中的是: "
                          : "didrev currentOperator->alldataSelect: ",
                      key.SelectValue));
    parameters.insert(QStringLiteral("SelectValue"), key.SelectValue);
}

void insertPump(QJsonObject &parameters)
{
    LogDebug(labelled("systemInfor::AIOPump: ", systemInfor::AIOPump));
    parameters.insert(QStringLiteral("PumpSpeed"), systemInfor::AIOPump);
}

void insertFans(QJsonObject &parameters, const normalAction &key)
{
    const QJsonObject fans = pairsToTree(systemInfor::CpuFanList);
    LogDebug(labelled("FanJsonResult: ",
                      QString::fromUtf8(QJsonDocument(fans).toJson(QJsonDocument::Compact))));
    parameters.insert(QStringLiteral("SelectCPUFan"), key.SelectCPUFan);
    parameters.insert(QStringLiteral("CPUFanList"), fans);
}

/// What only one kind of key offers.
void insertLists(QJsonObject &parameters, const normalAction &key, SettingsOccasion occasion,
                 VqSystemMonitorLib &library)
{
    const QString uuid = key.GetAction();
    if (uuid == actionuuid::allData) {
        insertSensors(parameters, key, occasion);
    } else if (uuid == actionuuid::diskTemperature) {
        parameters.insert(QStringLiteral("SelectPhysicalDisk"), key.SelectPhysicalDisk);
        parameters.insert(QStringLiteral("PhysicalDiskTemperatureList"), library.getSMARTInfo());
    } else if (uuid == actionuuid::pumpSpeed) {
        insertPump(parameters);
    } else if (uuid == actionuuid::cpuFan) {
        insertFans(parameters, key);
    }
}

} // namespace

QJsonObject settingsReply(const QJsonObject &settings, const normalAction &key,
                          SettingsOccasion occasion, VqSystemMonitorLib &library)
{
    const bool appearing = occasion == SettingsOccasion::WillAppear;
    QJsonObject parameters = displaySettings(key);
    if (appearing || showsTemperature(key.GetAction()))
        parameters.insert(QStringLiteral("temperatureType"), key.temperatureType);
    if (appearing || key.GetAction() == actionuuid::netWork)
        parameters.insert(QStringLiteral("titleLines"), key.titleLines);
    insertLists(parameters, key, occasion, library);
    parameters.insert(QStringLiteral("FontList"), fontList());

    QJsonObject reply = settings;
    reply.insert(QStringLiteral("titleParameters"), parameters);
    reply.insert(QStringLiteral("ActionGeometry"),
                 QJsonObject{{QStringLiteral("width"), key.imageWidth},
                             {QStringLiteral("height"), key.imageHeight}});
    return reply;
}
