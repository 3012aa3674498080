#pragma once

#include <QString>

namespace deck {

/// Why a file is not a recording of sensors; empty when it is one.
QString recordingFault(const QString &fileName);

} // namespace deck
