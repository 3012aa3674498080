#pragma once

#include "deck_simulator/deck/StoredProfile.h"

#include <QString>

#include <memory>

class QLockFile;

namespace deck {

/// The file in which the window keeps its profile. A store that has loaded it has it for itself;
/// other stores, also of other programs, only get a copy of what it holds.
class ProfileStore
{
public:
    enum class Access {
        Full,
        ReadOnly, ///< The file stays as it is.
    };

    /// The maximum size of a profile file in bytes; a larger one is not a profile.
    static constexpr qint64 maximumSize = qint64(4) << 20;

    explicit ProfileStore(const QString &path, Access access = Access::Full);
    ~ProfileStore();
    Q_DISABLE_COPY(ProfileStore)

    [[nodiscard]] const QString &path() const { return m_path; }

    /// \a fresh when there is no file. A file that is broken, completely or in part, is renamed to
    /// FILE.broken (FILE.broken-2, ...), and message() says so. If another store has the file,
    /// message() says so, and nothing is renamed or saved.
    StoredProfile load(const StoredProfile &fresh = firstProfile());
    /// Whether this store has the file for itself, or would have it once it has loaded it.
    [[nodiscard]] bool keeps() const { return m_keeps; }
    /// Writes the whole file or keeps the old one; does nothing for a copy. False, with a
    /// message(), when that fails, or when a broken file could not be renamed and would be lost.
    bool save(const StoredProfile &profile);
    /// A message for the user about the last load or save; empty when there is none.
    [[nodiscard]] const QString &message() const { return m_message; }

private:
    void acquire();
    StoredProfile read(const StoredProfile &fresh);
    void setAside(const QString &reason);

    QString m_path;
    QString m_message;
    QByteArray m_written;
    std::unique_ptr<QLockFile> m_lock;
    bool m_keeps; // writes the file
    bool m_locked = false;
};

} // namespace deck
