#include "sensors/services/PerfDataSource.h"

#include "sensors/services/httptcpGetMonitorData.h"

// Compatibility: idle-data-source
PerfDataSource::PerfDataSource(QObject *parent)
    : QObject(parent)
    , m_fetcher(std::make_unique<httptcpGetMonitorData>())
{
}

PerfDataSource::~PerfDataSource() = default;
