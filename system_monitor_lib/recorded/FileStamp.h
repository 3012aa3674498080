#pragma once

#include <QString>
#include <QtGlobal>

/// Distinguishes one state of a file from the next without reading the file.
struct FileStamp
{
    enum class Kind { Missing, Regular, Other };

    Kind kind = Kind::Missing;
    qint64 size = 0;       ///< Bytes.
    quint64 identity = 0;  ///< Changes when another file takes the name, where the system tells.
    qint64 modifiedNs = 0; ///< Last change of the content, nanoseconds since 1970.
    qint64 changedNs = 0;  ///< Last change of content or attributes, where the system tells.
    // Times outside 1678 to 2262 are limited to these years.
};

bool operator==(const FileStamp &a, const FileStamp &b);

/// The state of a file, or of its target if \a path is a link. It reads none of the content and
/// never blocks. A file that cannot be examined counts as missing.
FileStamp fileStamp(const QString &path);
