#include "system_monitor_lib/live/power/PowerSupplyText.h"
#include "tests/unit/system_monitor_lib/files.h"
#include "tests/unit/system_monitor_lib/labels.h"

#include <QtTest>

namespace {

QByteArray properties(std::initializer_list<const char *> lines)
{
    QByteArray text;
    for (const char *const line : lines)
        text += QByteArray("POWER_SUPPLY_") + line + '\n';
    return text;
}

} // namespace

class PowerSupplyTextTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsBatteries_data();
    void readsBatteries();
    void readsMains_data();
    void readsMains();
    void leavesOutOthers_data();
    void leavesOutOthers();
};

void PowerSupplyTextTest::readsBatteries_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QStringList>("expected");

    QTest::newRow("discharging, in watts")
        << properties({"NAME=BAT0", "TYPE=Battery", "STATUS=Discharging", "PRESENT=1",
                       "CYCLE_COUNT=312", "POWER_NOW=10000000", "ENERGY_FULL_DESIGN=50000000",
                       "ENERGY_FULL=45000000", "ENERGY_NOW=25000000", "CAPACITY=55"})
        << texts({"t | Battery Charge = 55 %", "t | Battery Cycles = 312 ",
                  "t | Battery Health = 90 %", "t | Battery Power = 10 W",
                  "t | Battery Time Left = 150 min"});
    QTest::newRow("discharging, in amperes")
        << properties({"TYPE=Battery", "STATUS=Discharging", "CURRENT_NOW=-1000000",
                       "VOLTAGE_NOW=12000000", "CHARGE_FULL_DESIGN=4000000", "CHARGE_FULL=3000000",
                       "CHARGE_NOW=1500000"})
        << texts({"t | Battery Health = 75 %", "t | Battery Power = 12 W",
                  "t | Battery Time Left = 90 min"});
    QTest::newRow("it tells the time itself")
        << properties({"TYPE=Battery", "STATUS=Discharging", "TIME_TO_EMPTY_NOW=5400"})
        << texts({"t | Battery Time Left = 90 min"});
    QTest::newRow("charging") << properties({"TYPE=Battery", "STATUS=Charging",
                                             "POWER_NOW=20000000", "ENERGY_NOW=25000000"})
                              << texts({"t | Battery Power = -20 W"});
    QTest::newRow("full") << properties({"TYPE=Battery", "STATUS=Full", "POWER_NOW=0",
                                         "CAPACITY=100", "CYCLE_COUNT=0"})
                          << texts({"t | Battery Charge = 100 %", "t | Battery Power = 0 W"});
    QTest::newRow("direction unknown")
        << properties({"TYPE=Battery", "STATUS=Unknown", "POWER_NOW=20000000"}) << texts({"t"});
    QTest::newRow("implausible") << properties({"TYPE=Battery", "STATUS=Discharging",
                                                "CAPACITY=255", "POWER_NOW=65535000000",
                                                "ENERGY_FULL=90000000", "ENERGY_FULL_DESIGN=10000",
                                                "CYCLE_COUNT=-1"})
                                 << texts({"t"});
    QTest::newRow("malformed") << properties({"TYPE=Battery", "STATUS=Discharging", "CAPACITY=half",
                                              "POWER_NOW=99999999999999999999999"})
                               << texts({"t"});
}

void PowerSupplyTextTest::readsBatteries()
{
    QFETCH(const QByteArray, text);
    const PowerSupply supply = parsePowerSupply(view(text));
    QCOMPARE(supply.kind, PowerSupply::Kind::Battery);
    QStringList lines;
    describe(QStringLiteral("t"), batteryLabels(supply.battery), lines);
    QTEST(lines, "expected");
}

void PowerSupplyTextTest::readsMains_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<bool>("online");
    QTest::newRow("plugged in") << properties({"TYPE=Mains", "ONLINE=1"}) << true;
    QTest::newRow("not plugged in") << properties({"TYPE=Mains", "ONLINE=0"}) << false;
    QTest::newRow("by USB") << properties({"TYPE=USB", "ONLINE=1"}) << true;
    QTest::newRow("does not tell") << properties({"TYPE=Mains"}) << false;
}

void PowerSupplyTextTest::readsMains()
{
    QFETCH(const QByteArray, text);
    const PowerSupply supply = parsePowerSupply(view(text));
    QCOMPARE(supply.kind, PowerSupply::Kind::Mains);
    QTEST(supply.isOnline, "online");
}

void PowerSupplyTextTest::leavesOutOthers_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("a mouse") << properties({"TYPE=Battery", "SCOPE=Device", "CAPACITY=50"});
    QTest::newRow("an empty bay") << properties({"TYPE=Battery", "PRESENT=0", "CAPACITY=50"});
    QTest::newRow("a wireless charger") << properties({"TYPE=Wireless", "ONLINE=1"});
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("cut") << QByteArray("POWER_SUPPLY_TYPE=Batt");
    QTest::newRow("zero bytes") << QByteArray(4000, '\0');
    QTest::newRow("huge") << QByteArray(1024 * 1024, '=');
}

void PowerSupplyTextTest::leavesOutOthers()
{
    QFETCH(const QByteArray, text);
    QCOMPARE(parsePowerSupply(view(text)).kind, PowerSupply::Kind::Other);
}

QTEST_APPLESS_MAIN(PowerSupplyTextTest)
#include "tst_powersupplytext.moc"
