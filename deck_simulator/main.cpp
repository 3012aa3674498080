#include "deck_simulator/deck/DeckProfile.h"
#include "deck_simulator/deck/DeckShelf.h"
#include "deck_simulator/gui/DeckGrid.h"
#include "deck_simulator/gui/DeckWindow.h"
#include "deck_simulator/gui/WindowStyle.h"
#include "deck_simulator/host/DeckSession.h"
#include "deck_simulator/options/DisplayPlatform.h"
#include "deck_simulator/options/PlatformNoise.h"
#include "deck_simulator/options/RunMode.h"
#include "deck_simulator/options/SimulatorOptions.h"
#include "deck_simulator/process/FontFiles.h"
#include "deck_simulator/terminal/HeadlessRun.h"
#include "deck_simulator/terminal/InterruptWatcher.h"
#include "deck_simulator/terminal/PlayedProfile.h"
#include "qt/QtVersions.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QIcon>
#include <QStandardPaths>

#include <algorithm>
#include <cstdio>

using namespace deck;

namespace {

QString defaultPlugin()
{
    return QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral(PLUGIN_FILE_NAME));
}

constexpr int mostOtherFonts = 16; // they travel in a command line
constexpr int windowColumns = 8;

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
    if (settings.fonts.isEmpty())
        settings.fonts = findFontFiles(fontFolders(), mostOtherFonts);
    return settings;
}

DeckProfile chosenDeck(const SimulatorOptions &options, int columns, const QVector<FontFile> &fonts)
{
    switch (options.deck) {
    case Deck::Kinds:
        return kindsDeck(columns);
    case Deck::Settings:
        return settingsDeck(columns, fontSpecs(fonts));
    case Deck::Empty:
        return emptyDeck(columns);
    case Deck::Readings:
        break;
    }
    return defaultDeck(columns, options.keySize);
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

void complain(const QString &text)
{
    std::fputs(qPrintable(QStringLiteral("deck_simulator: %1\n").arg(text)), stderr);
}

// The exit status of wrong usage.
int refuse(const QString &reason)
{
    complain(reason);
    return 2;
}

constexpr qint64 longestScript = 1 << 20; // bytes

ParsedScript readScript(const QString &name)
{
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly))
        return {{}, file.errorString()};
    if (file.size() > longestScript)
        return {{}, QStringLiteral("it is too long")};
    ParsedScript script = parseScript(file.readAll());
    // Machines lie beside the script.
    for (ScriptStep &step : script.steps) {
        if (step.kind == ScriptStep::Kind::Machine)
            step.file = QFileInfo(name).absoluteDir().absoluteFilePath(step.file);
    }
    return script;
}

// A deck that is named is played instead.
bool playsProfile(const SimulatorOptions &options)
{
    return !options.profileFile.isEmpty() && options.deckName.isEmpty();
}

void takeLaunchChoices(const LaunchChoices &launch, const SimulatorOptions &options,
                       SessionSettings &settings)
{
    if (!options.languageGiven)
        settings.language = launch.language;
    settings.quoteStripped = launch.quoteStripped;
    if (!launch.recording.isEmpty())
        settings.recording = launch.recording;
}

int runHeadless(const SimulatorOptions &options, int &argc, char *argv[])
{
    ParsedScript script;
    if (!options.scriptFile.isEmpty())
        script = readScript(options.scriptFile);
    if (!script.error.isEmpty())
        return refuse(QStringLiteral("The script %1 cannot be played:\n%2")
                          .arg(options.scriptFile, script.error));
    const QGuiApplication application(argc, argv);
    SessionSettings settings = sessionSettings(options);
    DeckProfile deck = chosenDeck(options, options.columns, settings.fonts);
    if (playsProfile(options)) {
        const PlayedProfile profile = readPlayedProfile(options.profileFile);
        if (!profile.error.isEmpty())
            return refuse(profile.error);
        deck = profile.deck;
        takeLaunchChoices(profile.launch, options, settings);
    }
    settings.changesRecording =
        std::any_of(script.steps.begin(), script.steps.end(),
                    [](const ScriptStep &step) { return step.kind == ScriptStep::Kind::Machine; });
    DeckSession session(settings, deck);
    HeadlessRun run(options, &session);
    run.setScript(script.steps);
    const InterruptWatcher interrupts;
    QObject::connect(&interrupts, &InterruptWatcher::interrupted, &run, &HeadlessRun::interrupt);
    QObject::connect(&run, &HeadlessRun::finished, &application, &QCoreApplication::exit,
                     Qt::QueuedConnection);
    run.start();
    return QGuiApplication::exec();
}

