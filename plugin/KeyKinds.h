#pragma once

#include "plugin/KeyKind.h"

/// The kind of \a uuid, compared exactly with each row of the table of kinds in order; null when
/// there is none.
const KeyKind *findKeyKind(const QString &uuid);
