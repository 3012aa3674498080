#include "plugin/ReplyParts.h"

#include "SDK/Logger/Logger.h"
#include "plugin/SettingsDraft.h"
#include "render/normalAction.h"
#include "sensors/VqSystemMonitorLib.h"
#include "sensors/machine/audio.h"
#include "sensors/readings/SensorWalk.h"
#include "sensors/systemInfor.h"

#include <QJsonArray>
#include <QJsonDocument>

void replypart::temperatureType(SettingsDraft &draft)
{
    draft.parameters.insert(QStringLiteral("temperatureType"), draft.key.temperatureType);
}

void replypart::titleLines(SettingsDraft &draft)
{
    draft.parameters.insert(QStringLiteral("titleLines"), draft.key.titleLines);
}

void replypart::drives(SettingsDraft &draft)
{
    const normalAction &key = draft.key;
    LogDebug(QStringLiteral("处理硬盘操作"));
    for (int index = 0; index < systemInfor::DriveRoots.size(); ++index) {
        LogDebug(labelled("driveName: ", systemInfor::DriveRoots.at(index)) +
                 labelled(" VolumeName: ", systemInfor::DriveVolumeNames.value(index)));
    }
    LogDebug(labelled("currentOperator->diskMode;: ", key.diskMode));
    // The drives are placed beside the settings, not among them.
    draft.settings.insert(QStringLiteral("DriveNames"),
                          QJsonArray::fromStringList(systemInfor::DriveRoots));
    draft.settings.insert(QStringLiteral("VolumeNames"),
                          QJsonArray::fromStringList(systemInfor::DriveVolumeNames));
    draft.parameters.insert(QStringLiteral("diskMode"), key.diskMode);
    draft.parameters.insert(QStringLiteral("volumeNameItem"), key.volumeNameItem);
    draft.parameters.insert(QStringLiteral("switchFrequency"), key.switchFrequency);
    draft.parameters.insert(QStringLiteral("showVolumeName"), key.showVolumeName);
}

void replypart::driveTemperatures(SettingsDraft &draft)
{
    temperatureType(draft);
    draft.parameters.insert(QStringLiteral("SelectPhysicalDisk"), draft.key.SelectPhysicalDisk);
    draft.parameters.insert(QStringLiteral("PhysicalDiskTemperatureList"),
                            draft.library ? draft.library->getSMARTInfo() : QJsonObject());
}

void replypart::playbackDevices(SettingsDraft &draft)
{
    draft.parameters.insert(QStringLiteral("devices"),
                            QJsonArray::fromStringList(machineAudio().deviceNames()));
}

void replypart::sensors(SettingsDraft &draft)
{
    draft.parameters.insert(QStringLiteral("AllData"), systemInfor::AllSensorsData);
    LogDebug(labelled(draft.occasion == SettingsOccasion::WillAppear
                          ? "currentOperator->alldataSelect 当前选中的是: "
                          : "didrev currentOperator->alldataSelect: ",
                      draft.key.SelectValue));
    draft.parameters.insert(QStringLiteral("SelectValue"), draft.key.SelectValue);
}

void replypart::pump(SettingsDraft &draft)
{
    LogDebug(labelled("systemInfor::AIOPump: ", systemInfor::AIOPump));
    draft.parameters.insert(QStringLiteral("PumpSpeed"), systemInfor::AIOPump);
}

void replypart::fans(SettingsDraft &draft)
{
    const QJsonObject fans = pairsToTree(systemInfor::CpuFanList);
    LogDebug(labelled("FanJsonResult: ",
                      QString::fromUtf8(QJsonDocument(fans).toJson(QJsonDocument::Compact))));
    draft.parameters.insert(QStringLiteral("SelectCPUFan"), draft.key.SelectCPUFan);
    draft.parameters.insert(QStringLiteral("CPUFanList"), fans);
}
