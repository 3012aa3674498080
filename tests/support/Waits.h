#pragma once

#include <QtTest>

/// Within this time, in milliseconds, a condition has come true or never will. It leaves room for
/// a loaded machine and for sanitizers: where no service answers, the plugin's start alone waits
/// 14 seconds.
constexpr int patience = 60000;

// QtTest itself gives up after five seconds, which twice as many tests as cores have exceeded.
#undef QTRY_VERIFY
#undef QTRY_VERIFY2
#undef QTRY_COMPARE
#define QTRY_VERIFY(condition) QTRY_VERIFY_WITH_TIMEOUT((condition), patience)
#define QTRY_VERIFY2(condition, message) QTRY_VERIFY2_WITH_TIMEOUT((condition), (message), patience)
#define QTRY_COMPARE(actual, expected) QTRY_COMPARE_WITH_TIMEOUT((actual), expected, patience)
