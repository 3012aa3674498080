#pragma once

#include "plugin/KeyKind.h"

/// The kind of \a uuid, compared exactly with one row of the table of kinds after the other; null
/// when it is none.
const KeyKind *findKeyKind(const QString &uuid);
