#include "deck_simulator/DeckProfile.h"
#include "deck_simulator/DeckSession.h"
#include "deck_simulator/DisplayPlatform.h"
#include "deck_simulator/FontFiles.h"
#include "deck_simulator/HeadlessRun.h"
#include "deck_simulator/InterruptWatcher.h"
#include "deck_simulator/SimulatorOptions.h"

#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>

#include <cstdio>

namespace {

QString defaultPlugin()
{
    return QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral(PLUGIN_FILE_NAME));
}

SessionSettings sessionSettings(const SimulatorOptions &options)
{
    SessionSettings settings;
    settings.program = QFileInfo(options.plugin).absoluteFilePath();
    settings.language = options.language;
    settings.workFolder = options.workFolder;
    for (const QString &file : options.fontFiles)
        settings.fonts.append(fontFile(file));
    if (settings.fonts.isEmpty())
        settings.fonts = findRobotoFiles(fontFolders());
    return settings;
}

DeckProfile chosenDeck(const SimulatorOptions &options, const QVector<FontFile> &fonts)
{
    return options.settingsDeck ? settingsDeck(options.columns, fontSpecs(fonts))
                                : defaultDeck(options.columns);
}

// A GUI application object would take "--plugin" for itself, so the arguments are read before there
// is one.
ParsedOptions readCommandLine(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("deck_simulator"));
    QCoreApplication::setApplicationVersion(QStringLiteral(SIMULATOR_VERSION));
    return parseOptions(QCoreApplication::arguments(), defaultPlugin());
}

} // namespace

int main(int argc, char *argv[])
{
    const ParsedOptions parsed = readCommandLine(argc, argv);
    if (!parsed.options) {
        std::fputs(qUtf8Printable(parsed.text), parsed.exitStatus == 0 ? stdout : stderr);
        return parsed.exitStatus;
    }

    chooseDisplayPlatform();
    int programNameOnly = 1;
    const QGuiApplication application(programNameOnly, argv);
    const SessionSettings settings = sessionSettings(*parsed.options);
    DeckSession session(settings, chosenDeck(*parsed.options, settings.fonts));
    HeadlessRun run(*parsed.options, &session);
    const InterruptWatcher interrupts;
    QObject::connect(&interrupts, &InterruptWatcher::interrupted, &run, &HeadlessRun::interrupt);
    QObject::connect(&run, &HeadlessRun::finished, &application, &QCoreApplication::exit,
                     Qt::QueuedConnection);
    run.start();
    return QGuiApplication::exec();
}
