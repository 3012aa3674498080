#include "deck_simulator/options/CommandLineOptions.h"

namespace deck {

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
                       "deck.json in the user's configuration folder. In the terminal, the file "
                       "whose keys are played; it is not written."),
        QStringLiteral("FILE"));
    return option;
}

const QCommandLineOption &screenshotOption()
{
    static const QCommandLineOption option(
        QStringLiteral("screenshot"),
        QStringLiteral("Write a picture of the window to this file, then end. The suffix chooses "
                       "the format. The profile is not written."),
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
        QStringLiteral(
            "A font file to offer to the plugin; may be repeated. Default: the files of "
            "the Roboto family in this machine's font folders, or else other ones there."),
        QStringLiteral("FILE"));
    return option;
}

const QCommandLineOption &deckOption()
{
    static const QCommandLineOption option(
        QStringLiteral("deck"),
        QStringLiteral(
            "In the window, the deck of this name, which it keeps. In the terminal, what "
            "the keys show: \"readings\" for what every machine has, \"kinds\" for one "
            "key per action, \"settings\" for one key per setting and font, or "
            "\"empty\"; the window's new deck of such a name begins with the same keys. "
            "Default: the window's last deck; readings."),
        QStringLiteral("NAME"));
    return option;
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

} // namespace deck
