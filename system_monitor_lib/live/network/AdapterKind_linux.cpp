#include "system_monitor_lib/live/network/AdapterKind.h"

#include "system_monitor_lib/live/files/Attribute.h"
#include "system_monitor_lib/live/files/SysfsText.h"

#include <QDir>

namespace {

/// The last part of a link; empty when there is none.
QString linkedName(const QString &link)
{
    return QFileInfo(QFileInfo(link).symLinkTarget()).fileName();
}

bool isPortOfASwitch(const QString &folder)
{
    constexpr std::size_t longestUevent = 4096;
    PolledFile uevent(folder + QStringLiteral("/uevent"), longestUevent);
    return parseUevent(uevent.read(), "DEVTYPE") == QLatin1String("dsa");
}

/// An Ethernet adapter whose other end is in another part of the system, and which is not based on
/// another adapter here.
bool isNearEnd(const QString &folder)
{
    const QString own = attributeWord(folder + QStringLiteral("/ifindex"));
    const QString other = attributeWord(folder + QStringLiteral("/iflink"));
    return attributeWord(folder + QStringLiteral("/type")) == QLatin1String("1") &&
           !own.isEmpty() && !other.isEmpty() && own != other &&
           QDir(folder).entryList({QStringLiteral("lower_*")}, QDir::AllEntries).isEmpty();
}

} // namespace

AdapterKind adapterKind(const QString &folder)
{
    const QString device = folder + QStringLiteral("/device");
    if (!QFileInfo::exists(device))
        return isNearEnd(folder) ? AdapterKind::Link : AdapterKind::Other;
    // The host's end of a guest's adapter.
    const bool isGuests =
        linkedName(device + QStringLiteral("/subsystem")) == QLatin1String("xen-backend");
    return isGuests || isPortOfASwitch(folder) ? AdapterKind::Other : AdapterKind::Physical;
}
