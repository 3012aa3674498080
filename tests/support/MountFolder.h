#pragma once

#include <QString>
#include <QTemporaryDir>

/// A folder in which a test makes and mounts file systems; what is mounted in it goes with it. Only
/// for tests that run where nobody else sees their mounts.
class MountFolder
{
public:
    MountFolder() = default;
    ~MountFolder();
    Q_DISABLE_COPY(MountFolder)

    QString path(const QString &name) const { return m_folder.filePath(name); }

    /// Runs a shell command in the folder. False, with a warning that says why, when it fails.
    bool run(const QString &command) const;

    /// Makes a file system of \a size, such as "48M", and mounts it as \a name.
    bool mountExt4(const QString &name, const QString &label, const QString &size) const;

private:
    QTemporaryDir m_folder;
};
