#pragma once

#include <QByteArray>
#include <QtEndian>

/// A little-endian number as bytes, as in the answers of a system.
template <typename Number>
QByteArray bytes(Number number)
{
    QByteArray text(sizeof(Number), '\0');
    qToLittleEndian(number, text.data());
    return text;
}

/// Bytes that mean nothing.
inline QByteArray gap(int size)
{
    return QByteArray(size, '\0');
}
