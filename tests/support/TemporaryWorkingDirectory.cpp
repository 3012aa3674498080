#include "tests/support/TemporaryWorkingDirectory.h"

#include <QFile>

TemporaryWorkingDirectory::TemporaryWorkingDirectory()
    : m_previous(QDir::currentPath())
{
    if (!m_folder.isValid() || !QDir::setCurrent(m_folder.path()))
        qFatal("No temporary folder to work in");
}

TemporaryWorkingDirectory::~TemporaryWorkingDirectory()
{
    QDir::setCurrent(m_previous);
}

QByteArray TemporaryWorkingDirectory::content(const QString &fileName) const
{
    QFile file(m_folder.filePath(fileName));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}
