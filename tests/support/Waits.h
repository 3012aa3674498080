#pragma once

/// Within this time, in milliseconds, a condition has come true or never will. It leaves room for
/// a loaded machine and for sanitizers.
constexpr int patience = 20000;

#define QTRY_PATIENTLY(condition) QTRY_VERIFY_WITH_TIMEOUT(condition, patience)
