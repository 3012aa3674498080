#pragma once

#include <QString>

/// The name of an AMD card in libdrm's list (amdgpu.ids), which distinguishes cards with the same
/// number by their revision. \a device and \a revision are hexadecimal digits, with or without
/// "0x". Empty when the list cannot be read or lacks the card.
QString amdCardName(const QString &listPath, const QString &device, const QString &revision);
