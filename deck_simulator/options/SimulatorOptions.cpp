#include "deck_simulator/options/SimulatorOptions.h"

#include "deck_simulator/deck/DeckName.h"
#include "deck_simulator/options/CommandLineOptions.h"
#include "deck_simulator/options/OptionReader.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QHash>

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

namespace deck {

namespace {

constexpr int usageError = 2;

ParsedOptions answer(const QString &text)
{
    return {std::nullopt, text, 0};
}

ParsedOptions refusal(const QString &reason)
{
    const QString hint = QStringLiteral("Use --help for the list of options.");
    return {std::nullopt, reason + QLatin1Char('\n') + hint + QLatin1Char('\n'), usageError};
}

bool isHeadless(const QCommandLineParser &parser)
{
    const QCommandLineOption *const ofTerminal[] = {
        &headlessOption(), &scriptOption(),  &snapshotOption(), &secondsOption(),
        &columnsOption(),  &keySizeOption(), &quietOption(),
    };
    return std::any_of(
        std::begin(ofTerminal), std::end(ofTerminal),
        [&parser](const QCommandLineOption *option) { return parser.isSet(*option); });
}

void refuseCombinations(const QCommandLineParser &parser, OptionReader &reader)
{
    if (!parser.positionalArguments().isEmpty())
        reader.complain(QStringLiteral("Unexpected argument: %1")
                            .arg(parser.positionalArguments().constFirst()));
    if (parser.isSet(snapshotOption()) && parser.isSet(secondsOption()))
        reader.complain(
            QStringLiteral("--snapshot ends the run with --after, not with --seconds."));
    if (parser.isSet(afterOption()) && !parser.isSet(snapshotOption()) &&
        !parser.isSet(screenshotOption()))
        reader.complain(QStringLiteral("--after is used with --snapshot or --screenshot only."));
    if (parser.isSet(screenshotOption()) && isHeadless(parser))
        reader.complain(QStringLiteral("--screenshot needs the window."));
    if (parser.isSet(windowOption()) && isHeadless(parser))
        reader.complain(QStringLiteral("--window and an option for the terminal exclude each "
                                       "other."));
}

void readDeck(const QCommandLineParser &parser, OptionReader &reader, SimulatorOptions &options)
{
    if (!parser.isSet(deckOption()))
        return;
    options.deckName = parser.value(deckOption());
    const std::optional<Deck> deck = builtInDeck(options.deckName);
    const QString fault = deckNameFault(options.deckName);
    if (deck)
        options.deck = *deck;
    else if (options.headless)
        reader.complain(QStringLiteral("--deck is \"readings\", \"kinds\", \"settings\" or "
                                       "\"empty\" in the terminal."));
    else if (!fault.isEmpty())
        reader.complain(QStringLiteral("The name of --deck %1.").arg(fault));
}

ParsedOptions readOptions(const QCommandLineParser &parser, const QString &defaultPlugin)
{
    OptionReader reader(parser);
    refuseCombinations(parser, reader);
    SimulatorOptions options;
    options.headless = isHeadless(parser);
    options.window = parser.isSet(windowOption()) || parser.isSet(screenshotOption());
    options.profileFile = reader.text(profileOption());
    options.screenshotFile = reader.text(screenshotOption());
    options.colors = reader.text(colorsOption());
    if (parser.isSet(colorsOption()) && options.colors != QLatin1String("light") &&
        options.colors != QLatin1String("dark"))
        reader.complain(QStringLiteral("--colors is \"light\" or \"dark\"."));
    options.textSize = reader.integer(textSizeOption(), 50, 300);
    options.selectedKey = reader.point(selectOption());
    options.plugin = parser.isSet(pluginOption()) ? reader.text(pluginOption()) : defaultPlugin;
    options.language = reader.text(languageOption());
    options.languageGiven = parser.isSet(languageOption());
    options.fontFiles = reader.readableFiles(fontOption());
    options.workFolder = reader.text(workFolderOption());
    readDeck(parser, reader, options);
    options.scriptFile = reader.text(scriptOption());
    if (parser.isSet(scriptOption()) &&
        (parser.isSet(snapshotOption()) || parser.isSet(secondsOption())))
        reader.complain(QStringLiteral("--script ends the run by itself and takes its own "
                                       "snapshots."));
    options.snapshotFile = reader.text(snapshotOption());
    options.columns = reader.integer(columnsOption(), 1, 16);
    options.keySize = reader.integer(keySizeOption(), 32, 512);
    options.quiet = parser.isSet(quietOption());
    options.snapshotAfter = reader.seconds(afterOption());
    if (parser.isSet(secondsOption()))
        options.runFor = reader.seconds(secondsOption());
    if (!reader.error().isEmpty())
        return refusal(reader.error());
    return {options, QString(), 0};
}

} // namespace

std::optional<Deck> builtInDeck(const QString &name)
{
    static const QHash<QString, Deck> decks{{QStringLiteral("readings"), Deck::Readings},
                                            {QStringLiteral("kinds"), Deck::Kinds},
                                            {QStringLiteral("settings"), Deck::Settings},
                                            {QStringLiteral("empty"), Deck::Empty}};
    const auto deck = decks.constFind(name);
    return deck == decks.constEnd() ? std::nullopt : std::make_optional(*deck);
}

ParsedOptions parseOptions(const QStringList &arguments, const QString &defaultPlugin)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Plays the host of a control deck: starts the plugin, puts keys on a simulated deck and\n"
        "shows what the plugin draws on them, in a window or in the terminal. It also plays the\n"
        "hardware-information service that the plugin looks for. Ctrl+C ends it.\n\n"
        "Exit status: 0 well; 1 the plugin failed or did not draw; 2 wrong usage."));
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")},
                                  QStringLiteral("Show this text."));
    const QCommandLineOption version = parser.addVersionOption();
    parser.addOption(help);
    parser.addOptions({pluginOption(), languageOption(), fontOption(), workFolderOption(),
                       windowOption(), profileOption(), colorsOption(), textSizeOption(),
                       selectOption(), screenshotOption(), headlessOption(), deckOption(),
                       scriptOption(), snapshotOption(), afterOption(), secondsOption(),
                       columnsOption(), keySizeOption(), quietOption()});
    if (!parser.parse(arguments))
        return refusal(parser.errorText());
    if (parser.isSet(help))
        return answer(parser.helpText());
    if (parser.isSet(version))
        return answer(QStringLiteral("%1 %2\n").arg(QCoreApplication::applicationName(),
                                                    QCoreApplication::applicationVersion()));
    return readOptions(parser, defaultPlugin);
}

} // namespace deck
