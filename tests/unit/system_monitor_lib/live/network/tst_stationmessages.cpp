#include "system_monitor_lib/live/network/StationMessages.h"
#include "tests/unit/system_monitor_lib/bytes.h"
#include "tests/unit/system_monitor_lib/live/network/netlinkmessages.h"

#include <QtTest>

#include <linux/genetlink.h>
#include <linux/nl80211.h>

using namespace stationmessages;

/// The kernel's messages about wireless adapters and their links.
class StationMessagesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void asks();
    void findsTheProtocol();
    void findsStations_data();
    void findsStations();
    void findsLinks_data();
    void findsLinks();
    void standsEveryCut();
};

void StationMessagesTest::asks()
{
    QCOMPARE(protocolQuestion(),
             netlinkMessage(GENL_ID_CTRL, CTRL_CMD_GETFAMILY,
                            attribute(CTRL_ATTR_FAMILY_NAME, QByteArray("nl80211\0", 8)),
                            NLM_F_REQUEST | NLM_F_ACK));
    QCOMPARE(adaptersQuestion(28),
             netlinkMessage(28, NL80211_CMD_GET_INTERFACE, {}, NLM_F_REQUEST | NLM_F_DUMP));
    QCOMPARE(linksQuestion(28, 3),
             netlinkMessage(28, NL80211_CMD_GET_STATION,
                            attribute(NL80211_ATTR_IFINDEX, bytes<quint32>(3)),
                            NLM_F_REQUEST | NLM_F_DUMP));
}

void StationMessagesTest::findsTheProtocol()
{
    const QByteArray name = attribute(CTRL_ATTR_FAMILY_NAME, QByteArray("nl80211\0", 8));
    const auto answer = [&name](const QByteArray &attributes) {
        return netlinkMessage(GENL_ID_CTRL, CTRL_CMD_NEWFAMILY, name + attributes);
    };
    QVERIFY(protocolIn(answer(attribute(CTRL_ATTR_FAMILY_ID, bytes<quint16>(28)))) == quint16{28});
    QVERIFY(!protocolIn(answer(attribute(CTRL_ATTR_FAMILY_ID, "x"))));
    QVERIFY(!protocolIn(answer({})));
    QVERIFY(!protocolIn({}));
}

