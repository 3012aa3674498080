#pragma once

#include "SDK/BasePlugin.h"

class Action;

/// Routes each key event to the Action of its key instance. For an event with an unknown key
/// instance a line is written to the log. The concrete plugin decides where the actions are stored.
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
    /// A known action is notified and then removed.
    void WillDisappearForAction(const QString &action, const QString &context,
                                const QJsonObject &payload, const QString &deviceId) override;
    void SendToPlugin(const QString &action, const QString &context, const QJsonObject &payload,
                      const QString &deviceId) override;

    /// The Action of the key instance, or null when there is none.
    virtual Action *GetOrCreateAction(const QString &action, const QString &context) = 0;
    /// Removes and disposes of the Action; returns whether there was one.
    virtual bool RemoveAction(const QString &action, const QString &context) = 0;
};
