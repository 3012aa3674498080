#include "system_monitor_lib/live/memory/MemoryReader.h"

#include "system_monitor_lib/live/Pace.h"
#include "system_monitor_lib/live/files/Attribute.h"
#include "system_monitor_lib/live/files/FolderNames.h"
#include "system_monitor_lib/live/memory/ArcText.h"
#include "system_monitor_lib/live/memory/MeminfoText.h"

#include <algorithm>
#include <vector>

class MemoryReader::Private
{
public:
    explicit Private(const MachineRoots &roots)
        : m_meminfo(roots.proc + QStringLiteral("/meminfo"))
        , m_arc(roots.proc + QStringLiteral("/spl/kstat/zfs/arcstats"), longestArc)
        , m_hasArc(!m_arc.read().empty())
        , m_blocks(roots.sys + QStringLiteral("/block/"))
        , m_zswap(roots.sys + QStringLiteral("/module/zswap/parameters/enabled"))
    {
    }

    std::optional<MemoryState> read()
    {
        m_text = m_meminfo.read();
        std::optional<MemoryState> state = parseMeminfo(m_text);
        if (state && m_hasArc)
            state->available =
                std::min(state->total, state->available + parseArcGivesBack(m_arc.read()));
        return state;
    }

    MemoryDetails details(qint64 nowNs)
    {
        constexpr quint64 bytesPerKibibyte = 1024;
        if (m_listing.isDue(nowNs))
            look();
        MemoryDetails details = parseMeminfoDetails(m_text);
        // Where it is switched off, the kernel still has the line.
        if (!m_hasZswap && details.compressed.value_or(0) == 0)
            details.compressed.reset();
        for (const auto &zram : m_zrams) {
            if (const std::optional<quint64> bytes = parseZramStat(zram->read()))
                details.compressed = details.compressed.value_or(0) + *bytes / bytesPerKibibyte;
        }
        return details;
    }

private:
    void look()
    {
        m_hasZswap = m_zswap.word() == QLatin1String("Y");
        QStringList names = folderNames(m_blocks);
        const auto isUnused = [this](const QString &name) {
            return !name.startsWith(QLatin1String("zram")) ||
                   attributeWord(m_blocks + name + QStringLiteral("/initstate")) ==
                       QLatin1String("0");
        };
        names.erase(std::remove_if(names.begin(), names.end(), isUnused), names.end());
        if (names == m_zramNames)
            return;
        m_zramNames = names;
        m_zrams.clear();
        for (const QString &name : names)
            m_zrams.push_back(
                std::make_unique<PolledFile>(m_blocks + name + QStringLiteral("/mm_stat")));
    }

    static constexpr std::size_t longestArc = std::size_t{32} * 1024;
    PolledFile m_meminfo;
    /// As of the last read.
    std::string_view m_text;
    PolledFile m_arc;
    /// Machines that depend on ZFS load it before this program starts.
    bool m_hasArc;
    const QString m_blocks;
    Pace m_listing{listingPeriod};
    Attribute m_zswap;
    bool m_hasZswap = false;
    QStringList m_zramNames;
    std::vector<std::unique_ptr<PolledFile>> m_zrams;
};

const std::chrono::nanoseconds MemoryReader::detailsPeriod = std::chrono::seconds(2);

MemoryReader::MemoryReader(const MachineRoots &roots)
    : d(std::make_unique<Private>(roots))
{
}

MemoryReader::~MemoryReader() = default;

std::optional<MemoryState> MemoryReader::read()
{
    return d->read();
}

MemoryDetails MemoryReader::details(qint64 nowNs)
{
    return d->details(nowNs);
}
