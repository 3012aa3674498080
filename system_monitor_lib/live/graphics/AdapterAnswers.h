#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// Questions to the graphics kernel of Windows (D3DKMTQueryAdapterInfo) and its answers, with the
/// layouts documented in the Windows driver kit (d3dkmthk.h). A question is the structure in which
/// the answer is returned. An answer may be truncated or contain anything; what a driver does not
/// measure is 0.
namespace adapter_answers {

/// KMTQUERYADAPTERINFOTYPE.
enum class Topic : quint32 {
    Address = 6,
    Type = 15,
    NodeMetadata = 25,
    NodePerformance = 61,
    AdapterPerformance = 62,
};

/// \a node is the number of one of the adapter's engines, where the topic has them.
QByteArray question(Topic topic, quint32 node = 0);

/// Its place on the PCI bus, such as "0000:09:00.0"; empty when it has none. The answer has no
/// domain.
QString parseAddress(const QByteArray &answer);

struct AdapterType
{
    bool isHardware = true;
    /// Whether Windows turns it off while nobody uses it, as the second adapter of laptops.
    bool maySleep = false;
};
/// Hardware that stays awake when the answer is too short.
AdapterType parseType(const QByteArray &answer);

/// DXGK_ENGINE_TYPE of an engine.
enum class NodeKind : quint32 {
    Other = 0,
    Drawing = 1,
    VideoDecode = 2,
    VideoEncode = 3,
    Copy = 6,
};
NodeKind parseNodeKind(const QByteArray &answer);

struct AdapterPerformance
{
    std::optional<double> celsius;
    std::optional<double> memoryMegahertz;
    /// 0 when the fan stands still.
    std::optional<double> fanRpm;
};
AdapterPerformance parseAdapterPerformance(const QByteArray &answer);

struct NodePerformance
{
    std::optional<double> megahertz;
    std::optional<double> volts;
};
NodePerformance parseNodePerformance(const QByteArray &answer);

} // namespace adapter_answers
