#include "deck_simulator/options/SimulatorOptions.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFileInfo>
#include <QHash>

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

namespace deck {

namespace {

constexpr int usageError = 2;
constexpr double longestRun = 24.0 * 60 * 60; // seconds

const QCommandLineOption &pluginOption()
{
    static const QCommandLineOption option(
        QStringLiteral("plugin"),
        QStringLiteral("The plugin's executable. Default: QtSystemMonitor beside this program."),
        QStringLiteral("PATH"));
    return option;
}

const QCommandLineOption &headlessOption()
{
    static const QCommandLineOption option(
        QStringLiteral("headless"),
        QStringLiteral("Open no window: the deck is a table in the terminal. So it is without a "
                       "display, and with the options below that are for the terminal."));
    return option;
}

const QCommandLineOption &windowOption()
{
    static const QCommandLineOption option(
        QStringLiteral("window"),
        QStringLiteral("Open the window although no display can be seen."));
    return option;
}

const QCommandLineOption &profileOption()
{
    static const QCommandLineOption option(
        QStringLiteral("profile"),
        QStringLiteral("The file in which the window keeps its keys and their settings. Default: "
                       "deck.json in the user's configuration folder."),
        QStringLiteral("FILE"));
    return option;
}

const QCommandLineOption &screenshotOption()
{
    static const QCommandLineOption option(
        QStringLiteral("screenshot"),
        QStringLiteral("Write a picture of the window to this file, then end."),
        QStringLiteral("FILE.png"));
    return option;
}

const QCommandLineOption &colorsOption()
{
    static const QCommandLineOption option(
        QStringLiteral("colors"),
        QStringLiteral("The window's colours: \"light\" or \"dark\". Default: the desktop's."),
        QStringLiteral("NAME"));
    return option;
}

const QCommandLineOption &textSizeOption()
{
    static const QCommandLineOption option(
        QStringLiteral("text-size"),
        QStringLiteral("The window's texts in percent of the usual size, 50 to 300. Default: 100."),
        QStringLiteral("N"), QStringLiteral("100"));
    return option;
}

const QCommandLineOption &selectOption()
{
    static const QCommandLineOption option(
        QStringLiteral("select"),
        QStringLiteral("The key that the window begins with, both from 0. Default: 0,0."),
        QStringLiteral("COLUMN,ROW"), QStringLiteral("0,0"));
    return option;
}

const QCommandLineOption &languageOption()
{
    static const QCommandLineOption option(
        QStringLiteral("language"),
        QStringLiteral("The host's language, such as en or zh_CN. Default: en."),
        QStringLiteral("CODE"), QStringLiteral("en"));
    return option;
}

const QCommandLineOption &fontOption()
{
    static const QCommandLineOption option(
        QStringLiteral("font"),
        QStringLiteral("A font file to offer to the plugin; may be repeated. Default: the files of "
                       "the Roboto family in this machine's font folders."),
        QStringLiteral("FILE"));
    return option;
}

const QCommandLineOption &deckOption()
{
    static const QCommandLineOption option(
        QStringLiteral("deck"),
        QStringLiteral("What the keys show: \"readings\" for what every machine has, \"kinds\" "
                       "for one key per action, \"settings\" for one key per setting and font, or "
                       "\"empty\". Default: readings."),
        QStringLiteral("NAME"), QStringLiteral("readings"));
    return option;
}

std::optional<Deck> deckNamed(const QString &name)
{
    static const QHash<QString, Deck> decks{{QStringLiteral("readings"), Deck::Readings},
                                            {QStringLiteral("kinds"), Deck::Kinds},
                                            {QStringLiteral("settings"), Deck::Settings},
                                            {QStringLiteral("empty"), Deck::Empty}};
    const auto deck = decks.constFind(name);
    return deck == decks.constEnd() ? std::nullopt : std::make_optional(*deck);
}

const QCommandLineOption &workFolderOption()
{
    static const QCommandLineOption option(
        QStringLiteral("work-dir"),
        QStringLiteral("The plugin's working folder, made when missing: it holds log.txt, "
                       "plugin-stderr.txt and plugin-stdout.txt. Default: a temporary folder, "
                       "removed at the end unless the plugin failed."),
        QStringLiteral("DIR"));
    return option;
}

const QCommandLineOption &snapshotOption()
{
    static const QCommandLineOption option(
        QStringLiteral("snapshot"),
        QStringLiteral("Write a picture of the deck to this file, then end. The exit status is 1 "
                       "when a key has no picture by then."),
        QStringLiteral("FILE.png"));
    return option;
}

const QCommandLineOption &scriptOption()
{
    static const QCommandLineOption option(
        QStringLiteral("script"),
        QStringLiteral("Play the events in this file, one JSON object a line, then end. The exit "
                       "status is 1 when an expectation in it fails. See docs/simulator.md."),
        QStringLiteral("FILE"));
    return option;
}

const QCommandLineOption &afterOption()
{
    static const QCommandLineOption option(
        QStringLiteral("after"),
        QStringLiteral("When the snapshot or screenshot is taken, counted from the appearance of "
                       "the keys. Default: 4."),
        QStringLiteral("SECONDS"), QStringLiteral("4"));
    return option;
}

const QCommandLineOption &secondsOption()
{
    static const QCommandLineOption option(
        QStringLiteral("seconds"),
        QStringLiteral("End by itself, counted from the appearance of the keys. Default: run until "
                       "interrupted."),
        QStringLiteral("N"));
    return option;
}

const QCommandLineOption &columnsOption()
{
    static const QCommandLineOption option(QStringLiteral("columns"),
                                           QStringLiteral("Keys in a row, 1 to 16. Default: 5."),
                                           QStringLiteral("N"), QStringLiteral("5"));
    return option;
}

const QCommandLineOption &keySizeOption()
{
    static const QCommandLineOption option(
        QStringLiteral("key-size"),
        QStringLiteral("Side of a key on the snapshot in pixels, 32 to 512. Default: 144."),
        QStringLiteral("PX"), QStringLiteral("144"));
    return option;
}

const QCommandLineOption &quietOption()
{
    static const QCommandLineOption option(
        QStringLiteral("quiet"), QStringLiteral("Show no table; errors are still reported."));
    return option;
}

// Reads option values and keeps the first complaint.
class ValueReader
{
public:
    explicit ValueReader(const QCommandLineParser &parser)
        : m_parser(parser)
    {
    }

