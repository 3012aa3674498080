#include "tests/support/FileTree.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

QString FileTree::path(const QString &path) const
{
    return m_root.filePath(path);
}

void FileTree::makeFolder(const QString &path)
{
    if (!QDir().mkpath(this->path(path)))
        qFatal("cannot make %s", qPrintable(path));
}

void FileTree::write(const QString &path, const QByteArray &content)
{
    makeFolder(QFileInfo(path).path());
    QFile file(this->path(path));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write %s", qPrintable(path));
}

void FileTree::link(const QString &path, const QString &target)
{
    makeFolder(QFileInfo(path).path());
    if (!QFile::link(this->path(target), this->path(path)))
        qFatal("cannot link %s", qPrintable(path));
}

void FileTree::remove(const QString &path)
{
    if (!QFile::remove(this->path(path)))
        qFatal("cannot remove %s", qPrintable(path));
}
