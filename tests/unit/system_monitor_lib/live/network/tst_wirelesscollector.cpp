#include "system_monitor_lib/live/network/WirelessCollector.h"
#include "tests/unit/system_monitor_lib/files.h"
#include "tests/unit/system_monitor_lib/labels.h"
#include "tests/unit/system_monitor_lib/live/network/FakeLinks.h"

#include <QTemporaryDir>
#include <QtTest>

namespace {

constexpr qint64 second = 1'000'000'000;

} // namespace

class WirelessCollectorTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void givesSignalsWithoutLinks();
    void givesLinksBeforeSignals();
    void readsRarely();

private:
    [[nodiscard]] bool write(const QByteArray &lines) const
    {
        return writeFile(m_roots.proc + QStringLiteral("/net/wireless"),
                         "Inter-| sta-|   Quality\n face | tus | link level\n" + lines);
    }
    QStringList lines(qint64 nowNs)
    {
        SensorTrees trees;
        m_collector->collect(nowNs, trees);
        QStringList all;
        describe(QStringLiteral("s"), trees.allSensors(), all);
        return all;
    }

    std::unique_ptr<QTemporaryDir> m_directory;
    MachineRoots m_roots;
    std::vector<WirelessLink> m_links;
    std::unique_ptr<WirelessCollector> m_collector;
};

void WirelessCollectorTest::init()
{
    m_directory = std::make_unique<QTemporaryDir>();
    m_roots.proc = m_directory->path();
    m_links.clear();
    QVERIFY(write(" wlan0: 0000   55.  -60.  -256   0   0   0  0  42   0\n"
                  " ath0: 0000   55.  -75.  -256   0   0   0  0  42   0\n"));
    m_collector =
        std::make_unique<WirelessCollector>(m_roots, std::make_unique<FakeLinks>(m_links));
}

void WirelessCollectorTest::givesSignalsWithoutLinks()
{
    const QStringList expected =
        texts({"s | Network: ath0 | Wireless Signal = 50 %",
               "s | Network: ath0 | Wireless Signal Level = -75 dBm",
               "s | Network: wlan0 | wlan0 Wireless Signal = 80 %",
               "s | Network: wlan0 | wlan0 Wireless Signal Level = -60 dBm"});
    QCOMPARE(lines(0), expected);
    m_collector = std::make_unique<WirelessCollector>(m_roots);
    QCOMPARE(lines(0), expected);
}

void WirelessCollectorTest::givesLinksBeforeSignals()
{
    m_links = {{QStringLiteral("wlan0"), true, -61, 866'700'000},
               {QStringLiteral("wlan1"), false, {}, 0}};
    QCOMPARE(lines(0), texts({"s | Network: ath0 | Wireless Signal = 50 %",
                              "s | Network: ath0 | Wireless Signal Level = -75 dBm",
                              "s | Network: wlan0 | wlan0 Wireless Bit Rate = 866.7 Mbit/s",
                              "s | Network: wlan0 | wlan0 Wireless Signal = 78 %",
                              "s | Network: wlan0 | wlan0 Wireless Signal Level = -61 dBm",
                              "s | Network: wlan1"}));
}

void WirelessCollectorTest::readsRarely()
{
    const QStringList first = lines(0);
    m_links = {{QStringLiteral("wlan1"), true, -50, 0}};
    QVERIFY(write({}));
    QCOMPARE(lines(4 * second), first);
    QCOMPARE(lines(5 * second), texts({"s | Network: wlan1 | Wireless Signal = 100 %",
                                       "s | Network: wlan1 | Wireless Signal Level = -50 dBm"}));
    m_links.clear();
    QCOMPARE(lines(10 * second), texts({"s"}));
}

QTEST_APPLESS_MAIN(WirelessCollectorTest)
#include "tst_wirelesscollector.moc"
