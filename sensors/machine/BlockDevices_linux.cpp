#include "sensors/machine/BlockDevices_linux.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>

namespace {

QByteArray attribute(const QString &folder, const QString &name)
{
    constexpr qint64 longest = 4096;
    QFile file(folder + QLatin1Char('/') + name);
    return file.open(QIODevice::ReadOnly) ? file.read(longest).trimmed() : QByteArray();
}

bool isInMemoryOrForeign(const QString &disk)
{
    static const QRegularExpression names(QStringLiteral("^(sr|fd|zram|nbd|ram)[0-9]+$"));
    return names.match(disk).hasMatch();
}

bool isOnUsb(const QString &device)
{
    return QFileInfo(device + QStringLiteral("/subsystem"))
        .symLinkTarget()
        .endsWith(QLatin1String("/usb"));
}

/// What the nearest USB device above \a disk says of the socket that it sits in.
bool sitsInRemovableSocket(const QString &disk)
{
    bool onUsb = false;
    for (QDir device(disk); device.exists() && !device.isRoot();) {
        if (isOnUsb(device.path())) {
            onUsb = true;
            const QByteArray socket = attribute(device.path(), QStringLiteral("removable"));
            if (!socket.isEmpty())
                return socket != "fixed";
        }
        device.setPath(QFileInfo(device.path()).path());
    }
    return onUsb;
}

bool isFixedDisk(const QString &disk)
{
    return !isInMemoryOrForeign(QFileInfo(disk).fileName()) &&
           attribute(disk, QStringLiteral("removable")) == "0" && !sitsInRemovableSocket(disk);
}

/// \a depth bounds what a broken tree could lead through.
bool liesOnFixedDisks(const QString &device, int depth)
{
    if (device.isEmpty() || depth == 0)
        return false;
    const QString disk =
        QFile::exists(device + QStringLiteral("/partition")) ? QFileInfo(device).path() : device;
    const QFileInfoList parts =
        QDir(disk + QStringLiteral("/slaves")).entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot);
    if (parts.isEmpty())
        return isFixedDisk(disk);
    return std::all_of(parts.begin(), parts.end(), [depth](const QFileInfo &part) {
        return liesOnFixedDisks(part.canonicalFilePath(), depth - 1);
    });
}

/// The device manager writes bytes that it does not trust in a name as "\x20".
QString decodedLabel(const QString &name)
{
    QByteArray label;
    const QByteArray encoded = QFile::encodeName(name);
    for (int i = 0; i < encoded.size(); ++i) {
        bool isHex = false;
        const int byte = encoded.mid(i + 2, 2).toInt(&isHex, 16);
        if (encoded.mid(i, 2) == "\\x" && i + 3 < encoded.size() && isHex) {
            label.append(static_cast<char>(byte));
            i += 3;
        } else {
            label.append(encoded.at(i));
        }
    }
    return QString::fromUtf8(label);
}

} // namespace

BlockDevices::BlockDevices(const QString &sysRoot, const QString &devRoot)
    : m_sysRoot(sysRoot)
    , m_devRoot(devRoot)
{
}

bool BlockDevices::isFixed(DeviceNumber device) const
{
    constexpr int deepestStack = 8;
    const QString entry =
        QStringLiteral("%1/dev/block/%2:%3").arg(m_sysRoot).arg(device.major).arg(device.minor);
    return liesOnFixedDisks(QFileInfo(entry).canonicalFilePath(), deepestStack);
}

DeviceNumber BlockDevices::deviceAt(const QByteArray &path) const
{
    if (!path.startsWith("/dev/"))
        return {};
    const QFileInfo node(m_devRoot + QFile::decodeName(path.mid(4)));
    const QString name = QFileInfo(node.canonicalFilePath()).fileName();
    if (name.isEmpty())
        return {};
    return parseDeviceNumber(
        attribute(m_sysRoot + QStringLiteral("/class/block/") + name, QStringLiteral("dev")));
}

QString BlockDevices::label(DeviceNumber device) const
{
    const QDir labels(m_devRoot + QStringLiteral("/disk/by-label"));
    for (const QString &name : labels.entryList(QDir::System | QDir::Files)) {
        if (deviceAt("/dev/disk/by-label/" + QFile::encodeName(name)) == device)
            return decodedLabel(name);
    }
    return {};
}
