#include "system_monitor_lib/live/memory/MemoryReader.h"

#include "system_monitor_lib/live/files/PolledFile.h"
#include "system_monitor_lib/live/memory/ArcText.h"
#include "system_monitor_lib/live/memory/MeminfoText.h"

#include <algorithm>

class MemoryReader::Private
{
public:
    explicit Private(const MachineRoots &roots)
        : m_meminfo(roots.proc + QStringLiteral("/meminfo"))
        , m_arc(roots.proc + QStringLiteral("/spl/kstat/zfs/arcstats"), longestArc)
        , m_hasArc(!m_arc.read().empty())
    {
    }

    std::optional<MemoryState> read()
    {
        std::optional<MemoryState> state = parseMeminfo(m_meminfo.read());
        if (state && m_hasArc)
            state->available =
                std::min(state->total, state->available + parseArcGivesBack(m_arc.read()));
        return state;
    }

private:
    static constexpr std::size_t longestArc = std::size_t{32} * 1024;
    PolledFile m_meminfo;
    PolledFile m_arc;
    /// Machines that depend on ZFS load it before this program starts.
    bool m_hasArc;
};

MemoryReader::MemoryReader(const MachineRoots &roots)
    : d(std::make_unique<Private>(roots))
{
}

MemoryReader::~MemoryReader() = default;

std::optional<MemoryState> MemoryReader::read()
{
    return d->read();
}
