#pragma once

#include "system_monitor_lib/live/system/SystemState.h"

#include <functional>

/// Reads the state of the operating system, which takes calls to its services.
using SystemStateReader = std::function<SystemState()>;

/// That of this machine.
SystemStateReader systemStateReader();
