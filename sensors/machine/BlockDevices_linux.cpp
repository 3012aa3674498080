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

bool isOnTheNetwork(const QString &disk)
{
    static const QRegularExpression names(QStringLiteral("/(nbd|rbd|drbd)[0-9]+$"));
    // An iSCSI disk is below the session with the machine that provides it.
    static const QRegularExpression session(QStringLiteral("/session[0-9]+/"));
    return names.match(disk).hasMatch() || session.match(disk).hasMatch();
}

/// Optical, a floppy disk, or in memory.
bool isNoDisk(const QString &disk)
{
    static const QRegularExpression names(QStringLiteral("/(sr|fd|zram|ram)[0-9]+$"));
    return names.match(disk).hasMatch();
}

/// A stick, or a card in any reader. USB disks report that they are not removable; built-in readers
/// never report that their cards are.
bool isRemovableMedium(const QString &disk)
{
    static const QRegularExpression memoryStick(QStringLiteral("/(mspblk|msblk)[0-9]+$"));
    return attribute(disk, QStringLiteral("removable")) != "0" ||
           attribute(disk, QStringLiteral("device/type")).startsWith("SD") ||
           memoryStick.match(disk).hasMatch();
}

/// Adds the disks that \a device is stored on. False when one cannot be determined or is on the
/// network. \a depth limits the recursion, because a broken tree may be endless.
bool addDisks(const QString &device, int depth, QStringList &disks)
{
    if (device.isEmpty() || depth == 0)
        return false;
    const QString disk =
        QFile::exists(device + QStringLiteral("/partition")) ? QFileInfo(device).path() : device;
    if (isOnTheNetwork(disk))
        return false;
    const QFileInfoList parts =
        QDir(disk + QStringLiteral("/slaves")).entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot);
    if (parts.isEmpty())
        disks.append(disk);
    return std::all_of(parts.begin(), parts.end(), [depth, &disks](const QFileInfo &part) {
        return addDisks(part.canonicalFilePath(), depth - 1, disks);
    });
}

/// The device manager writes special characters of a name in the form "\x20".
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

QStringList BlockDevices::disksOf(DeviceNumber device) const
{
    constexpr int deepestStack = 8;
    const QString entry =
        QStringLiteral("%1/dev/block/%2:%3").arg(m_sysRoot).arg(device.major).arg(device.minor);
    QStringList disks;
    const bool isComplete = addDisks(QFileInfo(entry).canonicalFilePath(), deepestStack, disks);
    return isComplete ? disks : QStringList();
}

bool BlockDevices::isFixed(DeviceNumber device, const QStringList &systemDisks) const
{
    const QStringList disks = disksOf(device);
    return !disks.isEmpty() &&
           std::all_of(disks.begin(), disks.end(), [&systemDisks](const QString &disk) {
               return !isNoDisk(disk) && (!isRemovableMedium(disk) || systemDisks.contains(disk));
           });
}

QVector<DeviceNumber> BlockDevices::membersOfBtrfs(DeviceNumber device) const
{
    const QDir fileSystems(m_sysRoot + QStringLiteral("/fs/btrfs"));
    for (const QString &id : fileSystems.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        const QDir folder(fileSystems.filePath(id) + QStringLiteral("/devices"));
        QVector<DeviceNumber> members;
        for (const QString &name : folder.entryList(QDir::Dirs | QDir::NoDotAndDotDot))
            members.append(
                parseDeviceNumber(attribute(folder.filePath(name), QStringLiteral("dev"))));
        if (members.contains(device))
            return members;
    }
    return {device};
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
