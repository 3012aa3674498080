#include "SDK/HostMessages.h"

#include <QJsonDocument>

namespace {

QJsonObject command(const QString &event, const QString &context, const QJsonObject &payload)
{
    return {{QStringLiteral("event"), event},
            {QStringLiteral("context"), context},
            {QStringLiteral("payload"), payload}};
}

QJsonObject keyPayload(const QString &member, const QString &value, int target, int state)
{
    QJsonObject payload{{member, value}, {QStringLiteral("target"), target}};
    if (state >= 0)
        payload.insert(QStringLiteral("state"), state);
    return payload;
}

QString withPrefix(const QString &image)
{
    const QLatin1String prefix("data:image/png;base64,");
    return image.isEmpty() || image.startsWith(prefix) ? image : prefix + image;
}

} // namespace

namespace hostmessages {

QJsonObject registration(const QString &registerEvent, const QString &pluginUUID)
{
    return {{QStringLiteral("event"), registerEvent}, {QStringLiteral("uuid"), pluginUUID}};
}

QJsonObject setTitle(const QString &title, const QString &context, int target, int state)
{
    return command(QStringLiteral("setTitle"), context,
                   keyPayload(QStringLiteral("title"), title, target, state));
}

QJsonObject setImage(const QString &image, const QString &context, int target, int state)
{
    return command(QStringLiteral("setImage"), context,
                   keyPayload(QStringLiteral("image"), withPrefix(image), target, state));
}

QJsonObject setSettings(const QJsonObject &payload, const QString &context)
{
    return command(QStringLiteral("setSettings"), context, payload);
}

QString compact(const QJsonObject &message)
{
    return QString::fromUtf8(QJsonDocument(message).toJson(QJsonDocument::Compact));
}

} // namespace hostmessages
