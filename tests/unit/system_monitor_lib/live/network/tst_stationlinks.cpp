#include "system_monitor_lib/live/BinaryAnswer.h"
#include "system_monitor_lib/live/network/StationLinks.h"
#include "tests/unit/system_monitor_lib/bytes.h"
#include "tests/unit/system_monitor_lib/live/network/netlinkmessages.h"

#include <QtTest>

#include <map>

#include <linux/genetlink.h>
#include <linux/nl80211.h>

namespace {

constexpr qint64 second = 1'000'000'000;
constexpr quint16 protocol = 28;

/// A kernel with wireless adapters.
struct Kernel
{
    std::vector<QByteArray> answer(const QByteArray &question)
    {
        ++questions;
        const auto asked = numberAt<quint16>(question, 4);
        if (asked == GENL_ID_CTRL && hasProtocol)
            return {netlinkMessage(GENL_ID_CTRL, CTRL_CMD_NEWFAMILY,
                                   attribute(CTRL_ATTR_FAMILY_ID, bytes(protocol)))};
        if (asked != protocol)
            return {};
        if (numberAt<quint8>(question, 16) == NL80211_CMD_GET_INTERFACE)
            return adapters;
        return links[numberAt<quint32>(question, 24).value()];
    }

    bool hasProtocol = true;
    std::vector<QByteArray> adapters{adapterMessage(3, NL80211_IFTYPE_STATION, "wlan0")};
    std::map<quint32, std::vector<QByteArray>> links{
        {3, {linkMessage(signalOf(-60) + rateOf(8667))}}};
    int questions = 0;
};

} // namespace

class StationLinksTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void describesEachAdapter();
    void takesTheAccessPointOfSeveral();
    void asksAgainForAProtocolThatIsMissing();

private:
    QStringList read(qint64 nowNs)
    {
        QStringList lines;
        for (const WirelessLink &link : m_links->read(nowNs))
            lines += QStringLiteral("%1 %2 %3 %4")
                         .arg(link.adapter)
                         .arg(link.isConnected)
                         .arg(link.dbm.value_or(1))
                         .arg(link.bitsPerSecond);
        return lines;
    }

    Kernel m_kernel;
    std::unique_ptr<StationLinks> m_links;
};

void StationLinksTest::init()
{
    m_kernel = {};
    m_links = std::make_unique<StationLinks>(
        [this](const QByteArray &question) { return m_kernel.answer(question); });
}

void StationLinksTest::describesEachAdapter()
{
    m_kernel.adapters = {adapterMessage(3, NL80211_IFTYPE_STATION, "wlan0"),
                         adapterMessage(4, NL80211_IFTYPE_AP, "hotspot"),
                         adapterMessage(7, NL80211_IFTYPE_STATION, "wlan1"),
                         adapterMessage(9, NL80211_IFTYPE_STATION, "wlan2")};
    m_kernel.links[4] = {linkMessage(signalOf(-10))};
    m_kernel.links[7] = {linkMessage(signalOf(-80) + oldRateOf(10))};
    const QStringList expected{QStringLiteral("wlan0 1 -60 866700000"),
                               QStringLiteral("wlan1 1 -80 1000000"),
                               QStringLiteral("wlan2 0 1 0")};
    QCOMPARE(read(0), expected);
    m_kernel.links[3] = {};
    QCOMPARE(read(second).constFirst(), QStringLiteral("wlan0 0 1 0"));
}

void StationLinksTest::takesTheAccessPointOfSeveral()
{
    m_kernel.links[3] = {linkMessage(signalOf(-20) + flagsOf(1U << NL80211_STA_FLAG_TDLS_PEER)),
                         linkMessage(signalOf(-60) + flagsOf(1U << NL80211_STA_FLAG_AUTHORIZED))};
    QCOMPARE(read(0), QStringList(QStringLiteral("wlan0 1 -60 0")));
}

void StationLinksTest::asksAgainForAProtocolThatIsMissing()
{
    m_kernel.hasProtocol = false;
    QCOMPARE(read(0), QStringList());
    m_kernel.hasProtocol = true;
    QCOMPARE(read(59 * second), QStringList());
    QCOMPARE(m_kernel.questions, 1);
    QCOMPARE(read(60 * second).size(), 1);
    QCOMPARE(m_kernel.questions, 4);
    // It keeps its number.
    QCOMPARE(read(120 * second).size(), 1);
    QCOMPARE(m_kernel.questions, 6);
}

QTEST_APPLESS_MAIN(StationLinksTest)
#include "tst_stationlinks.moc"
