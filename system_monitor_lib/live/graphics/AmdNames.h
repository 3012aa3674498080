#pragma once

#include <QString>

/// The name of an AMD card in libdrm's list of them (amdgpu.ids), which tells cards of one number
/// apart by revision. \a device and \a revision are hexadecimal digits, with or without "0x". Empty
/// when the list cannot be read or lacks the card.
QString amdCardName(const QString &listPath, const QString &device, const QString &revision);
