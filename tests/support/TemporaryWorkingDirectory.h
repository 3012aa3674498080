#pragma once

#include <QByteArray>
#include <QDir>
#include <QTemporaryDir>

/// An empty folder that is the working directory while this object exists.
class TemporaryWorkingDirectory
{
public:
    TemporaryWorkingDirectory();
    ~TemporaryWorkingDirectory();
    Q_DISABLE_COPY(TemporaryWorkingDirectory)

    /// The whole content of a file in it; empty when there is no such file.
    QByteArray content(const QString &fileName) const;

private:
    QString m_previous;
    QTemporaryDir m_folder;
};
