#include "system_monitor_lib/live/PerformanceCounter.h"

#include "system_monitor_lib/live/Pace.h"

#include <windows.h>

#include <pdh.h>
#include <pdhmsg.h>

namespace {

constexpr DWORD format = PDH_FMT_DOUBLE | PDH_FMT_NOCAP100;

bool isValid(DWORD status)
{
    return status == PDH_CSTATUS_VALID_DATA || status == PDH_CSTATUS_NEW_DATA;
}

} // namespace

class PerformanceCounter::Private
{
public:
    explicit Private(const QString &englishPath)
        : path(englishPath.toStdWString())
    {
    }
    ~Private() { close(); }
    Q_DISABLE_COPY(Private)

    /// Takes a sample. False when there is none.
    bool sample(qint64 nowNs)
    {
        if (!query && retry.isDue(nowNs))
            open();
        return query && PdhCollectQueryData(query) == ERROR_SUCCESS;
    }

    PDH_HCOUNTER counter = nullptr;

private:
    void open()
    {
        if (PdhOpenQueryW(nullptr, 0, &query) != ERROR_SUCCESS)
            query = nullptr;
        else if (PdhAddEnglishCounterW(query, path.c_str(), 0, &counter) != ERROR_SUCCESS)
            close();
    }

    void close()
    {
        if (query)
            PdhCloseQuery(query);
        query = nullptr;
    }

    const std::wstring path;
    Pace retry{std::chrono::minutes(1)};
    PDH_HQUERY query = nullptr;
};

PerformanceCounter::PerformanceCounter(const QString &path)
    : d(std::make_unique<Private>(path))
{
}

PerformanceCounter::~PerformanceCounter() = default;

std::optional<double> PerformanceCounter::value(qint64 nowNs)
{
    PDH_FMT_COUNTERVALUE value = {};
    if (!d->sample(nowNs) ||
        PdhGetFormattedCounterValue(d->counter, format, nullptr, &value) != ERROR_SUCCESS ||
        !isValid(value.CStatus))
        return std::nullopt;
    return value.doubleValue;
}

std::vector<CounterValue> PerformanceCounter::values(qint64 nowNs)
{
    DWORD size = 0;
    DWORD count = 0;
    if (!d->sample(nowNs) ||
        PdhGetFormattedCounterArrayW(d->counter, format, &size, &count, nullptr) !=
            static_cast<PDH_STATUS>(PDH_MORE_DATA))
        return {};
    // The names follow the items in the same memory.
    std::vector<PDH_FMT_COUNTERVALUE_ITEM_W> items(size / sizeof(PDH_FMT_COUNTERVALUE_ITEM_W) + 1);
    size = static_cast<DWORD>(items.size() * sizeof(PDH_FMT_COUNTERVALUE_ITEM_W));
    if (PdhGetFormattedCounterArrayW(d->counter, format, &size, &count, items.data()) !=
        ERROR_SUCCESS)
        return {};
    std::vector<CounterValue> values;
    for (DWORD index = 0; index < count && index < items.size(); ++index) {
        const PDH_FMT_COUNTERVALUE_ITEM_W &item = items[index];
        if (isValid(item.FmtValue.CStatus))
            values.push_back({QString::fromWCharArray(item.szName), item.FmtValue.doubleValue});
    }
    return values;
}
