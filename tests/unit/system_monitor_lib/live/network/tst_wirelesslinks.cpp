#include "system_monitor_lib/live/network/WirelessLinksCollector.h"
#include "tests/unit/system_monitor_lib/labels.h"
#include "tests/unit/system_monitor_lib/live/network/FakeLinks.h"

#include <QtTest>

Q_DECLARE_METATYPE(WirelessLink)

namespace {

constexpr qint64 second = 1'000'000'000;
const QString name = QStringLiteral("WLAN");

} // namespace

class WirelessLinksTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void listsWhatIsPlausible_data();
    void listsWhatIsPlausible();
    void joinsTheGroupOfTheAdapter();
    void adapterWithoutALinkKeepsItsLabels();
    void asksRarely();

private:
    SensorTrees collect(qint64 nowNs, SensorTrees trees = {})
    {
        m_isReadable = m_collector->collect(nowNs, trees);
        return trees;
    }
    static QStringList lines(const SensorTrees &trees)
    {
        QStringList lines;
        describe(QStringLiteral("s"), trees.allSensors(), lines);
        return lines;
    }

    std::vector<WirelessLink> m_links;
    bool m_isReadable = false;
    std::unique_ptr<WirelessLinksCollector> m_collector;
};

void WirelessLinksTest::init()
{
    m_links = {{name, true, -60, 866'700'000}};
    m_collector = std::make_unique<WirelessLinksCollector>(std::make_unique<FakeLinks>(m_links));
}

void WirelessLinksTest::listsWhatIsPlausible_data()
{
    QTest::addColumn<WirelessLink>("link");
    QTest::addColumn<QStringList>("labels");
    const QStringList rate = texts({"w | Wireless Bit Rate = 866.7 Mbit/s"});
    QTest::newRow("connected") << WirelessLink{name, true, -60, 866'700'000}
                               << rate + texts({"w | Wireless Signal = 80 %",
                                                "w | Wireless Signal Level = -60 dBm"});
    QTest::newRow("far away") << WirelessLink{name, true, -110, 0}
                              << texts({"w | Wireless Signal = 0 %",
                                        "w | Wireless Signal Level = -110 dBm"});
    QTest::newRow("not connected") << WirelessLink{name, false, -60, 866'700'000} << texts({"w"});
    QTest::newRow("signal unknown") << WirelessLink{name, true, {}, 866'700'000} << rate;
    QTest::newRow("signal not measured") << WirelessLink{name, true, 0, 866'700'000} << rate;
    QTest::newRow("signal in percent") << WirelessLink{name, true, 80, 866'700'000} << rate;
    QTest::newRow("no such signal") << WirelessLink{name, true, -5000, 866'700'000} << rate;
    QTest::newRow("no such rate") << WirelessLink{name, true, {}, ~quint64{0}} << texts({"w"});
}

void WirelessLinksTest::listsWhatIsPlausible()
{
    QFETCH(const WirelessLink, link);
    QStringList lines;
    describe(QStringLiteral("w"), wirelessLabels(stateOf(link)), lines);
    QTEST(lines, "labels");
}

void WirelessLinksTest::joinsTheGroupOfTheAdapter()
{
    SensorTrees adapters;
    const QString rate = QStringLiteral("Current UP rate");
    adapters.addGroup({QStringLiteral("Network: WLAN"), name, {}, {rate}},
                      {{rate, reading(1, QStringLiteral("KB/s"))}});
    const SensorTrees trees = collect(0, adapters);
    QVERIFY(m_isReadable);
    QCOMPARE(lines(trees), texts({"s | Network: WLAN | Current UP rate = 1 KB/s",
                                  "s | Network: WLAN | Wireless Bit Rate = 866.7 Mbit/s",
                                  "s | Network: WLAN | Wireless Signal = 80 %",
                                  "s | Network: WLAN | Wireless Signal Level = -60 dBm"}));
    QVERIFY(trees.tree(Query::NetworkInfo).isEmpty());
}

void WirelessLinksTest::adapterWithoutALinkKeepsItsLabels()
{
    m_links = {{name, false, {}, 0}, {QStringLiteral("WLAN 2"), true, -60, 0}, {{}, true, -60, 0}};
    QCOMPARE(lines(collect(0)),
             texts({"s | Network: WLAN", "s | Network: WLAN 2 | WLAN 2 Wireless Signal = 80 %",
                    "s | Network: WLAN 2 | WLAN 2 Wireless Signal Level = -60 dBm"}));
}

void WirelessLinksTest::asksRarely()
{
    const QStringList first = lines(collect(0));
    m_links.clear();
    QCOMPARE(lines(collect(4 * second)), first);
    QCOMPARE(lines(collect(5 * second)), texts({"s"}));
    QVERIFY(!m_isReadable);
}

QTEST_APPLESS_MAIN(WirelessLinksTest)
#include "tst_wirelesslinks.moc"
