#include "render/FontFile.h"

#include "render/FontTables.h"

#include <QFile>

bool isSafeFontFile(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const uchar *const bytes = file.map(0, file.size());
    return bytes && fonttables::areWithin(bytes, file.size());
}
