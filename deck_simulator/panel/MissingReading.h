#pragma once

#include <QString>

namespace deck {

/// "not available on this machine", with the reason in brackets if there is one.
QString notAvailable(const QString &reason);

/// What to say in place of the data server's answer \a info to \a request; empty if the answer is a
/// reading. The server sends 0 or -1 for a missing reading, so that only answers that no machine
/// gives count as missing. \a graphics is the answer to "Gpu Model"; empty before it came.
QString missingText(const QString &request, const QString &info, const QString &graphics);

/// The same for a fan or the pump, for which the server has no request, from the key's \a title;
/// empty for other actions.
QString missingFanText(const QString &action, const QString &title);

} // namespace deck
