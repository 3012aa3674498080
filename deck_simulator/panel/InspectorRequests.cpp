#include "deck_simulator/panel/InspectorRequests.h"

#include "deck_simulator/panel/MissingReading.h"
#include "deck_simulator/panel/PanelText.h"
#include "deck_simulator/panel/SettingsLists.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>

namespace deck {

namespace {

constexpr int mostLines = 12;

struct RequestRow
{
    const char *action;
    const char *requests; // names with bars between
};

const RequestRow requestRows[] = {
    {"system.cpu", "Cpu Usage"},
    {"system.cpu.temperature", "Cpu Temperature"},
    {"system.Cpu_Clock", "Cpu Clock"},
    {"system.Cpu_Package_Power", "Cpu Power"},
    {"system.Cpu_Voltage", "Cpu Voltage"},
    {"system.Cpu_Model", "Cpu Model"},
    {"system.Gpu_Temperature", "Gpu Temperature"},
    {"system.Gpu_Core_Clock", "Gpu Core Clock"},
    {"system.Gpu_Core_Utility", "Gpu Core Utility"},
    {"system.Gpu_Memory_Clock", "Gpu Memory Clock"},
    {"system.Gpu_Memory_Utility", "Gpu Memory Utility"},
    {"system.Gpu_Memory_Used", "Gpu Memory Used"},
    {"system.Gpu_Power", "Gpu Power"},
    {"system.Gpu_Voltage", "Gpu Voltage"},
    {"system.Gpu_Model", "Gpu Model"},
    {"system.memory", "Physical Memory Usage"},
    {"system.Memory_Free_MB", "Memory Free MB"},
    {"system.Memory_Used_MB", "Memory Used MB"},
    {"system.Memory_Total_MB", "Memory Total MB"},
    {"system.Memory_Free_GB", "Memory Free MB"},
    {"system.Memory_Used_GB", "Memory Used MB"},
    {"system.Memory_Total_GB", "Memory Total MB"},
    {"system.Memory_Model", "Memory Model"},
    {"system.NetWork", "Network Upload Speed|Network Download Speed"},
    {"system.NetWork.Upload", "Network Upload Speed"},
    {"system.NetWork.Download", "Network Download Speed"},
    {"system.PhysicalDisk", "drives|totalDisksFreeSpace|totalDisksTotalSpace"},
    {"system.PhysicalDisk.Temperature", "Disk Temperature"},
    {"system.volume", "defaultAudioEndpointVolume|AllAudioEndpointVolume"},
    {"AllDATA", "GetAllSensorsData"},
};

QString infoText(const QString &request, const QJsonValue &info)
{
    if (!info.isString())
        return {};
    // These come without a unit.
    if (request.endsWith(QLatin1String(" MB")))
        return info.toString() + QStringLiteral(" MB");
    if (request == QLatin1String("Memory Model"))
        return panelText("%1 GB that the system may use, rounded").arg(info.toString());
    if (request.endsWith(QLatin1String("Space")))
        return info.toString() + QStringLiteral(" GB");
    if (request.endsWith(QLatin1String("EndpointVolume")))
        return info.toString() + QStringLiteral(" %");
    return info.toString();
}

QString readingOf(const QVector<ListEntry> &list, const QString &value)
{
    const auto found = std::find_if(list.begin(), list.end(), [&value](const ListEntry &entry) {
        return value.isEmpty() || entry.value == value;
    });
    if (found == list.end())
        return notAvailable(value.isEmpty() ? QString()
                                            : panelText("there is no \"%1\"").arg(value));
    const QString reading = found->reading.isEmpty() ? notAvailable({}) : found->reading;
    return found->label + QStringLiteral(": ") + reading;
}

QString labelled(const QString &request, const QString &reading)
{
    return QStringLiteral("%1: %2").arg(panelText(request.toUtf8().constData()), reading);
}

// Of one device, 0 to 100.
QString volumeText(const QJsonObject &device)
{
    const double volume = device.value(QLatin1String("AudioNameszf")).toDouble();
    return volume < 0 ? panelText("its volume cannot be read") : QString::number(volume, 'g', 4);
}

} // namespace

QStringList inspectorRequests(const QString &action)
{
    const QString prefix = QStringLiteral("com.quellor.stream.");
    for (const RequestRow &row : requestRows) {
        if (action == prefix + QLatin1String(row.action))
            return QString::fromLatin1(row.requests).split(QLatin1Char('|'));
    }
    return {};
}

QStringList inspectorQuestions(const QString &action)
{
    QStringList requests = inspectorRequests(action);
    const QString graphics = QStringLiteral("Gpu Model");
    if (requests.value(0).startsWith(QLatin1String("Gpu ")) && !requests.contains(graphics))
        requests.append(graphics);
    return requests;
}

QString InspectorReadings::text(const QString &request) const
{
    const QJsonValue info = m_infos.value(request);
    if (!info.isString())
        return {};
    const QString graphics = m_infos.value(QLatin1String("Gpu Model")).toString();
    const QString missing = missingText(request, info.toString(), graphics);
    return missing.isEmpty() ? infoText(request, info) : missing;
}

bool InspectorReadings::take(const QByteArray &reply)
{
    const QJsonDocument document = QJsonDocument::fromJson(reply);
    if (!document.isObject())
        return false;
    const QJsonObject object = document.object();
    const QJsonValue event = object.value(QLatin1String("event"));
    if (event.isString() && object.contains(QLatin1String("info")))
        m_infos.insert(event.toString(), object.value(QLatin1String("info")));
    else if (!object.isEmpty())
        m_sensors = object; // the one reply without an envelope
    return !object.isEmpty();
}

void InspectorReadings::clear()
{
    m_infos = {};
    m_sensors = {};
}

QString InspectorReadings::driveLines() const
{
    QStringList lines;
    const QJsonArray drives = m_infos.value(QLatin1String("drives")).toArray();
    for (const QJsonValue &value : drives) {
        const QJsonObject drive = value.toObject();
        lines.append(panelText("%1: %2 GB free, %3 %")
                         .arg(drive.value(QLatin1String("driveName")).toString())
                         .arg(drive.value(QLatin1String("freeSpaceGB")).toInt())
                         .arg(drive.value(QLatin1String("freeSpacePercent")).toInt()));
        if (lines.size() == mostLines)
            break;
    }
    const QString free = text(QStringLiteral("totalDisksFreeSpace"));
    const QString total = text(QStringLiteral("totalDisksTotalSpace"));
    if (m_infos.value(QLatin1String("totalDisksTotalSpace")) == QLatin1String("0"))
        lines.append(total);
    else if (!free.isEmpty() && !total.isEmpty())
        lines.append(panelText("All: %1 free of %2").arg(free, total));
    return lines.join(QLatin1Char('\n'));
}

QString InspectorReadings::deviceLines() const
{
    QStringList lines;
    const QString volume = text(QStringLiteral("defaultAudioEndpointVolume"));
    if (!volume.isEmpty())
        lines.append(panelText("Default device: %1").arg(volume));
    const QJsonArray devices = m_infos.value(QLatin1String("AllAudioEndpointVolume")).toArray();
    for (const QJsonValue &value : devices) {
        const QJsonObject device = value.toObject();
        lines.append(QStringLiteral("%1: %2").arg(
            device.value(QLatin1String("AudioNames")).toString(), volumeText(device)));
        if (lines.size() > mostLines)
            break;
    }
    return lines.join(QLatin1Char('\n'));
}

QString InspectorReadings::previewText(const QString &action, const EntrySettings &settings) const
{
    const QStringList requests = inspectorRequests(action);
    if (requests.contains(QStringLiteral("drives")))
        return driveLines();
    if (requests.contains(QStringLiteral("AllAudioEndpointVolume")))
        return deviceLines();
    if (requests.contains(QStringLiteral("Disk Temperature"))) {
        const QJsonValue disks = m_infos.value(QLatin1String("Disk Temperature"));
        return disks.isObject()
                   ? readingOf(disksFrom(disks.toObject()), settings.selectPhysicalDisk)
                   : QString();
    }
    if (requests.contains(QStringLiteral("GetAllSensorsData")))
        return m_sensors.isEmpty() ? QString()
                                   : readingOf(sensorsFrom(m_sensors), settings.selectValue);
    QStringList lines;
    for (const QString &request : requests) {
        const QString line = text(request);
        if (!line.isEmpty())
            lines.append(requests.size() > 1 ? labelled(request, line) : line);
    }
    return lines.join(QLatin1Char('\n'));
}

} // namespace deck
