#pragma once

#include <QObject>
#include <QStringList>

/// What the program does between its application object and its window, all of it in the
/// constructor: it logs the command line, picks the language, loads the translations and ends
/// leftover copies of itself when none of them serves.
class ApplicationBootstrap : public QObject
{
    Q_OBJECT

public:
    ApplicationBootstrap(int argc, char **argv);

    /// The language that the arguments name by "language:", up to the next comma or the end of the
    /// argument, so that closing braces stay in it; "en" when none does. The last one counts.
    static QString languageFromArguments(const QStringList &arguments);

private:
    void checkInstance();
};
