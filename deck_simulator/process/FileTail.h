#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace deck {

/// Reads what is appended to a file that another process writes.
class FileTail
{
public:
    /// At most so many bytes are read at a time; of a file that grows faster, the middle is passed
    /// over.
    static constexpr qint64 longestStep = 1 << 20;

    /// Follows \a path from its present end, or from the start of a file that is yet to come.
    void follow(const QString &path);
    [[nodiscard]] const QString &path() const { return m_path; }
    /// The lines that were completed since the last call. A file that has become shorter is read
    /// from its start.
    QStringList newLines();
    /// What stands behind the last line end.
    QString takeRest();

private:
    QString m_path;
    qint64 m_position = 0;
    QByteArray m_rest;
};

} // namespace deck
