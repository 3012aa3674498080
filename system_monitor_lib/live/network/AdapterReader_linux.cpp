#include "system_monitor_lib/live/network/AdapterReader.h"

#include "system_monitor_lib/live/files/Attribute.h"
#include "system_monitor_lib/live/files/DeviceOrder.h"
#include "system_monitor_lib/live/files/Directory.h"
#include "system_monitor_lib/live/files/PolledFile.h"
#include "system_monitor_lib/live/files/SysfsText.h"
#include "system_monitor_lib/live/network/AdapterKind.h"
#include "system_monitor_lib/live/network/NetworkText.h"

#include <QFile>

#include <algorithm>
#include <array>
#include <string>
#include <unordered_map>

#include <sys/stat.h>
#include <unistd.h>

namespace {

/// False when the directory was removed; another one may have its name by now.
bool isInPlace(DIR &directory)
{
    struct stat status = {};
    return ::fstat(::dirfd(&directory), &status) == 0 && status.st_nlink > 0;
}

/// The open files of a physical adapter.
struct Files
{
    explicit Files(const QString &directory)
        : received(directory + QStringLiteral("/statistics/rx_bytes"), length)
        , sent(directory + QStringLiteral("/statistics/tx_bytes"), length)
    {
    }

    static constexpr std::size_t length = 32;
    PolledFile received;
    PolledFile sent;
};

/// An entry of the listing. An adapter that does not count is remembered too, without files, so
/// that it is not examined again.
struct Entry
{
    quint64 inode = 0;
    QString name;
    QString order;
    AdapterKind kind = AdapterKind::Other;
    /// The path of the link to the adapter that this one is a part of, if any.
    std::string master;
    std::unique_ptr<Files> files;
    quint64 lastSeen = 0;
};

} // namespace

class AdapterReader::Private
{
public:
    explicit Private(const MachineRoots &roots)
        : root(roots.sys + QStringLiteral("/class/net"))
        , rootPath(QFile::encodeName(root).toStdString())
    {
    }

    /// Updates the entries. False when there is no listing.
    bool list();
    /// Goes to the start of the listing, which is kept open between reads. False when there is
    /// none.
    bool rewind();
    void see(const dirent &listed);
    /// Whether another physical adapter counts the same traffic, as in a virtual machine whose
    /// adapter goes through a real one. That may change at any time.
    [[nodiscard]] bool isPartOfPhysical(const Entry &entry) const;

    const QString root;
    const std::string rootPath;
    Directory directory;
    std::unordered_map<std::string, Entry> entries;
    quint64 pass = 0;
};

bool AdapterReader::Private::rewind()
{
    if (directory && !isInPlace(*directory))
        directory.reset();
    if (directory)
        ::rewinddir(directory.get());
    else
        directory.reset(::opendir(rootPath.c_str()));
    return directory != nullptr;
}

bool AdapterReader::Private::list()
{
    if (!rewind()) {
        entries.clear();
        return false;
    }
    ++pass;
    // readdir is safe here, because no one else uses this stream.
    while (const dirent *listed = ::readdir(directory.get())) { // NOLINT(concurrency-mt-unsafe)
        if (listed->d_name[0] != '.')
            see(*listed);
    }
    for (auto entry = entries.begin(); entry != entries.end();)
        entry = entry->second.lastSeen == pass ? std::next(entry) : entries.erase(entry);
    return true;
}

void AdapterReader::Private::see(const dirent &listed)
{
    Entry &entry = entries[listed.d_name];
    const bool isNew = entry.lastSeen == 0 || entry.inode != listed.d_ino;
    entry.lastSeen = pass;
    if (!isNew)
        return;
    entry.inode = listed.d_ino;
    entry.name = QFile::decodeName(listed.d_name);
    entry.files.reset();
    const QString folder = root + QLatin1Char('/') + entry.name;
    entry.kind = adapterKind(folder);
    if (entry.kind == AdapterKind::Other)
        return;
    entry.order = orderOfDevice(folder + QStringLiteral("/device"));
    entry.master = QFile::encodeName(folder + QStringLiteral("/master")).toStdString();
    entry.files = std::make_unique<Files>(folder);
}

bool AdapterReader::Private::isPartOfPhysical(const Entry &entry) const
{
    std::array<char, 256> target{};
    const ssize_t length = ::readlink(entry.master.c_str(), target.data(), target.size());
    if (length <= 0)
        return false;
    const std::string path(target.data(), static_cast<std::size_t>(length));
    const auto master = entries.find(path.substr(path.rfind('/') + 1));
    return master != entries.end() && master->second.kind == AdapterKind::Physical;
}

AdapterReader::AdapterReader(const MachineRoots &roots)
    : d(std::make_unique<Private>(roots))
{
}

AdapterReader::~AdapterReader() = default;

std::optional<std::vector<AdapterCounters>> AdapterReader::read()
{
    if (!d->list())
        return std::nullopt;
    const auto physical =
        std::count_if(d->entries.begin(), d->entries.end(), [](const auto &listed) {
            return listed.second.kind == AdapterKind::Physical;
        });
    const AdapterKind meant = physical > 0 ? AdapterKind::Physical : AdapterKind::Link;
    std::vector<AdapterCounters> adapters;
    for (const auto &[key, entry] : d->entries) {
        if (entry.kind != meant || (physical > 1 && d->isPartOfPhysical(entry)))
            continue;
        const std::optional<quint64> received = parseCounter(entry.files->received.read());
        const std::optional<quint64> sent = parseCounter(entry.files->sent.read());
        if (received && sent)
            adapters.push_back({entry.name, entry.inode, *received, *sent, entry.order});
    }
    return adapters;
}

double AdapterReader::linkBytesPerSecond(const QString &name) const
{
    constexpr std::size_t length = 32;
    const QString folder = QStringLiteral("%1/%2").arg(d->root, name);
    const QString power = folder + QStringLiteral("/device/power/runtime_status");
    if (attributeWord(folder + QStringLiteral("/operstate")) == QLatin1String("down") ||
        meansAsleep(attributeWord(power)))
        return 0;
    return parseLinkSpeed(PolledFile(folder + QStringLiteral("/speed"), length).read());
}
