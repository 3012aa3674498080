#pragma once

#include <QtGlobal>

/// The tables of TrueType and OpenType files, single fonts and collections.
namespace fonttables {

/// Whether the directories of tables and the font's names lie within the \a size bytes at \a file.
/// On Windows Qt reads them without looking where the file ends.
bool areWithin(const uchar *file, qint64 size);

} // namespace fonttables
