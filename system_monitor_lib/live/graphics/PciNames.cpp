#include "system_monitor_lib/live/graphics/PciNames.h"

#include <QFile>

namespace {

QString soldAs(const QByteArray &entry)
{
    QString name = QString::fromUtf8(entry).simplified();
    const auto open = name.lastIndexOf(QLatin1Char('['));
    if (open < 0 || !name.endsWith(QLatin1Char(']')))
        return name;
    return name.mid(open + 1, name.size() - open - 2);
}

} // namespace

QString pciDeviceName(const QString &listPath, const QString &vendor, const QString &device)
{
    constexpr qint64 longestLine = 1024;
    constexpr int digits = 4;
    QFile list(listPath);
    if (listPath.isEmpty() || vendor.size() != digits || device.size() != digits ||
        !list.open(QIODevice::ReadOnly))
        return {};
    const QByteArray vendorStart = vendor.toLower().toLatin1() + "  ";
    const QByteArray deviceStart = '\t' + device.toLower().toLatin1() + "  ";
    bool isVendor = false;
    while (!list.atEnd()) {
        const QByteArray line = list.readLine(longestLine);
        if (line.startsWith(vendorStart))
            isVendor = true;
        else if (isVendor && line.startsWith(deviceStart))
            return soldAs(line.mid(deviceStart.size()));
        else if (isVendor && !line.startsWith('\t') && !line.startsWith('#'))
            break;
    }
    return {};
}
