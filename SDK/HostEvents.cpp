#include "SDK/HostEvents.h"

#include "SDK/BasePlugin.h"
#include "SDK/Logger/Logger.h"
#include "json/ParseJson.h"

#include <QJsonObject>

#include <algorithm>
#include <iterator>

namespace {

struct HostMessage
{
    QString text; ///< The whole raw message.
    QString event;
    QString action;
    QString context;
    QString device;
    QJsonObject payload;
    QJsonObject deviceInfo;
};

HostMessage parse(const QString &text)
{
    const QJsonObject root = parseJson(text.toUtf8()).object();
    return {text,
            root.value(QLatin1String("event")).toString(),
            root.value(QLatin1String("action")).toString(),
            root.value(QLatin1String("context")).toString(),
            root.value(QLatin1String("device")).toString(),
            root.value(QLatin1String("payload")).toObject(),
            root.value(QLatin1String("deviceInfo")).toObject()};
}

using KeyOperation = void (BasePlugin::*)(const QString &, const QString &, const QJsonObject &,
                                          const QString &);

template <KeyOperation operation>
void keyEvent(BasePlugin &plugin, const HostMessage &message)
{
    (plugin.*operation)(message.action, message.context, message.payload, message.device);
}

void willAppear(BasePlugin &plugin, const HostMessage &message)
{
    if (!message.action.isEmpty())
        keyEvent<&BasePlugin::WillAppearForAction>(plugin, message);
}

void globalSettings(BasePlugin &plugin, const HostMessage &message)
{
    plugin.DidReceiveGlobalSettings(message.payload);
}

void deviceDidConnect(BasePlugin &plugin, const HostMessage &message)
{
    plugin.DeviceDidConnect(message.device, message.deviceInfo);
}

void deviceDidDisconnect(BasePlugin &plugin, const HostMessage &message)
{
    plugin.DeviceDidDisconnect(message.device);
}

void systemDidWakeUp(BasePlugin &plugin, const HostMessage & /*message*/)
{
    plugin.SystemDidWakeUp();
}

void detectedSensorsData(BasePlugin &plugin, const HostMessage & /*message*/)
{
    plugin.GetDetectedSensorsData();
}

void ignored(BasePlugin & /*plugin*/, const HostMessage & /*message*/) {}

void hwInfoPort(BasePlugin &plugin, const HostMessage &message)
{
    LogDebug(labelled("hwInfoPort: ", message.text));
    plugin.HwInfoPortMsg(message.text);
}

struct EventRow
{
    const char *event;
    void (*call)(BasePlugin &, const HostMessage &);
};

// Compatibility: event-capitals
/// The last three are extra messages on the same link; their capitals differ on the wire.
constexpr EventRow eventTable[] = {
    {"keyDown", keyEvent<&BasePlugin::KeyDownForAction>},
    {"keyUp", keyEvent<&BasePlugin::KeyUpForAction>},
    {"willAppear", willAppear},
    {"willDisappear", keyEvent<&BasePlugin::WillDisappearForAction>},
    {"didReceiveSettings", keyEvent<&BasePlugin::DidReceiveSettings>},
    {"didReceiveGlobalSettings", globalSettings},
    {"deviceDidConnect", deviceDidConnect},
    {"deviceDidDisconnect", deviceDidDisconnect},
    {"sendToPlugin", keyEvent<&BasePlugin::SendToPlugin>},
    {"systemDidWakeUp", systemDidWakeUp},
    {"dialPress", keyEvent<&BasePlugin::DialPressForAction>},
    {"dialRotate", keyEvent<&BasePlugin::DialRotateForAction>},
    {"titleParametersDidChange", keyEvent<&BasePlugin::TitleParametersDidChange>},
    {"propertyInspectorDidAppear", keyEvent<&BasePlugin::PropertyInspectorDidAppear>},
    {"propertyInspectorDidDisappear", keyEvent<&BasePlugin::PropertyInspectorDidDisAppear>},
    {"getDetectedSensorsData", detectedSensorsData},
    {"GetAudioDevList", ignored},
    {"hwInfoPort", hwInfoPort},
};

} // namespace

void dispatchHostEvent(const QString &text, BasePlugin &plugin)
{
    const HostMessage message = parse(text);
    const auto row = std::find_if(std::begin(eventTable), std::end(eventTable),
                                  [&message](const EventRow &candidate) {
                                      return message.event == QLatin1String(candidate.event);
                                  });
    if (row != std::end(eventTable))
        row->call(plugin, message);
}
