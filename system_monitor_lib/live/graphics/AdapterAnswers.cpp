#include "system_monitor_lib/live/graphics/AdapterAnswers.h"

#include "system_monitor_lib/live/BinaryAnswer.h"
#include "system_monitor_lib/live/files/SysfsText.h"

namespace adapter_answers {

namespace {

/// The sizes of D3DKMT_ADAPTERADDRESS, D3DKMT_ADAPTERTYPE, D3DKMT_NODEMETADATA,
/// D3DKMT_NODE_PERFDATA and D3DKMT_ADAPTER_PERFDATA.
int sizeOf(Topic topic)
{
    switch (topic) {
    case Topic::Address:
        return 12;
    case Topic::Type:
        return 4;
    case Topic::NodeMetadata:
        return 80;
    case Topic::NodePerformance:
        return 56;
    case Topic::AdapterPerformance:
        return 64;
    }
    return 0;
}

/// \a value / \a divisor if the driver measures it and it is not higher than \a highest.
template <typename Number>
std::optional<double> measured(std::optional<Number> value, double divisor, double highest)
{
    const double result = static_cast<double>(value.value_or(0)) / divisor;
    return result > 0 && result <= highest ? std::optional(result) : std::nullopt;
}

std::optional<double> megahertzAt(const QByteArray &answer, int offset)
{
    constexpr double hertzPerMegahertz = 1e6;
    constexpr double highest = 20'000;
    return measured(numberAt<quint64>(answer, offset), hertzPerMegahertz, highest);
}

bool isBlank(const QByteArray &answer, int offset)
{
    return answer.mid(offset).count('\0') == answer.size() - offset;
}

} // namespace

QByteArray question(Topic topic, quint32 node)
{
    QByteArray asked(sizeOf(topic), '\0');
    if (topic == Topic::NodeMetadata || topic == Topic::NodePerformance)
        qToLittleEndian(node, asked.data());
    return asked;
}

QString parseAddress(const QByteArray &answer)
{
    constexpr quint32 highestBus = 0xff;
    constexpr quint32 highestDevice = 0x1f;
    constexpr quint32 highestFunction = 7;
    const auto bus = numberAt<quint32>(answer, 0);
    const auto device = numberAt<quint32>(answer, 4);
    const auto function = numberAt<quint32>(answer, 8);
    if (!function || *bus > highestBus || *device > highestDevice || *function > highestFunction)
        return {};
    return QStringLiteral("0000:%1:%2.%3")
        .arg(*bus, 2, 16, QLatin1Char('0'))
        .arg(*device, 2, 16, QLatin1Char('0'))
        .arg(*function);
}

AdapterType parseType(const QByteArray &answer)
{
    constexpr quint32 softwareDevice = 1U << 2U;
    constexpr quint32 hybridDiscrete = 1U << 4U;
    constexpr quint32 indirectDisplay = 1U << 6U;
    constexpr quint32 runtimePowerManagement = 1U << 13U;
    const quint32 flags = numberAt<quint32>(answer, 0).value_or(0);
    return {(flags & (softwareDevice | indirectDisplay)) == 0,
            (flags & (hybridDiscrete | runtimePowerManagement)) != 0};
}

NodeKind parseNodeKind(const QByteArray &answer)
{
    constexpr int kindOffset = 4;
    const auto kind = static_cast<NodeKind>(numberAt<quint32>(answer, kindOffset).value_or(0));
    switch (kind) {
    case NodeKind::Drawing:
    case NodeKind::VideoDecode:
    case NodeKind::VideoEncode:
    case NodeKind::Copy:
        return kind;
    case NodeKind::Other:
        break;
    }
    return NodeKind::Other;
}

AdapterPerformance parseAdapterPerformance(const QByteArray &answer)
{
    constexpr int memoryClockOffset = 8;
    constexpr int fanOffset = 48;
    constexpr int temperatureOffset = 56;
    constexpr double tenthsPerDegree = 10;
    constexpr quint32 highestSpeed = 50'000;
    AdapterPerformance performance;
    // The driver has filled in nothing.
    if (answer.size() <= memoryClockOffset || isBlank(answer, memoryClockOffset))
        return performance;
    performance.memoryMegahertz = megahertzAt(answer, memoryClockOffset);
    const auto celsius =
        measured(numberAt<quint32>(answer, temperatureOffset), tenthsPerDegree, 1e9);
    if (celsius && isPlausibleCelsius(*celsius))
        performance.celsius = celsius;
    const auto speed = numberAt<quint32>(answer, fanOffset);
    if (speed && *speed <= highestSpeed)
        performance.fanRpm = *speed;
    return performance;
}

NodePerformance parseNodePerformance(const QByteArray &answer)
{
    constexpr int clockOffset = 8;
    constexpr int voltageOffset = 32;
    constexpr double millivoltsPerVolt = 1000;
    constexpr double highestVoltage = 10;
    return {megahertzAt(answer, clockOffset),
            measured(numberAt<quint32>(answer, voltageOffset), millivoltsPerVolt, highestVoltage)};
}

} // namespace adapter_answers
