#include "sensors/machine/MountPlaces.h"

#include <algorithm>
#include <array>

namespace {

/// What is mounted below these belongs to a container, a pod or a snap. A disk mounted at one of
/// these folders itself is a drive.
const std::array<const char *, 15> inhabited{
    "/var/lib/docker",  "/run/docker",      "/var/lib/containers",
    "/run/containers",  "/run/containerd",  "/var/lib/containerd",
    "/var/lib/kubelet", "/var/lib/rancher", "/var/lib/lxc",
    "/var/lib/lxd",     "/var/lib/incus",   "/var/lib/machines",
    "/var/lib/snapd",   "/var/snap",        "/snap"};

/// The same for folders in home directories and those of distributions with other paths.
const std::array<const char *, 3> inhabitedAnywhere{"/kubelet/pods/", "/kubelet/plugins/",
                                                    "/containers/storage/"};

/// Whether \a mountPoint is below \a folder; a folder is not below itself.
bool liesIn(const QString &folder, const QString &mountPoint)
{
    if (folder == QLatin1String("/"))
        return mountPoint.size() > 1 && mountPoint.startsWith(folder);
    return mountPoint.startsWith(folder) &&
           QStringView(mountPoint).mid(folder.size()).startsWith(QLatin1Char('/'));
}

} // namespace

bool isPlaceOfADrive(const QString &mountPoint)
{
    const QString boot = QStringLiteral("/boot");
    if (mountPoint == boot || liesIn(boot, mountPoint) || mountPoint == QLatin1String("/efi"))
        return false;
    return std::none_of(inhabited.begin(), inhabited.end(),
                        [&mountPoint](const char *folder) {
                            return liesIn(QLatin1String(folder), mountPoint);
                        }) &&
           std::none_of(inhabitedAnywhere.begin(), inhabitedAnywhere.end(),
                        [&mountPoint](const char *part) {
                            return mountPoint.contains(QLatin1String(part));
                        });
}
