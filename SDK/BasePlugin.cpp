#include "SDK/BasePlugin.h"

BasePlugin::BasePlugin(QObject *parent)
    : QObject(parent)
{
}

void BasePlugin::SetConnectionManager(ConnectionManager *connectionManager)
{
    mConnectionManager = connectionManager;
}

void BasePlugin::DidReceiveGlobalSettings(const QJsonObject & /*payload*/) {}

void BasePlugin::DidReceiveSettings(const QString & /*action*/, const QString & /*context*/,
                                    const QJsonObject & /*payload*/, const QString & /*deviceId*/)
{
}

void BasePlugin::KeyDownForAction(const QString & /*action*/, const QString & /*context*/,
                                  const QJsonObject & /*payload*/, const QString & /*deviceId*/)
{
}

void BasePlugin::KeyUpForAction(const QString & /*action*/, const QString & /*context*/,
                                const QJsonObject & /*payload*/, const QString & /*deviceId*/)
{
}

void BasePlugin::DialPressForAction(const QString & /*action*/, const QString & /*context*/,
                                    const QJsonObject & /*payload*/, const QString & /*deviceId*/)
{
}

void BasePlugin::DialRotateForAction(const QString & /*action*/, const QString & /*context*/,
                                     const QJsonObject & /*payload*/, const QString & /*deviceId*/)
{
}

void BasePlugin::WillAppearForAction(const QString & /*action*/, const QString & /*context*/,
                                     const QJsonObject & /*payload*/, const QString & /*deviceId*/)
{
}

void BasePlugin::WillDisappearForAction(const QString & /*action*/, const QString & /*context*/,
                                        const QJsonObject & /*payload*/,
                                        const QString & /*deviceId*/)
{
}

void BasePlugin::DeviceDidConnect(const QString & /*deviceId*/, const QJsonObject & /*deviceInfo*/)
{
}

void BasePlugin::DeviceDidDisconnect(const QString & /*deviceId*/) {}

void BasePlugin::SystemDidWakeUp() {}

void BasePlugin::SendToPlugin(const QString & /*action*/, const QString & /*context*/,
                              const QJsonObject & /*payload*/, const QString & /*deviceId*/)
{
}

void BasePlugin::TitleParametersDidChange(const QString & /*action*/, const QString & /*context*/,
                                          const QJsonObject & /*payload*/,
                                          const QString & /*deviceId*/)
{
}

void BasePlugin::PropertyInspectorDidAppear(const QString & /*action*/, const QString & /*context*/,
                                            const QJsonObject & /*payload*/,
                                            const QString & /*deviceId*/)
{
}

void BasePlugin::PropertyInspectorDidDisAppear(const QString & /*action*/,
                                               const QString & /*context*/,
                                               const QJsonObject & /*payload*/,
                                               const QString & /*deviceId*/)
{
}

void BasePlugin::GetDetectedSensorsData() {}

void BasePlugin::HwInfoPortMsg(const QString & /*message*/) {}
