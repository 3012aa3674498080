#include "system_monitor_lib/live/graphics/AmdNames.h"

#include <QFile>

namespace {

constexpr int hexadecimal = 16;

/// Only the number counts: lists write "C8" and "0xc8", with or without leading zeros.
int number(const QString &digits)
{
    bool isNumber = false;
    const int value = digits.trimmed().toInt(&isNumber, hexadecimal);
    return isNumber ? value : -1;
}

} // namespace

QString amdCardName(const QString &listPath, const QString &device, const QString &revision)
{
    constexpr qint64 longestLine = 1024;
    constexpr qint64 longestList = qint64{1024} * 1024;
    const int wantedDevice = number(device);
    const int wantedRevision = number(revision);
    QFile list(listPath);
    if (listPath.isEmpty() || wantedDevice < 0 || wantedRevision < 0 ||
        !list.open(QIODevice::ReadOnly))
        return {};
    while (!list.atEnd() && list.pos() < longestList) {
        const QString line = QString::fromUtf8(list.readLine(longestLine));
        const QLatin1Char comma(',');
        if (number(line.section(comma, 0, 0)) == wantedDevice &&
            number(line.section(comma, 1, 1)) == wantedRevision)
            return line.section(comma, 2).simplified();
    }
    return {};
}
