#include "system_monitor_lib/live/network/AdapterReader.h"

#include <QHash>

#include <winsock2.h>
#include <ws2ipdef.h>

#include <windows.h>

#include <iphlpapi.h>
#include <netioapi.h>

namespace {

struct TableFreer
{
    void operator()(MIB_IF_TABLE2 *table) const { FreeMibTable(table); }
};

using Table = std::unique_ptr<MIB_IF_TABLE2, TableFreer>;

Table interfaceTable()
{
    MIB_IF_TABLE2 *table = nullptr;
    if (GetIfTable2(&table) != NO_ERROR)
        return nullptr;
    return Table(table);
}

/// Filter drivers list the adapter below them once more.
bool isPhysical(const MIB_IF_ROW2 &row)
{
    const auto &flags = row.InterfaceAndOperStatusFlags;
    return flags.HardwareInterface != 0 && flags.FilterInterface == 0;
}

double linkSpeed(const MIB_IF_ROW2 &row)
{
    constexpr double bitsPerByte = 8;
    constexpr ULONG64 unknown = ~ULONG64{0};
    if (row.OperStatus != IfOperStatusUp)
        return 0;
    const ULONG64 bits = qMax(row.ReceiveLinkSpeed, row.TransmitLinkSpeed);
    return bits == unknown ? 0 : static_cast<double>(bits) / bitsPerByte;
}

} // namespace

class AdapterReader::Private
{
public:
    /// By adapter, as of the last read.
    QHash<QString, double> speeds;
};

AdapterReader::AdapterReader(const MachineRoots & /*roots*/)
    : d(std::make_unique<Private>())
{
}

AdapterReader::~AdapterReader() = default;

std::optional<std::vector<AdapterCounters>> AdapterReader::read()
{
    d->speeds.clear();
    const Table table = interfaceTable();
    if (!table)
        return std::nullopt;
    std::vector<AdapterCounters> adapters;
    const MIB_IF_ROW2 *const end = table->Table + table->NumEntries;
    for (const MIB_IF_ROW2 *row = table->Table; row != end; ++row) {
        if (!isPhysical(*row))
            continue;
        const QString name = QString::fromWCharArray(row->Alias);
        d->speeds.insert(name, linkSpeed(*row));
        adapters.push_back({name, row->InterfaceLuid.Value, row->InOctets, row->OutOctets});
    }
    return adapters;
}

double AdapterReader::linkBytesPerSecond(const QString &name) const
{
    return d->speeds.value(name, 0);
}
