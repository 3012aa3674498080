#include "sensors/machine/DriveRoots.h"

QStringList driveRoots(quint32 inUse, int most)
{
    QStringList roots;
    for (char letter = 'A'; letter <= 'Z' && roots.size() < most; ++letter) {
        if ((inUse >> static_cast<unsigned>(letter - 'A') & 1U) != 0)
            roots.append(QLatin1Char(letter) + QStringLiteral(":\\"));
    }
    return roots;
}
