#include "SDK/ConnectionManager.h"
#include "fuzz/FuzzSupport.h"
#include "plugin/SystemMonitorPlugin.h"
#include "render/normalAction.h"
#include "tests/support/FakeHardwareService.h"
#include "tests/support/InMemoryLibrary.h"
#include "json/ParseJson.h"

#include <QJsonObject>
#include <QVector>

// Messages of the host, one per line, and then one pass over the keys.

namespace {

class FuzzedPlugin : public SystemMonitorPlugin
{
public:
    /// With another port the plugin would wait for a service there for seconds.
    void HwInfoPortMsg(const QString & /*message*/) override {}
};

struct Deck
{
    FakeHardwareService service;
    FuzzedPlugin plugin;
    ConnectionManager link{1, QStringLiteral("uuid"), QStringLiteral("registerPlugin"), QString(),
                           &plugin};
};

Deck *deck = nullptr;

struct KeyName
{
    QString action;
    QString context;
};

KeyName keyNameIn(const QString &message)
{
    const QJsonObject object = parseJson(message.toUtf8()).object();
    return {object.value(QLatin1String("action")).toString(),
            object.value(QLatin1String("context")).toString()};
}

void removeKeys(const QVector<KeyName> &names)
{
    for (const KeyName &name : names) {
        deck->plugin.RemoveAction(name.action, name.context);
        fuzz::require(!deck->plugin.FindAction(name.action, name.context));
    }
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int * /*argc*/, char *** /*argv*/)
{
    fuzz::makeApplication();
    fuzz::takeDesktopReadings();
    deck = new Deck;
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    constexpr int mostMessages = 16;
    const QStringList messages = fuzz::textOf(data, size).split(QLatin1Char('\n'));
    QVector<KeyName> names;
    for (const QString &message : messages.mid(0, mostMessages)) {
        deck->link.OnMessage(message);
        names.append(keyNameIn(message));
        if (normalAction *const key =
                deck->plugin.FindAction(names.constLast().action, names.constLast().context))
            fuzz::keepSmall(*key);
    }
    deck->plugin.updateImages();
    removeKeys(names);
    InMemoryLibrary::queries.clear();
    return 0;
}
