#include "SDK/LaunchParameters.h"

#include "json/ParseJson.h"

#include <QJsonObject>
#include <QLatin1String>

namespace {

constexpr int expectedArguments = 9;

LaunchParameters readPairs(const char *const *argv)
{
    LaunchParameters parameters;
    for (int i = 1; i + 1 < expectedArguments; i += 2) {
        const QString name = QString::fromLatin1(argv[i]);
        const QString value = QString::fromLatin1(argv[i + 1]);
        if (name == QLatin1String("-port"))
            parameters.port = value.toInt();
        else if (name == QLatin1String("-pluginUUID"))
            parameters.pluginUUID = value;
        else if (name == QLatin1String("-registerEvent"))
            parameters.registerEvent = value;
        else if (name == QLatin1String("-info"))
            parameters.info = value;
    }
    return parameters;
}

QString firstFault(const LaunchParameters &parameters)
{
    if (parameters.port == 0)
        return QStringLiteral("Invalid port number");
    if (parameters.pluginUUID.isEmpty())
        return QStringLiteral("Invalid plugin UUID");
    if (parameters.registerEvent.isEmpty())
        return QStringLiteral("Invalid registerEvent");
    if (parameters.info.isEmpty())
        return QStringLiteral("Invalid info");
    return {};
}

} // namespace

LaunchParametersResult parseLaunchParameters(int argc, const char *const *argv)
{
    // Compatibility: nine-arguments
    if (argc != expectedArguments)
        return {{}, QStringLiteral("Invalid number of parameters %1 instead of 9").arg(argc)};
    const LaunchParameters parameters = readPairs(argv);
    return {parameters, firstFault(parameters)};
}

QString languageFromInfo(const QString &info)
{
    const QJsonObject application =
        parseJson(info.toUtf8()).object().value(QLatin1String("application")).toObject();
    return application.value(QLatin1String("language")).toString(QStringLiteral("en"));
}
