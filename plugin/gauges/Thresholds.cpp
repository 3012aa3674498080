#include "plugin/gauges/Thresholds.h"

namespace {

bool isReached(double value, double threshold, bool isWorseAbove)
{
    return isWorseAbove ? value >= threshold : value <= threshold;
}

} // namespace

gauge::Level levelOf(double value, const Thresholds &thresholds, double slack, gauge::Level before)
{
    const double back = thresholds.isWorseAbove ? -slack : slack;
    const auto reaches = [&](const std::optional<double> &threshold, gauge::Level level) {
        return threshold && isReached(value, *threshold + (before >= level ? back : 0.0),
                                      thresholds.isWorseAbove);
    };
    if (reaches(thresholds.critical, gauge::Level::Critical))
        return gauge::Level::Critical;
    if (reaches(thresholds.warning, gauge::Level::Warning))
        return gauge::Level::Warning;
    return gauge::Level::Normal;
}
