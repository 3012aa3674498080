#pragma once

#include <QObject>

/// Stands beside the system-monitor library for the plugin's lifetime; it has nothing of its own.
class LibreHardwareMonitorLib : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;
};
