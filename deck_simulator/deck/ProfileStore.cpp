#include "deck_simulator/deck/ProfileStore.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QSaveFile>

namespace deck {

namespace {

QString freeName(const QString &path)
{
    QString name = path + QStringLiteral(".broken");
    for (int number = 2; QFileInfo::exists(name); ++number)
        name = path + QStringLiteral(".broken-%1").arg(number);
    return name;
}

} // namespace

ProfileStore::ProfileStore(const QString &path, Access access)
    : m_path(QFileInfo(path).absoluteFilePath())
    , m_keeps(access == Access::Full)
{
}

ProfileStore::~ProfileStore() = default;

StoredProfile ProfileStore::load(const StoredProfile &fresh)
{
    m_message.clear();
    if (m_keeps && m_lock == nullptr)
        acquire();
    return read(fresh);
}

void ProfileStore::acquire()
{
    QDir().mkpath(QFileInfo(m_path).absolutePath());
    m_lock = std::make_unique<QLockFile>(m_path + QStringLiteral(".lock"));
    m_lock->setStaleLockTime(0); // until its owner ends
    // Where no lock can be made, nobody else can save either.
    if (m_lock->tryLock() || m_lock->error() != QLockFile::LockFailedError)
        return;
    m_keeps = false;
    m_message = QStringLiteral("Another simulator has the profile %1. This one works on a copy, "
                               "whose changes are not kept, unless you save it as a deck of "
                               "another name.")
                    .arg(QDir::toNativeSeparators(m_path));
}

StoredProfile ProfileStore::read(const StoredProfile &fresh)
{
    QFile file(m_path);
    if (!file.exists())
        return fresh;
    if (!file.open(QIODevice::ReadOnly)) {
        setAside(file.errorString());
        return fresh;
    }
    const QByteArray text = file.read(maximumSize + 1);
    file.close();
    QStringList faults;
    if (text.size() > maximumSize) {
        setAside(QStringLiteral("it is too large"));
        return fresh;
    }
    StoredProfile profile = readProfile(text, &faults);
    if (faults.isEmpty())
        return profile;
    setAside(faults.join(QStringLiteral("; ")));
    return profile.entries.isEmpty() ? fresh : profile;
}

void ProfileStore::setAside(const QString &reason)
{
    if (!m_keeps) {
        if (m_message.isEmpty())
            m_message = QStringLiteral("The profile %1 is broken: %2.")
                            .arg(QDir::toNativeSeparators(m_path), reason);
        return;
    }
    const QString aside = freeName(m_path);
    m_locked = !QFile::rename(m_path, aside);
    const QString native = QDir::toNativeSeparators(m_path);
    m_message =
        m_locked
            ? QStringLiteral("The profile %1 is broken: %2. It cannot be set aside, so nothing "
                             "will be saved.")
                  .arg(native, reason)
            : QStringLiteral("The profile %1 was broken: %2. It has been set aside as %3.")
                  .arg(native, reason, QFileInfo(aside).fileName());
}

bool ProfileStore::save(const StoredProfile &profile)
{
    if (!m_keeps)
        return true;
    if (m_locked)
        return false;
    const QByteArray text = profileText(profile);
    if (text == m_written && QFileInfo::exists(m_path))
        return true;
    m_message.clear();
    QSaveFile file(m_path);
    const bool well = QDir().mkpath(QFileInfo(m_path).absolutePath()) &&
                      file.open(QIODevice::WriteOnly) && file.write(text) == text.size() &&
                      file.commit();
    if (well)
        m_written = text;
    else
        m_message = QStringLiteral("The profile %1 cannot be saved: %2.")
                        .arg(QDir::toNativeSeparators(m_path), file.errorString());
    return well;
}

} // namespace deck
