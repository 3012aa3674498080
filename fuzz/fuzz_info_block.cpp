#include "SDK/LanguageFile.h"
#include "SDK/LanguageUtilities.h"
#include "SDK/LaunchParameters.h"
#include "fuzz/FuzzSupport.h"
#include "render/FontRegistry.h"
#include "shell/ApplicationBootstrap.h"

#include <QStringList>

#include <vector>

// The command line, one argument per line, with its info block: language and fonts.

namespace {

void readInfo(const QString &info)
{
    for (const fontregistry::FontFile &file : fontregistry::loadFontList(info))
        fontregistry::recordsOf(file.name, {file.name, QString()}, file.url);
    LanguageUtilities *const languages = LanguageUtilities::instance();
    const QString code = languageFromInfo(info);
    languages->SetLanguage(code);
    fuzz::require(languages->languages().contains(languages->currentLanguage()));
    languages->Translate(QStringLiteral("CPU"), info, code);
    const LanguageFile file(code);
}

LaunchParameters readArguments(const QByteArray &input)
{
    const QList<QByteArray> lines = input.split('\n');
    std::vector<const char *> arguments;
    arguments.reserve(static_cast<std::size_t>(lines.size()));
    for (const QByteArray &line : lines)
        arguments.push_back(line.constData());
    const int count = static_cast<int>(arguments.size());
    const LaunchParametersResult result = parseLaunchParameters(count, arguments.data());
    fuzz::require(!result.error.isEmpty() || result.parameters.port != 0);
    return result.parameters;
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int * /*argc*/, char *** /*argv*/)
{
    fuzz::makeApplication();
    LanguageUtilities::instance()->LoadLanguages();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray input = fuzz::bytesOf(data, size);
    const QString text = QString::fromUtf8(input);
    ApplicationBootstrap::languageFromArguments(text.split(QLatin1Char('\n')));
    const LaunchParameters parameters = readArguments(input);
    readInfo(parameters.info.isEmpty() ? text : parameters.info);
    return 0;
}
