#pragma once

#include <QByteArray>

/// The port in the INI file of the hardware-information service: group "HWInfoServe", key "port",
/// in any letter case. -1 without group or key, 0 when it is no number; of several the last one
/// counts. Quotation marks, escapes, comments and lines that go on are those of QSettings.
///
/// QSettings itself would create whatever object a value names ("@Variant(...)"), and a broken one
/// ends the process; here every value is a text, and 0 unless it is one ("@String(...)",
/// "@ByteArray(...)").
int configuredPort(const QByteArray &ini);
