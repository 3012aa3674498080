#pragma once

#include <QObject>

/// Exists beside the system-monitor library for the plugin's lifetime; it has no function of its
/// own.
class LibreHardwareMonitorLib : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;
};
