#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QString>

/// A file below tests/fixtures; empty when it cannot be read.
inline QByteArray fixture(const QString &path)
{
    QFile file(QStringLiteral(FIXTURES_DIRECTORY "/%1").arg(path));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Overwrites the file in place, or creates it with its folders.
inline bool writeFile(const QString &path, const QByteArray &content)
{
    QFile file(path);
    return QDir().mkpath(QFileInfo(path).path()) && file.open(QIODevice::WriteOnly) &&
           file.write(content) == content.size() && file.flush();
}

/// Replaces the file by a new one, as programs do that save safely.
inline bool replaceFile(const QString &path, const QByteArray &content)
{
    const QString next = path + QStringLiteral(".next");
    return writeFile(next, content) && (!QFile::exists(path) || QFile::remove(path)) &&
           QFile::rename(next, path);
}

inline std::string_view view(const QByteArray &bytes)
{
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}
