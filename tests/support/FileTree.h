#pragma once

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

/// A folder of files written by a test, standing for a part of the machine's file system.
class FileTree
{
public:
    /// The absolute path of \a path in the tree, which need not exist.
    QString path(const QString &path = QString()) const;

    /// Writes a file, creating its folders.
    void write(const QString &path, const QByteArray &content);

    void makeFolder(const QString &path);

    /// Makes a symbolic link; \a target is taken from the root of the tree.
    void link(const QString &path, const QString &target);

    void remove(const QString &path);

private:
    QTemporaryDir m_root;
};
