#include "plugin/SettingsReply.h"

#include "SDK/Logger/Logger.h"
#include "render/ActionCatalogue.h"
#include "render/normalAction.h"
#include "sensors/VqSystemMonitorLib.h"
#include "sensors/machine/audio.h"
#include "sensors/readings/SensorWalk.h"
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

void insertDiskSettings(QJsonObject &parameters, const normalAction &key)
{
    parameters.insert(QStringLiteral("diskMode"), key.diskMode);
    parameters.insert(QStringLiteral("volumeNameItem"), key.volumeNameItem);
    parameters.insert(QStringLiteral("switchFrequency"), key.switchFrequency);
    parameters.insert(QStringLiteral("showVolumeName"), key.showVolumeName);
}

/// The drives stand beside the settings, not among them.
void insertDrives(QJsonObject &reply, const normalAction &key)
{
    LogDebug(QStringLiteral("处理硬盘操作"));
    for (int index = 0; index < systemInfor::DriveRoots.size(); ++index) {
        LogDebug(labelled("driveName: ", systemInfor::DriveRoots.at(index)) +
                 labelled(" VolumeName: ", systemInfor::DriveVolumeNames.value(index)));
    }
    LogDebug(labelled("currentOperator->diskMode;: ", key.diskMode));
    reply.insert(QStringLiteral("DriveNames"), QJsonArray::fromStringList(systemInfor::DriveRoots));
    reply.insert(QStringLiteral("VolumeNames"),
                 QJsonArray::fromStringList(systemInfor::DriveVolumeNames));
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
                 VqSystemMonitorLib *library)
{
    const QString uuid = key.GetAction();
    if (uuid == actionuuid::physicalDisk) {
        insertDiskSettings(parameters, key);
    } else if (uuid == actionuuid::volume) {
        parameters.insert(QStringLiteral("devices"),
                          QJsonArray::fromStringList(machineAudio().deviceNames()));
    } else if (uuid == actionuuid::allData) {
        insertSensors(parameters, key, occasion);
    } else if (uuid == actionuuid::diskTemperature) {
        parameters.insert(QStringLiteral("SelectPhysicalDisk"), key.SelectPhysicalDisk);
        parameters.insert(QStringLiteral("PhysicalDiskTemperatureList"),
                          library ? library->getSMARTInfo() : QJsonObject());
    } else if (uuid == actionuuid::pumpSpeed) {
        insertPump(parameters);
    } else if (uuid == actionuuid::cpuFan) {
        insertFans(parameters, key);
    }
}

} // namespace

QJsonObject settingsReply(const QJsonObject &settings, const normalAction &key,
                          SettingsOccasion occasion, VqSystemMonitorLib *library)
{
    const bool appearing = occasion == SettingsOccasion::WillAppear;
    QJsonObject parameters = displaySettings(key);
    if (appearing || showsTemperature(key.GetAction()))
        parameters.insert(QStringLiteral("temperatureType"), key.temperatureType);
    if (appearing || key.GetAction() == actionuuid::netWork)
        parameters.insert(QStringLiteral("titleLines"), key.titleLines);
    QJsonObject reply = settings;
    if (key.GetAction() == actionuuid::physicalDisk)
        insertDrives(reply, key);
    insertLists(parameters, key, occasion, library);
    parameters.insert(QStringLiteral("FontList"), fontList());
    reply.insert(QStringLiteral("titleParameters"), parameters);
    reply.insert(QStringLiteral("ActionGeometry"),
                 QJsonObject{{QStringLiteral("width"), key.imageWidth},
                             {QStringLiteral("height"), key.imageHeight}});
    return reply;
}
