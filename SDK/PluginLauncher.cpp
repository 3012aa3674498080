#include "SDK/PluginLauncher.h"

#include "SDK/BasePlugin.h"
#include "SDK/ConnectionManager.h"
#include "SDK/LanguageFile.h"
#include "SDK/LaunchParameters.h"
#include "SDK/Logger/Logger.h"

#include <QPointer>

namespace {

QPointer<ConnectionManager> theConnectionManager;

QString readLanguage(const QString &info)
{
    QString language = QStringLiteral("en");
    try {
        language = languageFromInfo(info);
        LogDebug(labelled("language: ", language));
    } catch (...) { // NOLINT(bugprone-empty-catch): a language is not worth a failed start
    }
    return language;
}

} // namespace

int launchPlugin(int argc, char **argv, BasePlugin *plugin)
{
    const LaunchParametersResult launch = parseLaunchParameters(argc, argv);
    if (!launch.error.isEmpty()) {
        LogDebug(launch.error);
        return 1;
    }
    const LaunchParameters &parameters = launch.parameters;

    LanguageFile::create(readLanguage(parameters.info));

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
