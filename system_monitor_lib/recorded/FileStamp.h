#pragma once

#include <QString>
#include <QtGlobal>

/// What tells one state of a file from the next without reading it.
struct FileStamp
{
    enum class Kind { Missing, Regular, Other };

    Kind kind = Kind::Missing;
    qint64 size = 0;       ///< Bytes.
    quint64 identity = 0;  ///< Changes when another file takes the name, where the system tells.
    qint64 modifiedNs = 0; ///< Last change of the content, nanoseconds since 1970.
    qint64 changedNs = 0;  ///< Last change of content or attributes, where the system tells.
};

bool operator==(const FileStamp &a, const FileStamp &b);

/// One call to the system. Whatever cannot be looked at counts as missing.
FileStamp fileStamp(const QString &path);
