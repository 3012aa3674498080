#include "system_monitor_lib/live/power/BatteryDevices.h"
#include "tests/unit/system_monitor_lib/bytes.h"
#include "tests/unit/system_monitor_lib/labels.h"

#include <QtTest>

namespace {

constexpr qint64 second = 1'000'000'000;

/// What the machine answers, and how often it was asked.
struct FakeMachine
{
    std::vector<BatteryAnswers> batteries;
    QByteArray power;
    int asked = 0;
};

class FakeBatteries : public BatterySystem
{
public:
    explicit FakeBatteries(FakeMachine &machine)
        : m_machine(machine)
    {
    }

    std::vector<BatteryAnswers> batteries() override
    {
        ++m_machine.asked;
        return m_machine.batteries;
    }
    QByteArray powerStatus() override { return m_machine.power; }

private:
    FakeMachine &m_machine;
};

/// A battery of 1 Wh.
BatteryAnswers battery(const QByteArray &letters, quint32 milliwattHours)
{
    QByteArray name;
    for (const char letter : letters)
        name += bytes(static_cast<quint16>(letter));
    return {name,
            gap(12) + bytes<quint32>(1000) + bytes<quint32>(1000) + gap(16),
            bytes<quint32>(1) + bytes(milliwattHours) + gap(8),
            {}};
}

} // namespace

class BatteryDevicesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void listsBatteries();
    void asksRarely();
    void batteryIsTakenOut();
    void machineWithoutABatteryHasNone();
    void namesOfBatteriesAreToldApart();

private:
    SensorTrees collect(qint64 nowNs)
    {
        SensorTrees trees;
        m_isReadable = m_collector->collect(nowNs, trees);
        return trees;
    }
    QStringList lines(qint64 nowNs)
    {
        QStringList lines;
        describe(QStringLiteral("s"), collect(nowNs).allSensors(), lines);
        return lines;
    }

    FakeMachine m_machine;
    bool m_isReadable = false;
    std::unique_ptr<BatteryDevices> m_collector;
};

void BatteryDevicesTest::init()
{
    m_machine = {{battery("L1", 500)}, bytes<quint8>(1) + gap(11), 0};
    m_collector = std::make_unique<BatteryDevices>(std::make_unique<FakeBatteries>(m_machine));
}

void BatteryDevicesTest::listsBatteries()
{
    QCOMPARE(lines(0),
             texts({"s | Battery: L1 | Battery Charge = 50 %",
                    "s | Battery: L1 | Battery Health = 100 %",
                    "s | Battery: L1 | Battery Power = 0 W", "s | Mains | Mains Power = 1 "}));
    QVERIFY(m_isReadable);
}

void BatteryDevicesTest::asksRarely()
{
    const QStringList first = lines(0);
    m_machine.batteries = {battery("L1", 510)};
    QCOMPARE(lines(9 * second), first);
    QCOMPARE(m_machine.asked, 1);
    QVERIFY(lines(10 * second).contains(QStringLiteral("s | Battery: L1 | Battery Charge = 51 %")));
    QCOMPARE(m_machine.asked, 2);
}

void BatteryDevicesTest::batteryIsTakenOut()
{
    collect(0);
    m_machine.batteries.clear();
    QCOMPARE(lines(10 * second), texts({"s | Mains | Mains Power = 1 "}));
    QVERIFY(m_isReadable);
}

void BatteryDevicesTest::machineWithoutABatteryHasNone()
{
    m_machine = {{}, bytes<quint8>(1) + bytes<quint8>(128) + gap(10), 0};
    QCOMPARE(lines(0), texts({"s"}));
    QVERIFY(!m_isReadable);
}

void BatteryDevicesTest::namesOfBatteriesAreToldApart()
{
    m_machine.batteries = {battery("L1", 500), battery("L1", 200), battery("", 100)};
    const QJsonObject sensors = collect(0).allSensors();
    const QStringList groups{
        QStringLiteral("Battery: Battery"),
        QStringLiteral("Battery: L1 (#0)"),
        QStringLiteral("Battery: L1 (#1)"),
        QStringLiteral("Mains"),
    };
    QCOMPARE(sensors.keys(), groups);
    const auto charge = [&sensors](const QString &group, const QString &label) {
        return value(sensors.value(group).toObject(), label);
    };
    QCOMPARE(charge(groups[1], QStringLiteral("Battery Charge")), 50.0);
    QCOMPARE(charge(groups[2], QStringLiteral("L1 (#1) Battery Charge")), 20.0);
    QCOMPARE(charge(groups[0], QStringLiteral("Battery Battery Charge")), 10.0);
}

QTEST_APPLESS_MAIN(BatteryDevicesTest)
#include "tst_batterydevices.moc"
