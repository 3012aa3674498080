#pragma once

#include "system_monitor_lib/live/files/PolledFile.h"

#include <optional>

/// One attribute of a device in /sys, kept open between reads.
class Attribute
{
public:
    explicit Attribute(const QString &path);

    /// Nothing when the attribute is missing, cannot be read or holds no number.
    std::optional<qint64> integer();
    /// Of an attribute in thousandths of a degree; nothing when it is implausible.
    std::optional<double> celsius();
    /// Empty when the attribute is missing or cannot be read.
    QString word();

private:
    PolledFile m_file;
};

/// Reads an attribute once.
QString attributeWord(const QString &path);
