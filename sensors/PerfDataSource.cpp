#include "sensors/PerfDataSource.h"

#include "sensors/httptcpGetMonitorData.h"

PerfDataSource::PerfDataSource(QObject *parent)
    : QObject(parent)
    , m_fetcher(std::make_unique<httptcpGetMonitorData>())
{
}

PerfDataSource::~PerfDataSource() = default;
