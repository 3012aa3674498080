#include "sensors/readings/SensorWalk.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QtTest>

class tst_SensorWalk : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void listsSensorsInOrder_data();
    void listsSensorsInOrder();
    void takesTheLastPump();
    void takesCpuFansInRpm();
    void objectsAreNoPumpsAndNoFans();
    void writesSixDigits_data();
    void writesSixDigits();
    void textsAreNotMistakenForEachOther();
    void walksDeepTrees();
    void turnsPairsIntoATree_data();
    void turnsPairsIntoATree();
    void laterPairOfALabelCounts();

private:
    static SensorWalk walkOver(const QByteArray &json)
    {
        SensorWalk walk;
        walk.visit(QJsonDocument::fromJson(json).object());
        return walk;
    }
    static QString listed(const systemInfor::SensorTexts &sensors)
    {
        QStringList texts;
        for (const auto &sensor : sensors)
            texts.append(sensor.first + QLatin1Char('=') + sensor.second);
        return texts.join(QLatin1Char(' '));
    }
};

void tst_SensorWalk::listsSensorsInOrder_data()
{
    QTest::addColumn<QByteArray>("tree");
    QTest::addColumn<QString>("list");
    const auto row = [](const char *name, const char *tree, const char *list) {
        QTest::newRow(name) << QByteArray(tree) << QString::fromUtf8(list);
    };
    row("empty", "{}", "");
    row("sorted keys", R"({"b":[{"value":2,"units":"V"}],"a":[{"value":1,"units":"V"}]})",
        "a=1V b=2V");
    row("every element", R"({"a":[{"value":1,"units":"V"},{"value":2,"units":"V"}]})", "a=1V a=2V");
    row("object as sensor", R"({"a":{"value":1,"units":"V"}})", "a=1V");
    row("groups after direct sensors, the last group first",
        R"({"g1":{"x":[{"value":1,"units":""}]},"g2":{"y":[{"value":2,"units":""}]},"z":[{"value":3,"units":""}]})",
        "z=3 y=2 x=1");
    row("nested groups before an earlier sibling",
        R"({"g1":{"x":[{"value":1,"units":""}]},"g2":{"y":[{"value":2,"units":""}],"deep":{"w":[{"value":4,"units":""}]}}})",
        "y=2 w=4 x=1");
    row("elements that are groups", R"({"a":[{"x":[{"value":1,"units":"V"}]}]})", "x=1V");
    row("elements of other types", R"({"a":[1,"x",null,[{"value":1,"units":"V"}]]})", "");
    row("other values", R"({"a":1,"b":"x","c":null,"d":true})", "");
    row("value without units is a group", R"({"a":[{"value":1}]})", "");
    row("value and units of other types", R"({"a":[{"value":"7","units":3}]})", "a=0");
}

void tst_SensorWalk::listsSensorsInOrder()
{
    QFETCH(QByteArray, tree);
    QTEST(listed(walkOver(tree).sensors), "list");
}

