#include "system_monitor_lib/live/network/StationMessages.h"

#include <libmnl/libmnl.h>

#include <linux/genetlink.h>
#include <linux/if.h>
#include <linux/nl80211.h>

#include <array>
#include <cstring>
#include <map>
#include <string_view>

namespace {

using Attributes = std::map<quint16, std::string_view>;

int keepAttribute(const nlattr *attribute, void *attributes)
{
    static_cast<Attributes *>(attributes)
        ->emplace(mnl_attr_get_type(attribute),
                  std::string_view(static_cast<const char *>(mnl_attr_get_payload(attribute)),
                                   mnl_attr_get_payload_len(attribute)));
    return MNL_CB_OK;
}

Attributes attributesIn(std::string_view bytes)
{
    Attributes attributes;
    mnl_attr_parse_payload(bytes.data(), bytes.size(), keepAttribute, &attributes);
    return attributes;
}

/// libmnl's own bounds of a message take its length for a signed one and round it up.
Attributes attributesOf(const QByteArray &message)
{
    constexpr std::size_t headers = sizeof(nlmsghdr) + sizeof(genlmsghdr);
    const std::string_view bytes(message.constData(), static_cast<std::size_t>(message.size()));
    nlmsghdr header = {};
    if (bytes.size() < headers)
        return {};
    std::memcpy(&header, bytes.data(), sizeof header);
    if (header.nlmsg_len < headers || header.nlmsg_len > bytes.size())
        return {};
    return attributesIn(bytes.substr(headers, header.nlmsg_len - headers));
}

Attributes nested(const Attributes &attributes, quint16 type)
{
    const auto outer = attributes.find(type);
    return outer == attributes.end() ? Attributes() : attributesIn(outer->second);
}

template <typename Number>
std::optional<Number> number(const Attributes &attributes, quint16 type)
{
    const auto found = attributes.find(type);
    if (found == attributes.end() || found->second.size() < sizeof(Number))
        return std::nullopt;
    Number value = {};
    std::memcpy(&value, found->second.data(), sizeof value);
    return value;
}

/// A question of the generic protocol, to which attributes are added.
class Question
{
public:
    Question(quint16 protocol, quint8 command, quint16 flags)
        : m_header(mnl_nlmsg_put_header(m_bytes.data()))
    {
        m_header->nlmsg_type = protocol;
        m_header->nlmsg_flags = static_cast<quint16>(NLM_F_REQUEST | flags);
        auto *const generic =
            static_cast<genlmsghdr *>(mnl_nlmsg_put_extra_header(m_header, sizeof(genlmsghdr)));
        generic->cmd = command;
        generic->version = 1;
    }

    nlmsghdr *header() { return m_header; }
    QByteArray bytes() const { return {m_bytes.data(), static_cast<int>(m_header->nlmsg_len)}; }

private:
    static constexpr std::size_t room = 128;
    alignas(nlmsghdr) std::array<char, room> m_bytes = {};
    nlmsghdr *m_header;
};

bool isStation(quint32 kind)
{
    return kind == NL80211_IFTYPE_STATION || kind == NL80211_IFTYPE_P2P_CLIENT;
}

/// Whether the other end is a device beside this one, not the access point of both.
bool isNeighbour(const Attributes &station)
{
    const auto flags = number<nl80211_sta_flag_update>(station, NL80211_STA_INFO_STA_FLAGS);
    return flags && (flags->set & 1U << NL80211_STA_FLAG_TDLS_PEER) != 0;
}

quint64 bitsPerSecond(const Attributes &rate)
{
    constexpr quint64 unit = 100'000;
    if (const auto units = number<quint32>(rate, NL80211_RATE_INFO_BITRATE32))
        return *units * unit;
    return number<quint16>(rate, NL80211_RATE_INFO_BITRATE).value_or(0) * unit;
}

} // namespace

namespace stationmessages {

QByteArray protocolQuestion()
{
    Question question(GENL_ID_CTRL, CTRL_CMD_GETFAMILY, NLM_F_ACK);
    mnl_attr_put_strz(question.header(), CTRL_ATTR_FAMILY_NAME, NL80211_GENL_NAME);
    return question.bytes();
}

std::optional<quint16> protocolIn(const QByteArray &answer)
{
    return number<quint16>(attributesOf(answer), CTRL_ATTR_FAMILY_ID);
}

QByteArray adaptersQuestion(quint16 protocol)
{
    return Question(protocol, NL80211_CMD_GET_INTERFACE, NLM_F_DUMP).bytes();
}

std::optional<WirelessStation> stationIn(const QByteArray &answer)
{
    const Attributes attributes = attributesOf(answer);
    const auto index = number<quint32>(attributes, NL80211_ATTR_IFINDEX);
    const auto kind = number<quint32>(attributes, NL80211_ATTR_IFTYPE);
    const auto name = attributes.find(NL80211_ATTR_IFNAME);
    if (!index || !kind || !isStation(*kind) || name == attributes.end())
        return std::nullopt;
    const std::string_view text = name->second.substr(0, name->second.find('\0'));
    if (text.empty() || text.size() >= IFNAMSIZ)
        return std::nullopt;
    return WirelessStation{*index, QString::fromUtf8(text.data(), static_cast<int>(text.size()))};
}

QByteArray linksQuestion(quint16 protocol, quint32 adapter)
{
    Question question(protocol, NL80211_CMD_GET_STATION, NLM_F_DUMP);
    mnl_attr_put_u32(question.header(), NL80211_ATTR_IFINDEX, adapter);
    return question.bytes();
}

std::optional<WirelessLink> linkIn(const QByteArray &answer)
{
    const Attributes attributes = attributesOf(answer);
    if (attributes.count(NL80211_ATTR_STA_INFO) == 0)
        return std::nullopt;
    const Attributes station = nested(attributes, NL80211_ATTR_STA_INFO);
    if (isNeighbour(station))
        return std::nullopt;
    WirelessLink link;
    link.isConnected = true;
    // What is not in dBm is positive.
    if (const auto dbm = number<qint8>(station, NL80211_STA_INFO_SIGNAL); dbm && *dbm < 0)
        link.dbm = *dbm;
    link.bitsPerSecond = bitsPerSecond(nested(station, NL80211_STA_INFO_TX_BITRATE));
    return link;
}

} // namespace stationmessages
