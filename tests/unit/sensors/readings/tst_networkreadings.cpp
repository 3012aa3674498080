#include "sensors/readings/NetworkReadings.h"

#include <QJsonDocument>
#include <QtTest>

class tst_NetworkReadings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sumsNetworkRates_data();
    void sumsNetworkRates();
    void scalesRates_data();
    void scalesRates();
    void knowsWhatIsMissing_data();
    void knowsWhatIsMissing();

private:
    static QJsonObject object(const QByteArray &json)
    {
        return QJsonDocument::fromJson(json).object();
    }
};

void tst_NetworkReadings::sumsNetworkRates_data()
{
    QTest::addColumn<QByteArray>("adapters");
    QTest::addColumn<double>("up");
    QTest::addColumn<QString>("units");
    const QString kilobytes = QStringLiteral("Kb/s");
    QTest::newRow("two adapters, two units")
        << QByteArray(
               R"({"a":{"Current UP rate":[{"value":600,"units":"KB/s"}]},"b":{"Current UP rate":[{"value":1,"units":"MB/s"}]}})")
        << 1624.0 / 1024 << QStringLiteral("MB/s");
    QTest::newRow("Kb/s adds nothing")
        << QByteArray(R"({"a":{"Current UP rate":[{"value":600,"units":"Kb/s"}]}})") << 0.0
        << kilobytes;
    QTest::newRow("no units add nothing")
        << QByteArray(R"({"a":{"Current UP rate":[{"value":600}]}})") << 0.0 << kilobytes;
    QTest::newRow("GB/s") << QByteArray(R"({"a":{"Current UP rate":[{"value":2,"units":"GB/s"}]}})")
                          << 2.0 << QStringLiteral("GB/s");
    QTest::newRow("exactly 1024")
        << QByteArray(R"({"a":{"Current UP rate":[{"value":1,"units":"MB/s"}]}})") << 1024.0
        << kilobytes;
    QTest::newRow("negative") << QByteArray(
                                     R"({"a":{"Current UP rate":[{"value":-5,"units":"KB/s"}]}})")
                              << 0.0 << kilobytes;
    QTest::newRow("adapter of another type")
        << QByteArray(R"({"a":[1],"b":null})") << 0.0 << kilobytes;
    QTest::newRow("no adapter") << QByteArray("{}") << 0.0 << kilobytes;
}

void tst_NetworkReadings::sumsNetworkRates()
{
    QFETCH(QByteArray, adapters);
    const NetworkReadings network = networkReadings(object(adapters));
    QTEST(network.up.value, "up");
    QTEST(network.up.units, "units");
    QCOMPARE(network.down.value, 0.0);

    QByteArray downloading = adapters;
    downloading.replace("Current UP rate", "Current DL rate");
    QTEST(networkReadings(object(downloading)).down.value, "up");
}

void tst_NetworkReadings::scalesRates_data()
{
    QTest::addColumn<double>("rate");
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("units");
    const double million = 1024.0 * 1024.0;
    QTest::newRow("0") << 0.0 << 0.0 << QStringLiteral("Kb/s");
    QTest::newRow("1024") << 1024.0 << 1024.0 << QStringLiteral("Kb/s");
    QTest::newRow("1025") << 1025.0 << 1025.0 / 1024 << QStringLiteral("MB/s");
    QTest::newRow("1024 MB/s") << million << 1024.0 << QStringLiteral("MB/s");
    QTest::newRow("above 1024 MB/s") << 2 * million << 2.0 << QStringLiteral("GB/s");
    QTest::newRow("terabytes stay GB/s") << 4096 * million << 4096.0 << QStringLiteral("GB/s");
}

void tst_NetworkReadings::scalesRates()
{
    QFETCH(double, rate);
    const Reading<double> scaled = scaledRate(rate);
    QTEST(scaled.value, "value");
    QTEST(scaled.units, "units");
    QCOMPARE(unscaledRate(scaled), rate);
}

void tst_NetworkReadings::knowsWhatIsMissing_data()
{
    QTest::addColumn<QByteArray>("trees");
    QTest::addColumn<bool>("isMissing");
    QTest::newRow("no adapter") << QByteArray("{}") << true;
    QTest::newRow("no rate") << QByteArray(R"({"eth0":{}})") << true;
    QTest::newRow("other units")
        << QByteArray(R"({"eth0":{"Current UP rate":[{"value":1,"units":"Kb/s"}]}})") << true;
    QTest::newRow("a text") << QByteArray(
                                   R"({"eth0":{"Current UP rate":[{"value":"1","units":"KB/s"}]}})")
                            << true;
    QTest::newRow("zero") << QByteArray(
                                 R"({"eth0":{"Current UP rate":[{"value":0,"units":"KB/s"}]}})")
                          << false;
    QTest::newRow("one of two")
        << QByteArray(R"({"eth0":{"Current UP rate":[{"value":1,"units":"KB/s"}]},"eth1":{}})")
        << false;
}

void tst_NetworkReadings::knowsWhatIsMissing()
{
    QFETCH(QByteArray, trees);
    QTEST(networkReadings(object(trees)).up.isMissing, "isMissing");
    QVERIFY(networkReadings(object(trees)).down.isMissing);
}

QTEST_APPLESS_MAIN(tst_NetworkReadings)
#include "tst_networkreadings.moc"
