#include "system_monitor_lib/live/power/BatteryAnswers.h"
#include "tests/unit/system_monitor_lib/bytes.h"
#include "tests/unit/system_monitor_lib/labels.h"

#include <QtTest>

Q_DECLARE_METATYPE(BatteryAnswers)

namespace {

constexpr quint32 systemBattery = 0x8000'0000;
constexpr quint32 relative = 0x4000'0000;
constexpr quint32 unknown = 0xffff'ffff;
constexpr qint32 unknownRate = std::numeric_limits<qint32>::min();

constexpr quint32 plugged = 1;
constexpr quint32 discharging = 2;
constexpr quint32 charging = 4;

/// Capabilities, technology and chemistry, two capacities, two alerts, bias, cycles.
QByteArray information(quint32 designed, quint32 full, quint32 cycles,
                       quint32 flags = systemBattery)
{
    return bytes(flags) + gap(8) + bytes(designed) + bytes(full) + gap(12) + bytes(cycles);
}

/// State, capacity, voltage, rate.
QByteArray status(quint32 state, quint32 capacity, qint32 rate)
{
    return bytes(state) + bytes(capacity) + bytes<quint32>(11'400) + bytes(rate);
}

const QByteArray usual = information(50'000, 40'000, 312);

/// With the name "A".
BatteryAnswers answers(const QByteArray &information, const QByteArray &status,
                       const QByteArray &time = {})
{
    return {bytes<quint16>('A') + gap(2), information, status, time};
}

} // namespace

/// Answers of batteries, as bytes.
class BatteryAnswersTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void findsTheState_data();
    void findsTheState();
    void findsTheName_data();
    void findsTheName();
    void findsTheMains_data();
    void findsTheMains();
    void survivesEveryCut();
};

