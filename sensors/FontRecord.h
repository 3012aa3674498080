#pragma once

#include <QString>

/// One family and style that a registered font file contains.
struct FontRecord
{
    QString family;
    QString style;
    QString filePath;    ///< Absolute.
    QString baseName;    ///< The file's name without directory and extensions.
    QString displayName; ///< Base name, one blank, style.
    QString spec;        ///< "FAMILY|STYLE", or "FAMILY" for the first style of most families.
};
