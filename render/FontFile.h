#pragma once

#include <QString>

/// Whether Qt can be given the font file at \a path: on Windows it ends the process over tables
/// that do not lie in the file; elsewhere it checks by itself.
bool isSafeFontFile(const QString &path);