void BatteryAnswersTest::findsTheState_data()
{
    QTest::addColumn<BatteryAnswers>("answers");
    QTest::addColumn<QStringList>("labels");
    QTest::newRow("discharging") << answers(usual, status(discharging, 10'000, -5000))
                                 << texts({"b | Battery Charge = 25 %", "b | Battery Cycles = 312 ",
                                           "b | Battery Health = 80 %", "b | Battery Power = 5 W",
                                           "b | Battery Time Left = 120 min"});
    QTest::newRow("its own estimate")
        << answers(usual, status(discharging, 10'000, -5000), bytes<quint32>(3725))
        << texts({"b | Battery Charge = 25 %", "b | Battery Cycles = 312 ",
                  "b | Battery Health = 80 %", "b | Battery Power = 5 W",
                  "b | Battery Time Left = 62 min"});
    QTest::newRow("charging") << answers(usual, status(plugged | charging, 30'000, 20'000),
                                         bytes<quint32>(unknown))
                              << texts({"b | Battery Charge = 75 %", "b | Battery Cycles = 312 ",
                                        "b | Battery Health = 80 %", "b | Battery Power = -20 W"});
    QTest::newRow("charging, with an estimate")
        << answers(information(0, 30'000, 0), status(plugged | charging, 30'000, unknownRate),
                   bytes<quint32>(3600))
        << texts({"b | Battery Charge = 100 %"});
    QTest::newRow("full") << answers(information(40'000, 41'000, 0), status(plugged, 41'500, 0))
                          << texts({"b | Battery Charge = 100 %", "b | Battery Health = 102.5 %",
                                    "b | Battery Power = 0 W"});
    QTest::newRow("empty") << answers(usual, status(discharging, 0, -5000))
                           << texts({"b | Battery Charge = 0 %", "b | Battery Cycles = 312 ",
                                     "b | Battery Health = 80 %", "b | Battery Power = 5 W",
                                     "b | Battery Time Left = 0 min"});
    QTest::newRow("units of its own")
        << answers(information(100, 90, 5, systemBattery | relative), status(discharging, 45, -2))
        << texts({"b | Battery Charge = 50 %", "b | Battery Cycles = 5 ",
                  "b | Battery Health = 90 %"});
    QTest::newRow("little is known")
        << answers(information(unknown, 40'000, unknown), status(discharging, unknown, unknownRate))
        << texts({"b"});
    QTest::newRow("nothing is known")
        << answers(information(0, 0, 0), status(discharging, 5000, -5000))
        << texts({"b | Battery Power = 5 W", "b | Battery Time Left = 60 min"});
    QTest::newRow("a lightning") << answers(information(0, 0, 0), status(0, 5000, -2'000'000'000))
                                 << texts({"b"});
    QTest::newRow("all is wrong") << answers(QByteArray(36, '\xff'), QByteArray(16, '\xff'),
                                             QByteArray(4, '\xff'))
                                  << texts({"b"});
    QTest::newRow("no answer") << answers({}, {}) << texts({"b"});
}

void BatteryAnswersTest::findsTheState()
{
    QFETCH(const BatteryAnswers, answers);
    QStringList lines;
    describe(QStringLiteral("b"), batteryLabels(parseBattery(answers)), lines);
    QTEST(lines, "labels");
}

void BatteryAnswersTest::findsTheName_data()
{
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<QString>("name");
    const QByteArray name = bytes<quint16>('L') + bytes<quint16>('1') + bytes<quint16>(' ');
    QTest::newRow("with an end") << name + gap(2) + name << "L1";
    QTest::newRow("without") << name + bytes<quint16>('2') << "L1 2";
    QTest::newRow("cut in a letter") << name + "2"
                                     << "L1";
    QTest::newRow("none") << gap(2) << "";
    QTest::newRow("no answer") << QByteArray() << "";
    QTest::newRow("very long") << bytes<quint16>('x').repeated(9999)
                               << QString(128, QLatin1Char('x'));
}

void BatteryAnswersTest::findsTheName()
{
    QFETCH(const QByteArray, answer);
    QTEST(parseBatteryName({answer, {}, {}, {}}), "name");
}

void BatteryAnswersTest::findsTheMains_data()
{
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<int>("mains"); // -1: nothing.
    const QByteArray rest = gap(10);
    QTest::newRow("plugged in") << bytes<quint8>(1) + bytes<quint8>(8) + rest << 1;
    QTest::newRow("not plugged in") << bytes<quint8>(0) + bytes<quint8>(0) + rest << 0;
    QTest::newRow("unknown") << bytes<quint8>(255) + bytes<quint8>(0) + rest << -1;
    QTest::newRow("no battery") << bytes<quint8>(1) + bytes<quint8>(128) + rest << -1;
    QTest::newRow("battery unknown") << bytes<quint8>(1) + bytes<quint8>(255) + rest << -1;
    QTest::newRow("cut") << bytes<quint8>(1) << -1;
    QTest::newRow("no answer") << QByteArray() << -1;
}

void BatteryAnswersTest::findsTheMains()
{
    QFETCH(const QByteArray, answer);
    const std::optional<bool> mains = parseMains(answer);
    QTEST(mains ? int(*mains) : -1, "mains");
}

void BatteryAnswersTest::survivesEveryCut()
{
    const BatteryAnswers whole = answers(usual, status(discharging, 10'000, -5000));
    for (int length = 0; length < usual.size(); ++length) {
        BatteryAnswers cut = whole;
        cut.information.truncate(length);
        const BatteryState state = parseBattery(cut);
        QCOMPARE(state.percent.has_value(), length >= 20);
        QVERIFY(!state.cycles.has_value());
    }
    for (int length = 0; length < whole.status.size(); ++length) {
        BatteryAnswers cut = whole;
        cut.status.truncate(length);
        const BatteryState state = parseBattery(cut);
        QCOMPARE(state.percent.has_value(), length >= 8);
        QVERIFY(!state.watts.has_value());
    }
}

QTEST_APPLESS_MAIN(BatteryAnswersTest)
#include "tst_batteryanswers.moc"
