#pragma once

#include "deck_simulator/deck/StoredProfile.h"

#include <QString>

namespace deck {

/// The file in which the window keeps its profile.
class ProfileStore
{
public:
    /// A larger file is no profile, bytes.
    static constexpr qint64 maximumSize = qint64(4) << 20;

    explicit ProfileStore(const QString &path);

    [[nodiscard]] const QString &path() const { return m_path; }

    /// The first profile when there is no file. A file that is broken, wholly or in part, is set
    /// aside as FILE.broken (FILE.broken-2, ...), and message() says so.
    StoredProfile load();
    /// Writes the whole file or leaves the old one. False with a message() when that fails, or when
    /// a broken file could not be set aside and would be lost.
    bool save(const StoredProfile &profile);
    /// What the user has to know of the last load or save; empty for nothing.
    [[nodiscard]] const QString &message() const { return m_message; }

private:
    void setAside(const QString &reason);

    QString m_path;
    QString m_message;
    QByteArray m_written;
    bool m_locked = false;
};

} // namespace deck
