#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace deck {

/// Reads what is appended to a file that another process writes.
class FileTail
{
public:
    /// The maximum number of bytes read at a time; if a file grows faster, the middle is skipped.
    static constexpr qint64 longestStep = 1 << 20;

    /// Follows \a path from its current end, or from the start of a file that does not exist yet.
    void follow(const QString &path);
    [[nodiscard]] const QString &path() const { return m_path; }
    /// The lines that were completed since the last call. A file that has become shorter is read
    /// from its start.
    QStringList newLines();
    /// The text after the last line end.
    QString takeRest();

private:
    QString m_path;
    qint64 m_position = 0;
    QByteArray m_rest;
};

} // namespace deck