QString userProfile()
{
    return QDir(QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation))
        .filePath(QStringLiteral("deck.json"));
}

// A profile that is named is opened itself, not the deck beside it that was open last.
void chooseDeck(const SimulatorOptions &options, WindowSettings &settings)
{
    settings.deckName = options.deckName;
    if (options.deckName.isEmpty() && options.profileFile.isEmpty())
        settings.deckName = DeckShelf(settings.profileFile).last();
    if (builtInDeck(options.deckName))
        settings.freshDeck =
            profileWith(chosenDeck(options, windowColumns, settings.session.fonts));
}

int refuseDeck(const QString &name)
{
    return refuse(
        QStringLiteral("The deck \"%1\" needs the window, and no display can be seen. Use "
                       "--window to open it anyway.")
            .arg(name));
}

int refuseKey(const QSize &grid)
{
    return refuse(QStringLiteral("--select names no key of the deck, which has %1 columns and %2 "
                                 "rows.")
                      .arg(grid.width())
                      .arg(grid.height()));
}

int runWindow(const SimulatorOptions &options, int &argc, char *argv[])
{
    scaleWindowsForHighDpi();
    // Rounded to whole numbers, a desktop's 150 % would be 200 % for all but the text.
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(
        Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    const QApplication application(argc, argv);
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/window.ico")));
    applyColors(options.colors);
    applyTextSize(options.textSize);
    WindowSettings settings;
    settings.session = sessionSettings(options);
    settings.profileFile = options.profileFile.isEmpty() ? userProfile() : options.profileFile;
    if (options.languageGiven)
        settings.language = options.language;
    settings.keepsProfile = options.screenshotFile.isEmpty();
    chooseDeck(options, settings);
    DeckWindow window(settings);
    const DeckPlace selected{options.selectedKey.x(), options.selectedKey.y()};
    if (window.grid()->cell(selected) == nullptr)
        return refuseKey(window.model()->grid());
    const InterruptWatcher interrupts;
    QObject::connect(&interrupts, &InterruptWatcher::interrupted, &window, &QWidget::close);
    if (!options.screenshotFile.isEmpty())
        window.takeScreenshot(options.screenshotFile, options.snapshotAfter);
    window.grid()->setCurrent(selected);
    window.show();
    window.start();
    const int status = QApplication::exec();
    if (window.failure().isEmpty())
        return status;
    complain(window.failure());
    return 1;
}

} // namespace

int main(int argc, char *argv[])
{
    const ParsedOptions parsed = readCommandLine(argc, argv);
    if (!parsed.options) {
        std::fputs(qUtf8Printable(parsed.text), parsed.exitStatus == 0 ? stdout : stderr);
        return parsed.exitStatus;
    }
    const bool window = opensWindow(*parsed.options, hasDisplay());
    chooseDisplayPlatform();
    silencePlatformNoise();
    const QString deck = parsed.options->deckName;
    if (!window && !deck.isEmpty() && !builtInDeck(deck))
        return refuseDeck(deck);
    int programNameOnly = 1;
    return window ? runWindow(*parsed.options, programNameOnly, argv)
                  : runHeadless(*parsed.options, programNameOnly, argv);
}
