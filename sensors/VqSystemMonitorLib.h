#pragma once

#include <QJsonObject>
#include <QtGlobal>

#include <memory>

class QObject;

#ifdef SYSTEM_MONITOR_LIB_BUILD
#define SYSTEM_MONITOR_LIB_API Q_DECL_EXPORT
#else
#define SYSTEM_MONITOR_LIB_API
#endif

/// The system-monitor library, defined by the shared library SystemMonitorLib1.
///
/// Every query returns a sensor tree: an object that maps a sensor label to an array whose first
/// element holds "value" (number) and "units" (text). The queries marked per device have one level
/// more, keyed by the name of the GPU, adapter or drive. A reading that the machine cannot give is
/// a missing label or an empty array. All calls are made from one thread.
class SYSTEM_MONITOR_LIB_API VqSystemMonitorLib
{
public:
    /// Neither argument is used by the bundled library; the program passes false and no parent.
    VqSystemMonitorLib(bool flag, QObject *parent);
    virtual ~VqSystemMonitorLib();
    Q_DISABLE_COPY(VqSystemMonitorLib)

    /// \a newerThanWindows7 is false on Windows 7. Returns false when no source could be opened.
    bool initSystemMonitorLib(bool newerThanWindows7);
    void getNumberOfDetectedSensors();
    /// Called once, right before the process ends with the session.
    void deinitSystemMonitorLib();

    QJsonObject getSystemInfo();        ///< Memory load (%), used and available (MB).
    QJsonObject getMemoryTimingsInfo(); ///< Queried on each refresh, not mapped.
    QJsonObject getCPUInfo();           ///< CPU load (%), per-core clocks (MHz) and VIDs (V).
    QJsonObject getCPUDTSInfo();        ///< CPU package temperature; may be empty.
    QJsonObject getCPUEnhancedInfo();   ///< Package power, integrated graphics.
    QJsonObject getGPUInfo();           ///< Per GPU.
    QJsonObject getNetworkInfo();       ///< Per adapter: "Current UP rate", "Current DL rate".
    QJsonObject getSMARTInfo();         ///< Per drive: temperatures.
    QJsonObject getPresentMon();        ///< Frame-rate sensors.
    QJsonObject getAllSensorsData();    ///< Every sensor, grouped by device.

private:
    class Private;
    std::unique_ptr<Private> d;
};
