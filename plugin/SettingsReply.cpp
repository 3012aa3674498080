#include "plugin/SettingsReply.h"

#include "SDK/Logger/Logger.h"
#include "plugin/KeyKinds.h"
#include "plugin/ReplyParts.h"
#include "plugin/SettingsDraft.h"
#include "render/normalAction.h"
#include "sensors/systemInfor.h"

#include <QJsonArray>

namespace {

QJsonArray fontList()
{
    const int fonts = static_cast<int>(systemInfor::fontlist_one.size());
    LogDebug(labelled("systemInfor::fontlist_one.size(): ", fonts));
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

QJsonObject pictureSize(const normalAction &key)
{
    return {{QStringLiteral("width"), key.imageWidth}, {QStringLiteral("height"), key.imageHeight}};
}

} // namespace

QJsonObject settingsReply(const QJsonObject &settings, const normalAction &key,
                          SettingsOccasion occasion, VqSystemMonitorLib *library)
{
    SettingsDraft draft{key, occasion, library, settings, displaySettings(key)};
    // Compatibility: members-by-occasion
    // When a key appears, it gets the modes whatever its kind; later only if its kind has them.
    if (occasion == SettingsOccasion::WillAppear) {
        replypart::temperatureType(draft);
        replypart::titleLines(draft);
    }
    if (const KeyKind *const kind = findKeyKind(key.GetAction()))
        kind->addToReply(draft);
    draft.parameters.insert(QStringLiteral("FontList"), fontList());
    draft.settings.insert(QStringLiteral("titleParameters"), draft.parameters);
    draft.settings.insert(QStringLiteral("ActionGeometry"), pictureSize(key));
    return draft.settings;
}
