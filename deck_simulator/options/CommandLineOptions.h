#pragma once

#include <QCommandLineOption>

namespace deck {

/// The options of the command line, with the texts that "--help" shows.
const QCommandLineOption &pluginOption();
const QCommandLineOption &headlessOption();
const QCommandLineOption &windowOption();
const QCommandLineOption &profileOption();
const QCommandLineOption &screenshotOption();
const QCommandLineOption &colorsOption();
const QCommandLineOption &textSizeOption();
const QCommandLineOption &selectOption();
const QCommandLineOption &languageOption();
const QCommandLineOption &fontOption();
const QCommandLineOption &deckOption();
const QCommandLineOption &workFolderOption();
const QCommandLineOption &snapshotOption();
const QCommandLineOption &scriptOption();
const QCommandLineOption &afterOption();
const QCommandLineOption &secondsOption();
const QCommandLineOption &columnsOption();
const QCommandLineOption &keySizeOption();
const QCommandLineOption &quietOption();

} // namespace deck