void StationMessagesTest::findsStations_data()
{
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<QString>("station");

    QByteArray station = adapterMessage(3, NL80211_IFTYPE_STATION, {"wlan0\0", 6});
    QTest::newRow("station") << station << QStringLiteral("3 wlan0");
    QTest::newRow("without an end")
        << adapterMessage(4, NL80211_IFTYPE_STATION, "wlp1s0") << QStringLiteral("4 wlp1s0");
    QTest::newRow("of a phone") << adapterMessage(5, NL80211_IFTYPE_P2P_CLIENT, {"p2p0\0", 5})
                                << QStringLiteral("5 p2p0");
    QTest::newRow("access point") << adapterMessage(3, NL80211_IFTYPE_AP, "wlan0") << QString();
    QTest::newRow("watches") << adapterMessage(3, NL80211_IFTYPE_MONITOR, "mon0") << QString();
    QTest::newRow("no name") << adapterMessage(3, NL80211_IFTYPE_STATION, {}) << QString();
    QTest::newRow("empty name") << adapterMessage(3, NL80211_IFTYPE_STATION, {"\0", 1})
                                << QString();
    QTest::newRow("too long a name")
        << adapterMessage(3, NL80211_IFTYPE_STATION, QByteArray(16, 'w')) << QString();
    QTest::newRow("no index") << netlinkMessage(
                                     28, NL80211_CMD_NEW_INTERFACE,
                                     attribute(NL80211_ATTR_IFNAME, "wlan0") +
                                         attribute(NL80211_ATTR_IFTYPE,
                                                   bytes<quint32>(NL80211_IFTYPE_STATION)))
                              << QString();
    QTest::newRow("no kind") << netlinkMessage(28, NL80211_CMD_NEW_INTERFACE,
                                               attribute(NL80211_ATTR_IFINDEX, bytes<quint32>(3)) +
                                                   attribute(NL80211_ATTR_IFNAME, "wlan0"))
                             << QString();
    QTest::newRow("nothing") << QByteArray() << QString();
    QTest::newRow("header alone") << bytes<quint32>(16) + QByteArray(12, '\0') << QString();
    QTest::newRow("longer than it is")
        << station.replace(0, 4, bytes(static_cast<quint32>(station.size() + 4))) << QString();
    QTest::newRow("length above 2^31")
        << station.replace(0, 4, bytes<quint32>(0x8000'0000)) << QString();
    QTest::newRow("ends within an attribute")
        << station.replace(0, 4, bytes(static_cast<quint32>(station.size() - 2))) << QString();
    QTest::newRow("zero bytes") << QByteArray(100, '\0') << QString();
    QTest::newRow("all ones") << QByteArray(100, '\xff') << QString();
}

void StationMessagesTest::findsStations()
{
    QFETCH(const QByteArray, answer);
    const auto station = stationIn(answer);
    QTEST(station ? QStringLiteral("%1 %2").arg(station->index).arg(station->name) : QString(),
          "station");
}

void StationMessagesTest::findsLinks_data()
{
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<QString>("link"); // dBm, bits per second

    QTest::newRow("link") << linkMessage(signalOf(-60) + rateOf(8667))
                          << QStringLiteral("-60 866700000");
    QTest::newRow("faster than 6.5 Gbit/s")
        << linkMessage(rateOf(115'294) + signalOf(-40)) << QStringLiteral("-40 11529400000");
    QTest::newRow("old driver") << linkMessage(signalOf(-71) + oldRateOf(540))
                                << QStringLiteral("-71 54000000");
    QTest::newRow("without a signal") << linkMessage(rateOf(10)) << QStringLiteral("- 1000000");
    QTest::newRow("signal in percent") << linkMessage(signalOf(15)) << QStringLiteral("- 0");
    QTest::newRow("without anything") << linkMessage({}) << QStringLiteral("- 0");
    QTest::newRow("access point") << linkMessage(signalOf(-60) +
                                                 flagsOf(1U << NL80211_STA_FLAG_ASSOCIATED))
                                  << QStringLiteral("-60 0");
    QTest::newRow("neighbour") << linkMessage(signalOf(-60) +
                                              flagsOf(1U << NL80211_STA_FLAG_TDLS_PEER))
                               << QString();
    QTest::newRow("flags cut") << linkMessage(signalOf(-60) + attribute(NL80211_STA_INFO_STA_FLAGS,
                                                                        bytes<quint32>(0)))
                               << QStringLiteral("-60 0");
    QTest::newRow("rate cut") << linkMessage(signalOf(-60) +
                                             attribute(NL80211_STA_INFO_TX_BITRATE,
                                                       attribute(NL80211_RATE_INFO_BITRATE32,
                                                                 bytes<quint16>(7))))
                              << QStringLiteral("-60 0");
    QTest::newRow("no station") << adapterMessage(3, NL80211_IFTYPE_STATION, "wlan0") << QString();
    QTest::newRow("nothing") << QByteArray() << QString();
}

void StationMessagesTest::findsLinks()
{
    QFETCH(const QByteArray, answer);
    const auto link = linkIn(answer);
    QTEST(link ? QStringLiteral("%1 %2")
                     .arg(link->dbm ? QString::number(*link->dbm) : QStringLiteral("-"))
                     .arg(link->bitsPerSecond)
               : QString(),
          "link");
    QVERIFY(!link || link->isConnected);
}

void StationMessagesTest::standsEveryCut()
{
    const QByteArray link = linkMessage(signalOf(-60) + rateOf(8667));
    for (int length = 0; length < link.size(); ++length) {
        // Cut by the kernel, and within what the message says of itself.
        QVERIFY(!linkIn(link.left(length)));
        QByteArray shorter = link.left(length);
        shorter.replace(0, qMin(4, length), bytes(static_cast<quint32>(length)).left(length));
        const auto found = linkIn(shorter);
        QVERIFY(!found || !found->dbm || found->dbm == -60);
    }
    for (int byte = 0; byte < link.size(); ++byte) {
        for (const char value : {'\0', '\1', '\xff'}) {
            QByteArray changed = link;
            changed[byte] = value;
            linkIn(changed);
            stationIn(changed);
            protocolIn(changed);
        }
    }
}

QTEST_APPLESS_MAIN(StationMessagesTest)
#include "tst_stationmessages.moc"
