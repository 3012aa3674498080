#pragma once

#include <QPoint>
#include <QString>
#include <QStringList>

#include <chrono>
#include <optional>

namespace deck {

/// The initial deck of a run without a window: the metrics that every machine has, every kind of
/// key, a demonstration of settings, or no key.
enum class Deck { Readings, Kinds, Settings, Empty };

/// The deck with this name ("readings", "kinds", "settings" or "empty"); nothing for another name.
std::optional<Deck> builtInDeck(const QString &name);

/// The options of the command line.
struct SimulatorOptions
{
    QString plugin; ///< The plugin's executable.
    /// A run without a window is requested, explicitly or by an option that only makes sense there.
    bool headless = false;
    bool window = false; ///< The window is asked for by name.
    /// The window's profile; empty: the user's own. Without a window, its keys are the initial
    /// deck.
    QString profileFile;
    /// A picture of the window, after which it closes; empty: none.
    QString screenshotFile;
    QString colors;     ///< "light", "dark"; empty: the desktop's.
    int textSize = 100; ///< Of the window, in percent of the desktop's, 50 to 300.
    /// The key that is selected first, counted from 0.
    QPoint selectedKey;
    QString language = QStringLiteral("en");
    bool languageGiven = false; ///< By an option; else the window takes that of its profile.
    QStringList fontFiles;      ///< Empty: the Roboto files of this machine.
    QString workFolder;         ///< Empty: a temporary folder.
    /// The deck that is asked for by name: one of the window's, or one of builtInDeck; empty: none.
    QString deckName;
    Deck deck = Deck::Readings; ///< Without a window, and what a window's new deck begins with.
    QString scriptFile;         ///< Empty: no script.
    QString snapshotFile;       ///< Empty: no snapshot.
    int columns = 5;            ///< Keys in a row, 1 to 16.
    int keySize = 144;          ///< Pixels of a key on the snapshot, 32 to 512.
    bool quiet = false;
    /// When the snapshot or the screenshot is taken, counted from the moment when the keys appear.
    std::chrono::milliseconds snapshotAfter{4000};
    /// When the program ends by itself, counted likewise; if not set, it runs until it is
    /// interrupted.
    std::optional<std::chrono::milliseconds> runFor;
};

/// The options, or a text for the user: a reply (exit status 0) or an error (2).
struct ParsedOptions
{
    std::optional<SimulatorOptions> options;
    QString text;
    int exitStatus = 0;
};

/// \a arguments begins with the program's name. \a defaultPlugin is used without "--plugin". Needs
/// an application object for the answers to "--help" and "--version".
ParsedOptions parseOptions(const QStringList &arguments, const QString &defaultPlugin);

} // namespace deck
