#include "sensors/machine/MountInfo.h"

#include <QFile>
#include <QList>

#include <optional>

namespace {

bool isOctal(char character)
{
    return character >= '0' && character <= '7';
}

/// Blanks, tabs, line feeds and backslashes are written as a backslash and three octal digits.
QByteArray unescaped(const QByteArray &field)
{
    QByteArray text;
    text.reserve(field.size());
    for (int i = 0; i < field.size(); ++i) {
        if (field.at(i) == '\\' && i + 3 < field.size() && isOctal(field.at(i + 1)) &&
            isOctal(field.at(i + 2)) && isOctal(field.at(i + 3))) {
            text.append(static_cast<char>(field.mid(i + 1, 3).toInt(nullptr, 8)));
            i += 3;
        } else {
            text.append(field.at(i));
        }
    }
    return text;
}

std::optional<Mount> parseLine(const QByteArray &line)
{
    // ID PARENT MAJOR:MINOR ROOT POINT OPTIONS [TAG...] - TYPE SOURCE OPTIONS
    constexpr int firstTag = 6;
    const QList<QByteArray> fields = line.split(' ');
    const auto separator = fields.indexOf("-", firstTag);
    if (separator < 0 || separator + 2 >= fields.size())
        return std::nullopt;
    return Mount{fields.at(0).toUInt(),
                 fields.at(1).toUInt(),
                 parseDeviceNumber(fields.at(2)),
                 unescaped(fields.at(3)),
                 QFile::decodeName(unescaped(fields.at(4))),
                 fields.at(separator + 1),
                 unescaped(fields.at(separator + 2))};
}

} // namespace

DeviceNumber parseDeviceNumber(const QByteArray &text)
{
    const auto colon = text.indexOf(':');
    bool majorIsNumber = false;
    bool minorIsNumber = false;
    const DeviceNumber number{text.left(colon).toUInt(&majorIsNumber),
                              text.mid(colon + 1).trimmed().toUInt(&minorIsNumber)};
    return colon > 0 && majorIsNumber && minorIsNumber ? number : DeviceNumber{};
}

QVector<Mount> parseMountInfo(const QByteArray &text)
{
    QVector<Mount> mounts;
    for (const QByteArray &line : text.split('\n')) {
        if (const std::optional<Mount> mount = parseLine(line))
            mounts.append(*mount);
    }
    return mounts;
}
