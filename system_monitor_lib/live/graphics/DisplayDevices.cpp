#include "system_monitor_lib/live/graphics/DisplayDevices.h"

#include <QRegularExpression>

QString pciIdOfInstance(const QString &instance)
{
    static const QRegularExpression pattern(
        QStringLiteral(R"(^PCI\\VEN_([0-9a-f]{4})&DEV_([0-9a-f]{4})(?:&|\\|$))"),
        QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch match = pattern.match(instance);
    return match.hasMatch()
               ? QStringLiteral("%1:%2").arg(match.captured(1), match.captured(2)).toLower()
               : QString();
}

QString pciAddress(quint32 bus, quint32 address)
{
    constexpr unsigned bitsOfBus = 8;
    constexpr unsigned bitsOfFunction = 16;
    constexpr quint32 busMask = 0xff;
    constexpr quint32 functionMask = 0xffff;
    // Above the bus stands the domain.
    return QStringLiteral("%1:%2:%3.%4")
        .arg(bus >> bitsOfBus, 4, 16, QLatin1Char('0'))
        .arg(bus & busMask, 2, 16, QLatin1Char('0'))
        .arg(address >> bitsOfFunction, 2, 16, QLatin1Char('0'))
        .arg(address & functionMask);
}

bool isSamePlace(const QString &first, const QString &second)
{
    const auto withoutDomain = [](const QString &address) {
        return address.section(QLatin1Char(':'), 1).toLower();
    };
    return !withoutDomain(first).isEmpty() && withoutDomain(first) == withoutDomain(second);
}
