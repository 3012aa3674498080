#include "system_monitor_lib/live/files/Attribute.h"

#include "system_monitor_lib/live/files/SysfsText.h"

namespace {

constexpr std::size_t longestAttribute = 256;

} // namespace

Attribute::Attribute(const QString &path)
    : m_file(path, longestAttribute)
{
}

std::optional<qint64> Attribute::integer()
{
    return parseInteger(m_file.read());
}

std::optional<double> Attribute::celsius()
{
    return parseCelsius(m_file.read());
}

QString Attribute::word()
{
    return parseWord(m_file.read());
}

QString attributeWord(const QString &path)
{
    return Attribute(path).word();
}
