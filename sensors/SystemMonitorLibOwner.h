#pragma once

#include <QtPlugin>

class VqSystemMonitorLib;

/// What the object that owns the system-monitor library offers to those who only read from it.
class SystemMonitorLibOwner
{
public:
    virtual ~SystemMonitorLibOwner() = default;

    /// The instance that serves every query; null when it could not be created.
    virtual VqSystemMonitorLib *systemMonitorLib() const = 0;
};

Q_DECLARE_INTERFACE(SystemMonitorLibOwner, "SystemMonitorLibOwner")
