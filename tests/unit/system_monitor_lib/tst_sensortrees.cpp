#include "system_monitor_lib/SensorTrees.h"

#include <QtTest>

class SensorTreesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readingHasValueAndUnits();
    void readingsAreNotMistakenForEachOther();
    void startsEmpty();
    void collectorsShareATree();
    void collectorsShareADevice();
    void deviceWithoutReadingsIsListed();
};

void SensorTreesTest::readingHasValueAndUnits()
{
    const QJsonArray array = reading(45.5, QStringLiteral("°C"));
    const QJsonObject expected{{QStringLiteral("value"), 45.5},
                               {QStringLiteral("units"), QStringLiteral("°C")}};
    QCOMPARE(array, QJsonArray{expected});
}

void SensorTreesTest::readingsAreNotMistakenForEachOther()
{
    // Twice, because readings are remembered; too many for all of them to be.
    for (int pass = 0; pass < 2; ++pass) {
        for (int number = 0; number < 4000; ++number) {
            const QString name = QString::number(number);
            for (const auto &[value, units] : {std::pair(number, QStringLiteral("%")),
                                               std::pair(number, QString()), std::pair(0, name)}) {
                const QJsonObject object = reading(value, units).at(0).toObject();
                QCOMPARE(object.value(QStringLiteral("value")).toDouble(-1), double(value));
                QCOMPARE(object.value(QStringLiteral("units")).toString(QStringLiteral("x")),
                         units);
            }
        }
    }
}

void SensorTreesTest::startsEmpty()
{
    const SensorTrees trees;
    QVERIFY(trees.tree(Query::SystemInfo).isEmpty());
    QVERIFY(trees.tree(Query::AllSensorsData).isEmpty());
}

void SensorTreesTest::collectorsShareATree()
{
    SensorTrees trees;
    trees.add(Query::CpuInfo, {{QStringLiteral("load"), 1}});
    trees.add(Query::CpuInfo, {});
    trees.add(Query::CpuInfo, {{QStringLiteral("clock"), 2}});
    const QJsonObject expected{{QStringLiteral("clock"), 2}, {QStringLiteral("load"), 1}};
    QCOMPARE(trees.tree(Query::CpuInfo), expected);
    QVERIFY(trees.tree(Query::GpuInfo).isEmpty());
}

void SensorTreesTest::collectorsShareADevice()
{
    SensorTrees trees;
    const QString device = QStringLiteral("CPU [#0]");
    trees.addDevice(Query::AllSensorsData, device, {{QStringLiteral("load"), 1}});
    trees.addDevice(Query::AllSensorsData, device, {{QStringLiteral("clock"), 2}});
    trees.addDevice(Query::AllSensorsData, QStringLiteral("GPU"), {{QStringLiteral("load"), 3}});
    const QJsonObject expected{
        {device, QJsonObject{{QStringLiteral("clock"), 2}, {QStringLiteral("load"), 1}}},
        {QStringLiteral("GPU"), QJsonObject{{QStringLiteral("load"), 3}}}};
    QCOMPARE(trees.tree(Query::AllSensorsData), expected);
}

void SensorTreesTest::deviceWithoutReadingsIsListed()
{
    SensorTrees trees;
    trees.addDevice(Query::NetworkInfo, QStringLiteral("eth0"), {});
    QVERIFY(trees.tree(Query::NetworkInfo).value(QStringLiteral("eth0")).isObject());
}

QTEST_APPLESS_MAIN(SensorTreesTest)
#include "tst_sensortrees.moc"
