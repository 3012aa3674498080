#pragma once

#include <QString>
#include <QStringList>

/// The fonts that a test works with, in place of those that the machine offers to programs.
namespace testfonts {

/// Hides the machine's fonts from this process. Called before the application object exists.
void hideMachineFonts();

/// The path of the font file \a fileName in the machine's font folders; empty when there is none.
QString find(const QString &fileName);

/// Finds and registers a font file; false when there is none.
bool registerFile(const QString &fileName);

/// Registers the font files that are not registered yet. What of them is missing, and the packages
/// that bring it; empty when nothing is.
QString missing(const QStringList &fileNames);

/// Whether a missing font is a failure: where the environment variable CI is "true".
bool areRequired();

} // namespace testfonts

/// Leaves the test function, or the row of its data, that cannot be played without these font
/// files.
#define REQUIRE_FONTS(...)                                                                         \
    do {                                                                                           \
        const QString missingFonts = testfonts::missing(__VA_ARGS__);                              \
        if (!missingFonts.isEmpty() && testfonts::areRequired())                                   \
            QFAIL(qPrintable(missingFonts));                                                       \
        if (!missingFonts.isEmpty())                                                               \
            QSKIP(qPrintable(missingFonts));                                                       \
    } while (false)
