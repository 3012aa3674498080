#pragma once

#include <QByteArray>

/// The port in the INI file of the hardware-information service: group "HWInfoServe", key "port",
/// ignoring letter case. -1 without group or key, 0 when it is not a number; the last of several
/// counts. Quotation marks, escapes, comments and continued lines are handled as in QSettings.
///
/// QSettings itself would create whatever object a value names ("@Variant(...)"), and a broken one
/// ends the process. Here only texts are read (plain ones, "@String(...)" and "@ByteArray(...)"); a
/// value of any other type counts as 0.
int configuredPort(const QByteArray &ini);
