#include "system_monitor_lib/live/power/PowerCollector.h"
#include "tests/unit/system_monitor_lib/files.h"
#include "tests/unit/system_monitor_lib/labels.h"

#include <QTemporaryDir>
#include <QtTest>

namespace {

constexpr qint64 second = 1'000'000'000;

} // namespace

class PowerCollectorTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void listsBatteriesAndMains();
    void asksNowAndThen();
    void asksNoMouse();

private:
    [[nodiscard]] bool write(const char *supply, const QByteArray &content) const
    {
        return writeFile(
            m_directory->filePath(
                QStringLiteral("class/power_supply/%1/uevent").arg(QString::fromLatin1(supply))),
            content);
    }
    QStringList lines(qint64 nowNs)
    {
        SensorTrees trees;
        m_collector->collect(nowNs, trees);
        QStringList all;
        describe(QStringLiteral("t"), trees.allSensors(), all);
        return all;
    }

    std::unique_ptr<QTemporaryDir> m_directory;
    std::unique_ptr<PowerCollector> m_collector;
};

void PowerCollectorTest::init()
{
    m_directory = std::make_unique<QTemporaryDir>();
    QVERIFY(m_directory->isValid());
    m_collector = std::make_unique<PowerCollector>(MachineRoots{QString(), m_directory->path()});
}

void PowerCollectorTest::listsBatteriesAndMains()
{
    QCOMPARE(lines(second), texts({"t"}));
    QVERIFY(write("BAT1", "POWER_SUPPLY_TYPE=Battery\nPOWER_SUPPLY_CAPACITY=40\n"));
    QVERIFY(write("BAT0", "POWER_SUPPLY_TYPE=Battery\nPOWER_SUPPLY_CAPACITY=30\n"));
    QVERIFY(write("AC", "POWER_SUPPLY_TYPE=Mains\nPOWER_SUPPLY_ONLINE=0\n"));
    QVERIFY(write("ucsi", "POWER_SUPPLY_TYPE=USB\nPOWER_SUPPLY_ONLINE=1\n"));
    QCOMPARE(lines(11 * second), texts({"t | Battery: BAT0 | Battery Charge = 30 %",
                                        "t | Battery: BAT1 | BAT1 Battery Charge = 40 %",
                                        "t | Mains | Mains Power = 1 "}));
    QVERIFY(write("ucsi", "POWER_SUPPLY_TYPE=USB\nPOWER_SUPPLY_ONLINE=0\n"));
    QCOMPARE(lines(21 * second).last(), QStringLiteral("t | Mains | Mains Power = 0 "));
}

void PowerCollectorTest::asksNowAndThen()
{
    QVERIFY(write("BAT0", "POWER_SUPPLY_TYPE=Battery\nPOWER_SUPPLY_CAPACITY=30\n"));
    QCOMPARE(lines(second), texts({"t | Battery: BAT0 | Battery Charge = 30 %"}));
    QVERIFY(write("BAT0", "POWER_SUPPLY_TYPE=Battery\nPOWER_SUPPLY_CAPACITY=29\n"));
    QCOMPARE(lines(10 * second), texts({"t | Battery: BAT0 | Battery Charge = 30 %"}));
    QCOMPARE(lines(11 * second), texts({"t | Battery: BAT0 | Battery Charge = 29 %"}));
}

void PowerCollectorTest::asksNoMouse()
{
    const QString scope = m_directory->filePath(QStringLiteral("class/power_supply/mouse/scope"));
    QVERIFY(write("mouse", "POWER_SUPPLY_TYPE=Battery\nPOWER_SUPPLY_CAPACITY=30\n"));
    QVERIFY(writeFile(scope, "Device\n"));
    QCOMPARE(lines(second), texts({"t"}));
    QVERIFY(writeFile(scope, "System\n"));
    QCOMPARE(lines(11 * second), texts({"t | Battery: mouse | Battery Charge = 30 %"}));
}

QTEST_APPLESS_MAIN(PowerCollectorTest)
#include "tst_powercollector.moc"
