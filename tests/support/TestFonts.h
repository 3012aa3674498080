#pragma once

#include <QString>

/// The fonts that a test works with, in place of those that the machine offers to programs.
namespace testfonts {

/// Hides the machine's fonts from this process. Called before the application object exists.
void hideMachineFonts();

/// The path of the font file \a fileName in the machine's font folders; empty when there is none.
QString find(const QString &fileName);

/// Finds and registers a font file; false when there is none.
bool registerFile(const QString &fileName);

} // namespace testfonts
