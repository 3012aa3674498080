#include "SDK/Plugin.h"

#include "SDK/Action.h"
#include "SDK/Logger/Logger.h"

#include <climits>

namespace {

// Compatibility: missing-action-texts
void logMissingAction(const QString &format, const QString &action, const QString &context)
{
    Logger(format.arg(action, context));
}

/// -INT_MIN is not representable; the largest integer is used instead.
int magnitude(int ticks)
{
    return ticks == INT_MIN ? INT_MAX : -ticks;
}

} // namespace

Plugin::Plugin(QObject *parent)
    : BasePlugin(parent)
{
}

void Plugin::DidReceiveSettings(const QString &action, const QString &context,
                                const QJsonObject &payload, const QString & /*deviceId*/)
{
    if (Action *const key = GetOrCreateAction(action, context))
        key->DidReceiveSettings(payload);
    else
        logMissingAction(QStringLiteral("No action for DidReceiveSettings: %1 %2"), action,
                         context);
}

void Plugin::KeyDownForAction(const QString &action, const QString &context,
                              const QJsonObject &payload, const QString & /*deviceId*/)
{
    if (Action *const key = GetOrCreateAction(action, context))
        key->KeyDown(payload);
    else
        logMissingAction(QStringLiteral("No action for keydown - %1 %2"), action, context);
}

void Plugin::KeyUpForAction(const QString &action, const QString &context,
                            const QJsonObject &payload, const QString & /*deviceId*/)
{
    if (Action *const key = GetOrCreateAction(action, context))
        key->KeyUp(payload);
    else
        logMissingAction(QStringLiteral("No action for keyup - %1 %2"), action, context);
}

void Plugin::DialPressForAction(const QString &action, const QString &context,
                                const QJsonObject &payload, const QString & /*deviceId*/)
{
    Action *const key = GetOrCreateAction(action, context);
    if (!key)
        logMissingAction(QStringLiteral("No action for dialPress - %1 %2"), action, context);
    else if (payload.value(QLatin1String("pressed")).toBool())
        key->DialDown(payload);
    else
        key->DialUp(payload);
}

void Plugin::DialRotateForAction(const QString &action, const QString &context,
                                 const QJsonObject &payload, const QString & /*deviceId*/)
{
    Action *const key = GetOrCreateAction(action, context);
    if (!key) {
        logMissingAction(QStringLiteral("No action for dialRotate - %1 %2"), action, context);
        return;
    }
    const int ticks = payload.value(QLatin1String("ticks")).toInt();
    const bool pressed = payload.value(QLatin1String("pressed")).toBool();
    if (ticks < 0)
        key->RotateCounterClockwise(payload, magnitude(ticks), pressed);
    else
        key->RotateClockwise(payload, ticks, pressed);
}

void Plugin::WillAppearForAction(const QString &action, const QString &context,
                                 const QJsonObject &payload, const QString & /*deviceId*/)
{
    if (Action *const key = GetOrCreateAction(action, context))
        key->WillAppear(payload);
    else
        logMissingAction(QStringLiteral("No action for WillAppear - %1 %2"), action, context);
}

void Plugin::WillDisappearForAction(const QString &action, const QString &context,
                                    const QJsonObject &payload, const QString & /*deviceId*/)
{
    if (Action *const key = GetOrCreateAction(action, context)) {
        key->WillDisappear(payload);
        RemoveAction(action, context);
    } else {
        logMissingAction(QStringLiteral("No action for WillDisappear - %1 %2"), action, context);
    }
}

void Plugin::SendToPlugin(const QString &action, const QString &context, const QJsonObject &payload,
                          const QString & /*deviceId*/)
{
    if (Action *const key = GetOrCreateAction(action, context))
        key->SendToPlugin(payload);
    else
        logMissingAction(QStringLiteral("Received plugin request for unknown action %1 %2"), action,
                         context);
}