void tst_SensorWalk::takesTheLastPump()
{
    QCOMPARE(walkOver("{}").pump, QStringLiteral("nodata"));
    const SensorWalk walk = walkOver(
        R"({"AIO Pump #1":[{"value":1850,"units":"RPM"}],"my aio PUMP":[{"value":900,"units":"rpm"}]})");
    QCOMPARE(walk.pump, QStringLiteral("900rpm"));
    QCOMPARE(walkOver(R"({"AIO Pump #1":[{"value":1850,"units":"RPM"}]})").pump,
             QStringLiteral("1850RPM"));
}

void tst_SensorWalk::takesCpuFansInRpm()
{
    const SensorWalk walk = walkOver(
        R"({"CPU Fan":[{"value":1200,"units":"RPM"}],"CPU Fan 2":[{"value":5,"units":"rpm"}],"CPU fan duty":[{"value":40,"units":"%"}],"Fan of the cpu":[{"value":0,"units":"RPM"}],"GPU Fan":[{"value":1,"units":"RPM"}]})");
    QCOMPARE(listed(walk.cpuFans), QStringLiteral("CPU Fan=1200RPM Fan of the cpu=0RPM"));
    QCOMPARE(walk.sensors.size(), 5);
}

void tst_SensorWalk::objectsAreNoPumpsAndNoFans()
{
    const SensorWalk walk =
        walkOver(R"({"AIO Pump":{"value":1,"units":"RPM"},"CPU Fan":{"value":2,"units":"RPM"}})");
    QCOMPARE(walk.pump, QStringLiteral("nodata"));
    QVERIFY(walk.cpuFans.isEmpty());
    QCOMPARE(listed(walk.sensors), QStringLiteral("AIO Pump=1RPM CPU Fan=2RPM"));
}

void tst_SensorWalk::writesSixDigits_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("half") << 45.5 << QStringLiteral("45.5°C");
    QTest::newRow("whole") << 45.0 << QStringLiteral("45°C");
    QTest::newRow("seven digits") << 1234567.0 << QStringLiteral("1.23457e+06°C");
    QTest::newRow("small") << 0.00001234 << QStringLiteral("1.234e-05°C");
}

void tst_SensorWalk::writesSixDigits()
{
    QFETCH(double, value);
    QTEST(sensorText(
              {{QStringLiteral("value"), value}, {QStringLiteral("units"), QStringLiteral("°C")}}),
          "text");
}

void tst_SensorWalk::textsAreNotMistakenForEachOther()
{
    const QString longUnits(40, QLatin1Char('x'));
    // Twice, because texts are remembered; too many for all of them to be.
    for (int pass = 0; pass < 2; ++pass) {
        for (int number = 0; number < 4000; ++number) {
            const QString name = QStringLiteral("u%1").arg(number);
            for (const auto &[value, units] :
                 {std::pair(number, QStringLiteral("%")), std::pair(number, QString()),
                  std::pair(number, longUnits), std::pair(0, name)})
                QCOMPARE(sensorText(
                             {{QStringLiteral("value"), value}, {QStringLiteral("units"), units}}),
                         QString::number(value) + units);
        }
    }
}

void tst_SensorWalk::walksDeepTrees()
{
    QJsonObject tree{{QStringLiteral("value"), 1}, {QStringLiteral("units"), QStringLiteral("V")}};
    for (int depth = 0; depth < 500; ++depth)
        tree = QJsonObject{{QStringLiteral("level"), tree}};
    SensorWalk walk;
    walk.visit(tree);
    QCOMPARE(listed(walk.sensors), QStringLiteral("level=1V"));
}

void tst_SensorWalk::turnsPairsIntoATree_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("units");
    const auto row = [](const char *text, const char *value, const char *units) {
        QTest::newRow(text) << QString::fromUtf8(text) << QString::fromUtf8(value)
                            << QString::fromUtf8(units);
    };
    row("1850RPM", "1850", "RPM");
    row("45.5°C", "45.5", "°C");
    row("  -3.25  V  ", "-3.25", "V");
    row("+7", "+7", "");
    row("1.23457e+06W", "1.23457", "e+06W");
    row(".5V", "", "");
    row("nodata", "", "");
    row("", "", "");
}

void tst_SensorWalk::turnsPairsIntoATree()
{
    QFETCH(QString, text);
    QFETCH(QString, value);
    QFETCH(QString, units);
    const QString label = QStringLiteral("CPU Fan");
    QCOMPARE(pairsToTree({{label, text}}),
             (QJsonObject{{label, QJsonArray{QJsonObject{{QStringLiteral("value"), value},
                                                         {QStringLiteral("units"), units}}}}}));
}

void tst_SensorWalk::laterPairOfALabelCounts()
{
    const QString label = QStringLiteral("CPU Fan");
    QCOMPARE(pairsToTree({{label, QStringLiteral("1RPM")}, {label, QStringLiteral("2RPM")}}),
             pairsToTree({{label, QStringLiteral("2RPM")}}));
    QVERIFY(pairsToTree({}).isEmpty());
}

QTEST_APPLESS_MAIN(tst_SensorWalk)
#include "tst_sensorwalk.moc"
