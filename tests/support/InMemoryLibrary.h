#pragma once

#include <QJsonObject>
#include <QList>
#include <QStringList>

/// What the substitute for the system-monitor library answers and what was asked of it. Tests
/// write the trees; every instance of VqSystemMonitorLib serves them.
struct InMemoryLibrary
{
    static inline QJsonObject systemInfo;
    static inline QJsonObject cpuInfo;
    static inline QJsonObject cpuDtsInfo;
    static inline QJsonObject cpuEnhancedInfo;
    static inline QJsonObject gpuInfo;
    static inline QJsonObject networkInfo;
    static inline QJsonObject smartInfo;
    /// After each query of smartInfo the first of these replaces it.
    static inline QList<QJsonObject> laterSmartInfos;
    static inline QJsonObject presentMon;
    static inline QJsonObject allSensors;

    /// Otherwise its constructor throws.
    static inline bool canBeCreated = true;
    static inline bool initSucceeds = true;
    static inline int instances = 0;
    static inline int initCalls = 0;
    static inline bool lastInitFlag = false;
    static inline int detectedSensorsCalls = 0;
    static inline int deinitCalls = 0;

    /// What was asked of library, drives and playback devices, such as "getCPUInfo", "space /home".
    static inline QStringList queries;

    /// Empty trees, a succeeding init, all counts 0, no queries.
    static void reset();

    /// {label: [{"value": value, "units": units}]}
    static QJsonObject reading(const QString &label, const QJsonValue &value,
                               const QString &units = QString());
};
