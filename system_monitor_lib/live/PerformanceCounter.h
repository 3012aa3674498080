#pragma once

#include <QString>

#include <memory>
#include <optional>
#include <vector>

/// One instance of a performance counter, such as one process on one engine of a GPU.
struct CounterValue
{
    QString instance;
    double value = 0;
};

/// A performance counter of Windows (PDH), by its path in English, which every language has. It
/// compares each sample with the one before. Where Windows has no such counter, it is looked for
/// again each minute, because its provider may start later.
class PerformanceCounter
{
public:
    /// \a path without instances, or with a "*" for all of them.
    explicit PerformanceCounter(const QString &path);
    ~PerformanceCounter();
    Q_DISABLE_COPY(PerformanceCounter)

    /// Not capped at 100 %. Nothing at first if it is a rate, and without such a counter.
    std::optional<double> value(qint64 nowNs);
    /// The same for each instance that there is now.
    std::vector<CounterValue> values(qint64 nowNs);

private:
    class Private;
    const std::unique_ptr<Private> d;
};
