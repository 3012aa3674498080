#include "system_monitor_lib/recorded/Recording.h"

#include "json/ParseJson.h"

#include <QJsonDocument>

namespace {

struct Member
{
    const char *name;
    Query query;
};

constexpr std::array<Member, queryCount> members{{
    {"getSystemInfo", Query::SystemInfo},
    {"getMemoryTimingsInfo", Query::MemoryTimingsInfo},
    {"getCPUInfo", Query::CpuInfo},
    {"getCPUDTSInfo", Query::CpuDtsInfo},
    {"getCPUEnhancedInfo", Query::CpuEnhancedInfo},
    {"getGPUInfo", Query::GpuInfo},
    {"getNetworkInfo", Query::NetworkInfo},
    {"getSMARTInfo", Query::SmartInfo},
    {"getPresentMon", Query::PresentMon},
    {"getAllSensorsData", Query::AllSensorsData},
}};

} // namespace

std::variant<Recording, QString> parseRecording(const QByteArray &json)
{
    QJsonParseError error{};
    const QJsonDocument document = parseJson(json, &error);
    if (error.error != QJsonParseError::NoError)
        return QStringLiteral("%1 at byte %2").arg(error.errorString()).arg(error.offset);
    if (!document.isObject())
        return QStringLiteral("the outermost value is not an object");

    const QJsonObject root = document.object();
    Recording recording;
    for (const Member &member : members) {
        const QJsonValue value = root.value(QLatin1String(member.name));
        if (value.isObject())
            recording.trees.add(member.query, value.toObject());
        else if (!value.isUndefined())
            recording.remarks +=
                QStringLiteral("%1 is not an object").arg(QLatin1String(member.name));
    }
    return recording;
}

QJsonObject recordingOf(const SensorTrees &trees)
{
    QJsonObject root;
    for (const Member &member : members) {
        const QJsonObject &tree = trees.tree(member.query);
        if (!tree.isEmpty())
            root.insert(QLatin1String(member.name), tree);
    }
    return root;
}
