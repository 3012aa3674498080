#pragma once

#include <QByteArray>
#include <QLatin1String>
#include <QString>

/// \a prefix and behind it \a bytes in base64, as QByteArray::toBase64 writes them.
QString withBase64(QLatin1String prefix, const QByteArray &bytes);