    int integer(const QCommandLineOption &option, int least, int greatest)
    {
        bool ok = false;
        const int value = m_parser.value(option).toInt(&ok);
        if (!ok || value < least || value > greatest)
            complain(
                option,
                QStringLiteral("must be a whole number from %1 to %2").arg(least).arg(greatest));
        return value;
    }

    QPoint point(const QCommandLineOption &option)
    {
        const QStringList parts = m_parser.value(option).split(QLatin1Char(','));
        bool columnOk = false;
        bool rowOk = false;
        const QPoint value(parts.value(0).toInt(&columnOk), parts.value(1).toInt(&rowOk));
        if (parts.size() != 2 || !columnOk || !rowOk)
            complain(option, QStringLiteral("must be two whole numbers with a comma between"));
        return value;
    }

    std::chrono::milliseconds seconds(const QCommandLineOption &option)
    {
        bool ok = false;
        const double value = m_parser.value(option).toDouble(&ok);
        // Written so that "nan" is refused too.
        if (!ok || !(value > 0 && value <= longestRun)) {
            complain(option, QStringLiteral("must be a number of seconds above 0, at most %1")
                                 .arg(longestRun, 0, 'f', 0));
            return {};
        }
        return std::chrono::milliseconds(qRound64(value * 1000));
    }

    QStringList readableFiles(const QCommandLineOption &option)
    {
        QStringList files = m_parser.values(option);
        for (const QString &file : qAsConst(files)) {
            const QFileInfo info(file);
            if (!info.isFile() || !info.isReadable())
                complain(option, QStringLiteral("names no readable file: %1").arg(file));
        }
        return files;
    }

    QString text(const QCommandLineOption &option)
    {
        QString value = m_parser.value(option);
        if (value.isEmpty() && m_parser.isSet(option))
            complain(option, QStringLiteral("must not be empty"));
        return value;
    }

    void complain(const QString &complaint)
    {
        if (m_error.isEmpty())
            m_error = complaint;
    }

    [[nodiscard]] const QString &error() const { return m_error; }

private:
    void complain(const QCommandLineOption &option, const QString &complaint)
    {
        complain(QStringLiteral("--%1 %2.").arg(option.names().constFirst(), complaint));
    }

    const QCommandLineParser &m_parser;
    QString m_error;
};

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
        &headlessOption(), &deckOption(),    &scriptOption(),  &snapshotOption(),
        &secondsOption(),  &columnsOption(), &keySizeOption(), &quietOption(),
    };
    return std::any_of(
        std::begin(ofTerminal), std::end(ofTerminal),
        [&parser](const QCommandLineOption *option) { return parser.isSet(*option); });
}

ParsedOptions readOptions(const QCommandLineParser &parser, const QString &defaultPlugin)
{
    ValueReader reader(parser);
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
    if (const std::optional<Deck> deck = deckNamed(parser.value(deckOption())))
        options.deck = *deck;
    else
        reader.complain(
            QStringLiteral("--deck is \"readings\", \"kinds\", \"settings\" or \"empty\"."));
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
