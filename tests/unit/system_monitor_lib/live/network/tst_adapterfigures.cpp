#include "system_monitor_lib/live/network/AdapterFigures.h"
#include "system_monitor_lib/live/network/WirelessState.h"
#include "tests/unit/system_monitor_lib/labels.h"

#include <QtTest>

class AdapterFiguresTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void givesLabels();
    void leavesOutWhatIsUnknown();
    void givesWirelessLabels();
    void ratesSignals_data();
    void ratesSignals();
};

void AdapterFiguresTest::givesLabels()
{
    constexpr quint64 gigabyte = quint64{1} << 30U;
    const QJsonObject labels =
        adapterLabels({125'000.0, 250'000.0, 125'000'000, 3 * gigabyte, gigabyte / 2});
    QStringList lines;
    describe(QStringLiteral("t"), labels, lines);
    QCOMPARE(lines,
             (texts({"t | Adapter Download Rate = 2 Mbit/s", "t | Adapter Downloaded = 0.5 GB",
                     "t | Adapter Link Speed = 1000 Mbit/s", "t | Adapter Upload Rate = 1 Mbit/s",
                     "t | Adapter Uploaded = 3 GB"})));
    for (const QString &label : labels.keys())
        QVERIFY2(adapterLabelNames().contains(label), qPrintable(label));
}

void AdapterFiguresTest::leavesOutWhatIsUnknown()
{
    QCOMPARE(adapterLabels({}).keys(), (texts({"Adapter Downloaded", "Adapter Uploaded"})));
}

void AdapterFiguresTest::givesWirelessLabels()
{
    const QJsonObject labels = wirelessLabels({80.0, -60.0, 866'700'000.0});
    QStringList lines;
    describe(QStringLiteral("t"), labels, lines);
    QCOMPARE(lines, (texts({"t | Wireless Bit Rate = 866.7 Mbit/s", "t | Wireless Signal = 80 %",
                            "t | Wireless Signal Level = -60 dBm"})));
    for (const QString &label : labels.keys())
        QVERIFY2(wirelessLabelNames().contains(label), qPrintable(label));
    QVERIFY(wirelessLabels({}).isEmpty());
}

void AdapterFiguresTest::ratesSignals_data()
{
    QTest::addColumn<double>("dbm");
    QTest::addColumn<double>("percent");
    QTest::newRow("next to it") << -20.0 << 100.0;
    QTest::newRow("best") << -50.0 << 100.0;
    QTest::newRow("fair") << -70.0 << 60.0;
    QTest::newRow("lost") << -100.0 << 0.0;
    QTest::newRow("beyond") << -120.0 << 0.0;
}

void AdapterFiguresTest::ratesSignals()
{
    QFETCH(const double, dbm);
    QTEST(signalPercent(dbm), "percent");
}

QTEST_APPLESS_MAIN(AdapterFiguresTest)
#include "tst_adapterfigures.moc"
