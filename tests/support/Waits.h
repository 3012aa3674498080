#pragma once

/// Within this time, in milliseconds, a condition has come true or never will. It leaves room for
/// a loaded machine and for sanitizers: where no service answers, the plugin's start alone waits
/// 14 seconds.
constexpr int patience = 60000;

#define QTRY_PATIENTLY(condition) QTRY_VERIFY_WITH_TIMEOUT(condition, patience)
