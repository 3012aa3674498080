#include "system_monitor_lib/live/drives/StorageAnswers.h"

#include "system_monitor_lib/live/files/SysfsText.h"

#include <QtEndian>

namespace {

/// The little-endian number at \a offset; 0 when the answer ends before.
template <typename Number>
Number numberAt(const QByteArray &answer, int offset)
{
    if (offset < 0 || offset > answer.size() - static_cast<int>(sizeof(Number)))
        return 0;
    return qFromLittleEndian<Number>(answer.constData() + offset);
}

/// The text that begins at \a offset and ends with a zero. 0 stands for no text.
QString textAt(const QByteArray &answer, quint32 offset)
{
    if (offset == 0 || offset >= static_cast<quint32>(answer.size()))
        return {};
    const QByteArray rest = answer.mid(static_cast<int>(offset));
    // Ends at the answer's end at the latest.
    return QString::fromLatin1(rest.constData()).simplified();
}

} // namespace

std::optional<double> parseDriveCelsius(const QByteArray &answer)
{
    constexpr int countOffset = 12;
    constexpr int sensorsOffset = 24;
    constexpr int sensorSize = 16;
    constexpr int temperatureOffset = 2;
    constexpr qint16 notReported = -0x8000;
    const int count = numberAt<quint16>(answer, countOffset);
    for (int sensor = 0; sensor < count; ++sensor) {
        const int offset = sensorsOffset + sensor * sensorSize;
        if (offset + sensorSize > answer.size())
            break;
        // Sensor 0 is the drive's own; others are parts of it.
        const auto celsius = numberAt<qint16>(answer, offset + temperatureOffset);
        if (celsius != notReported && isPlausibleCelsius(celsius))
            return celsius;
    }
    return std::nullopt;
}

QString parseDriveModel(const QByteArray &answer)
{
    constexpr int makerOffset = 12;
    constexpr int productOffset = 16;
    const QString maker = textAt(answer, numberAt<quint32>(answer, makerOffset));
    const QString product = textAt(answer, numberAt<quint32>(answer, productOffset));
    return QStringLiteral("%1 %2").arg(maker, product).trimmed();
}
