#include "SDK/PluginLauncher.h"

#include "SDK/BasePlugin.h"
#include "SDK/ConnectionManager.h"
#include "SDK/LanguageFile.h"
#include "SDK/LaunchParameters.h"
#include "SDK/Logger/Logger.h"

#include <QPointer>

namespace {

QPointer<ConnectionManager> theConnectionManager;

} // namespace

int launchPlugin(int argc, char **argv, BasePlugin *plugin)
{
    const LaunchParametersResult launch = parseLaunchParameters(argc, argv);
    if (!launch.error.isEmpty()) {
        LogDebug(launch.error);
        return 1;
    }
    const LaunchParameters &parameters = launch.parameters;

    const QString language = languageFromInfo(parameters.info);
    LogDebug(labelled("language: ", language));
    LanguageFile::create(language);

    // It dies with the plugin.
    theConnectionManager = new ConnectionManager(parameters.port, parameters.pluginUUID,
                                                 parameters.registerEvent, parameters.info, plugin);
    theConnectionManager->Run();
    return 0;
}

ConnectionManager *processConnectionManager()
{
    return theConnectionManager;
}
