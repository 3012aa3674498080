#pragma once

#include <QByteArray>
#include <QtEndian>

#include <optional>

/// The little-endian number at \a offset of a system's answer; nothing when the answer ends before.
template <typename Number>
std::optional<Number> numberAt(const QByteArray &answer, int offset)
{
    if (offset < 0 || offset > answer.size() - static_cast<int>(sizeof(Number)))
        return std::nullopt;
    return qFromLittleEndian<Number>(answer.constData() + offset);
}
