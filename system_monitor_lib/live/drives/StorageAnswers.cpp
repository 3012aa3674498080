#include "system_monitor_lib/live/drives/StorageAnswers.h"

#include "system_monitor_lib/live/BinaryAnswer.h"
#include "system_monitor_lib/live/files/SysfsText.h"

namespace {

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
    const int count = numberAt<quint16>(answer, countOffset).value_or(0);
    for (int sensor = 0; sensor < count; ++sensor) {
        const int offset = sensorsOffset + sensor * sensorSize;
        if (offset + sensorSize > answer.size())
            break;
        // Sensor 0 is the drive's own; others are parts of it.
        const auto celsius =
            numberAt<qint16>(answer, offset + temperatureOffset).value_or(notReported);
        if (celsius != notReported && isPlausibleCelsius(celsius))
            return celsius;
    }
    return std::nullopt;
}

QString parseDriveModel(const QByteArray &answer)
{
    constexpr int makerOffset = 12;
    constexpr int productOffset = 16;
    const QString maker = textAt(answer, numberAt<quint32>(answer, makerOffset).value_or(0));
    const QString product = textAt(answer, numberAt<quint32>(answer, productOffset).value_or(0));
    return QStringLiteral("%1 %2").arg(maker, product).trimmed();
}

bool parseIsRotating(const QByteArray &answer)
{
    constexpr int penaltyOffset = 8;
    return numberAt<quint8>(answer, penaltyOffset) != quint8{0};
}

QByteArray parseServed(const QByteArray &answer)
{
    // The bytes read and written, and the numbers of reads and writes.
    constexpr int bytesSize = 16;
    constexpr int countsOffset = 40;
    constexpr int countsSize = 8;
    if (answer.size() < countsOffset + countsSize)
        return {};
    return answer.left(bytesSize) + answer.mid(countsOffset, countsSize);
}

std::optional<DriveCounters> parseDriveCounters(const QByteArray &answer)
{
    constexpr int writtenOffset = 8;
    constexpr int readTimeOffset = 16;
    constexpr int writeTimeOffset = 24;
    constexpr int idleOffset = 32;
    constexpr int readsOffset = 40;
    constexpr int writesOffset = 44;
    constexpr int clockOffset = 56;
    const auto numbers = {0,          writtenOffset, readTimeOffset, writeTimeOffset,
                          idleOffset, clockOffset};
    for (const int offset : numbers) {
        if (numberAt<qint64>(answer, offset).value_or(-1) < 0)
            return std::nullopt;
    }
    const auto at = [&answer](int offset) { return *numberAt<quint64>(answer, offset); };
    constexpr quint64 nanosecondsPerTick = 100;
    DriveCounters counters;
    counters.readBytes = at(0);
    counters.writtenBytes = at(writtenOffset);
    counters.readNs = at(readTimeOffset) * nanosecondsPerTick;
    counters.writeNs = at(writeTimeOffset) * nanosecondsPerTick;
    // Not the sum of the two times above: requests overlap.
    if (at(clockOffset) > at(idleOffset))
        counters.busyNs = (at(clockOffset) - at(idleOffset)) * nanosecondsPerTick;
    counters.requests =
        quint64{*numberAt<quint32>(answer, readsOffset)} + *numberAt<quint32>(answer, writesOffset);
    return counters;
}
