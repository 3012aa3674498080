#pragma once

#include "SDK/BasePlugin.h"

class Action;

/// Routes each key event to the Action of its key instance. An event whose key instance is unknown
/// is a line in the file log. Where the actions are kept is the concrete plugin's concern.
class Plugin : public BasePlugin
{
    Q_OBJECT

public:
    explicit Plugin(QObject *parent = nullptr);

    void DidReceiveSettings(const QString &action, const QString &context,
                            const QJsonObject &payload, const QString &deviceId) override;
    void KeyDownForAction(const QString &action, const QString &context, const QJsonObject &payload,
                          const QString &deviceId) override;
    void KeyUpForAction(const QString &action, const QString &context, const QJsonObject &payload,
                        const QString &deviceId) override;
    /// "pressed" true is DialDown, false or missing is DialUp.
    void DialPressForAction(const QString &action, const QString &context,
                            const QJsonObject &payload, const QString &deviceId) override;
    /// "ticks" below 0 is RotateCounterClockwise with the ticks made positive.
    void DialRotateForAction(const QString &action, const QString &context,
                             const QJsonObject &payload, const QString &deviceId) override;
    void WillAppearForAction(const QString &action, const QString &context,
                             const QJsonObject &payload, const QString &deviceId) override;
    /// A known action is told and then removed.
    void WillDisappearForAction(const QString &action, const QString &context,
                                const QJsonObject &payload, const QString &deviceId) override;
    void SendToPlugin(const QString &action, const QString &context, const QJsonObject &payload,
                      const QString &deviceId) override;

    /// The Action of the key instance, or null when there is none.
    virtual Action *GetOrCreateAction(const QString &action, const QString &context) = 0;
    /// Forgets and disposes of the Action; returns whether there was one.
    virtual bool RemoveAction(const QString &action, const QString &context) = 0;
};
