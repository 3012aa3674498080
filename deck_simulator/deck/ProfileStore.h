#pragma once

#include "deck_simulator/deck/StoredProfile.h"

#include <QString>

namespace deck {

/// The file in which the window keeps its profile.
class ProfileStore
{
public:
    /// The maximum size of a profile file in bytes; a larger one is not a profile.
    static constexpr qint64 maximumSize = qint64(4) << 20;

    explicit ProfileStore(const QString &path);

    [[nodiscard]] const QString &path() const { return m_path; }

    /// The default profile when there is no file. A file that is broken, completely or in part, is
    /// renamed to FILE.broken (FILE.broken-2, ...), and message() says so.
    StoredProfile load();
    /// Writes the whole file or keeps the old one. False, with a message(), when that fails, or
    /// when a broken file could not be renamed and would be lost.
    bool save(const StoredProfile &profile);
    /// A message for the user about the last load or save; empty when there is none.
    [[nodiscard]] const QString &message() const { return m_message; }

private:
    void setAside(const QString &reason);

    QString m_path;
    QString m_message;
    QByteArray m_written;
    bool m_locked = false;
};

} // namespace deck
