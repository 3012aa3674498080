#include "sensors/machine/DriveRoots.h"

QStringList driveRoots(const QByteArray &list)
{
    // Compatibility: drives-in-100-letters
    constexpr int seenCharacters = 100;
    QStringList roots;
    QByteArray::size_type begin = 0;
    for (auto end = list.indexOf('\0'); end >= 0 && end < seenCharacters;
         end = list.indexOf('\0', begin)) {
        if (end > begin)
            roots.append(QString::fromLatin1(list.constData() + begin, end - begin));
        begin = end + 1;
    }
    return roots;
}
