#include "sensors/readings/CpuHeat.h"

#include <QJsonDocument>
#include <QtTest>

class tst_CpuHeat : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsCpuTemperature_data();
    void readsCpuTemperature();
    void readsCpuPower_data();
    void readsCpuPower();

private:
    static QJsonObject object(const QByteArray &json)
    {
        return QJsonDocument::fromJson(json).object();
    }
};

void tst_CpuHeat::readsCpuTemperature_data()
{
    QTest::addColumn<QByteArray>("dts");
    QTest::addColumn<QByteArray>("enhanced");
    QTest::addColumn<int>("temperature");
    QTest::addColumn<QString>("units");
    const QByteArray tctl = R"json({"CPU (Tctl/Tdie)":[{"value":61.9,"units":"°C"}]})json";
    const QString celsius = QStringLiteral("°C");
    const auto package = [](const char *value, const char *units) {
        return R"({"CPU Package":[{"value":)" + QByteArray(value) + R"(,"units":")" + units +
               R"("}]})";
    };
    QTest::newRow("package") << package("45.9", "°C") << tctl << 45 << celsius;
    QTest::newRow("letter alone") << package("45", "C") << tctl << 45 << celsius;
    QTest::newRow("no units") << package("45", "") << tctl << 45 << celsius;
    QTest::newRow("other units") << package("113", "F") << tctl << 113 << QStringLiteral("F");
    QTest::newRow("180") << package("180", "°C") << tctl << 150 << celsius;
    QTest::newRow("-3") << package("-3", "°C") << tctl << 150 << celsius;
    QTest::newRow("-5.5") << package("-5.5", "°C") << tctl << 150 << celsius;
    QTest::newRow("enhanced when the first tree is empty")
        << QByteArray("{}") << tctl << 61 << celsius;
    QTest::newRow("not when it only lacks the label")
        << QByteArray(R"({"Core 0":[{"value":1}]})") << tctl << 0 << celsius;
    QTest::newRow("nothing") << QByteArray("{}") << QByteArray("{}") << 0 << celsius;
}

void tst_CpuHeat::readsCpuTemperature()
{
    QFETCH(QByteArray, dts);
    QFETCH(QByteArray, enhanced);
    const CpuHeat heat = cpuHeat(object(dts), object(enhanced), {});
    QTEST(heat.temperature.value, "temperature");
    QTEST(heat.temperature.units, "units");
}

void tst_CpuHeat::readsCpuPower_data()
{
    QTest::addColumn<QByteArray>("enhanced");
    QTest::addColumn<double>("power");
    QTest::addColumn<QString>("units");
    QTest::newRow("watts") << QByteArray(R"({"CPU Package Power":[{"value":65.25,"units":"W"}]})")
                           << 65.25 << QStringLiteral("W");
    QTest::newRow("no units stay none")
        << QByteArray(R"({"CPU Package Power":[{"value":65}]})") << 65.0 << QString();
    QTest::newRow("negative") << QByteArray(R"({"CPU Package Power":[{"value":-1,"units":"W"}]})")
                              << 0.0 << QStringLiteral("W");
    QTest::newRow("huge") << QByteArray(R"({"CPU Package Power":[{"value":1e9,"units":"W"}]})")
                          << 100000.0 << QStringLiteral("W");
    QTest::newRow("missing") << QByteArray("{}") << 0.0 << QString();
}

void tst_CpuHeat::readsCpuPower()
{
    QFETCH(QByteArray, enhanced);
    const CpuHeat heat = cpuHeat({}, {}, object(enhanced));
    QTEST(heat.power.value, "power");
    QTEST(heat.power.units, "units");
}

QTEST_APPLESS_MAIN(tst_CpuHeat)
#include "tst_cpuheat.moc"
