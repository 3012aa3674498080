#include "tests/support/MountFolder.h"

#include <QProcess>

MountFolder::~MountFolder()
{
    run(QStringLiteral("grep -o \" $PWD/[^ ]*\" /proc/self/mountinfo | tac | xargs -r umount"));
}

bool MountFolder::run(const QString &command) const
{
    QProcess process;
    process.setWorkingDirectory(m_folder.path());
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(QStringLiteral("sh"), {QStringLiteral("-c"), command});
    if (process.waitForFinished() && process.exitCode() == 0)
        return true;
    qWarning("%s: %s", qPrintable(command), process.readAll().trimmed().constData());
    return false;
}

bool MountFolder::mountExt4(const QString &name, const QString &label, const QString &size) const
{
    // A tenth of the space is reserved for the administrator.
    return run(QStringLiteral("truncate -s %3 %1.img && mkfs.ext4 -q -m 10 -L '%2' %1.img && "
                              "mkdir %1 && mount -o loop %1.img %1")
                   .arg(name, label, size));
}
