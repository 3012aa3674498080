#pragma once

#include <QJsonObject>
#include <QObject>
#include <QString>

class ConnectionManager;

/// What the host link calls for every host event, on the main thread. Each operation does nothing
/// here. Key events carry the action UUID, the context of the key instance, the event's payload and
/// the device identifier.
class BasePlugin : public QObject
{
    Q_OBJECT

public:
    explicit BasePlugin(QObject *parent = nullptr);

    /// Called once by the constructor of the ConnectionManager, which is not owned.
    void SetConnectionManager(ConnectionManager *connectionManager);

    virtual void DidReceiveGlobalSettings(const QJsonObject &payload);
    virtual void DidReceiveSettings(const QString &action, const QString &context,
                                    const QJsonObject &payload, const QString &deviceId);
    virtual void KeyDownForAction(const QString &action, const QString &context,
                                  const QJsonObject &payload, const QString &deviceId);
    virtual void KeyUpForAction(const QString &action, const QString &context,
                                const QJsonObject &payload, const QString &deviceId);
    virtual void DialPressForAction(const QString &action, const QString &context,
                                    const QJsonObject &payload, const QString &deviceId);
    virtual void DialRotateForAction(const QString &action, const QString &context,
                                     const QJsonObject &payload, const QString &deviceId);
    virtual void WillAppearForAction(const QString &action, const QString &context,
                                     const QJsonObject &payload, const QString &deviceId);
    virtual void WillDisappearForAction(const QString &action, const QString &context,
                                        const QJsonObject &payload, const QString &deviceId);
    virtual void DeviceDidConnect(const QString &deviceId, const QJsonObject &deviceInfo);
    virtual void DeviceDidDisconnect(const QString &deviceId);
    virtual void SystemDidWakeUp();
    virtual void SendToPlugin(const QString &action, const QString &context,
                              const QJsonObject &payload, const QString &deviceId);
    virtual void TitleParametersDidChange(const QString &action, const QString &context,
                                          const QJsonObject &payload, const QString &deviceId);
    virtual void PropertyInspectorDidAppear(const QString &action, const QString &context,
                                            const QJsonObject &payload, const QString &deviceId);
    virtual void PropertyInspectorDidDisAppear(const QString &action, const QString &context,
                                               const QJsonObject &payload, const QString &deviceId);
    virtual void GetDetectedSensorsData();
    /// \a message is the whole raw text of the "hwInfoPort" message.
    virtual void HwInfoPortMsg(const QString &message);

protected:
    ConnectionManager *mConnectionManager = nullptr;
};
