#include "system_monitor_lib/live/files/FolderNames.h"

#include "system_monitor_lib/live/files/Directory.h"

#include <QFile>

QStringList folderNames(const QString &folder)
{
    const Directory directory(::opendir(QFile::encodeName(folder).constData()));
    QStringList names;
    // readdir is safe here, because no one else uses this stream.
    while (const dirent *const entry =
               directory ? ::readdir(directory.get()) : nullptr) { // NOLINT(concurrency-mt-unsafe)
        if (entry->d_name[0] != '.')
            names += QFile::decodeName(entry->d_name);
    }
    names.sort();
    return names;
}
