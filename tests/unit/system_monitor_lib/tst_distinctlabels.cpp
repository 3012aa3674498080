#include "system_monitor_lib/DistinctLabels.h"

#include <QtTest>

namespace {

const QString temperature = QStringLiteral("GPU Temperature");
const QString fan = QStringLiteral("GPU Fan");

QJsonObject tree(const QStringList &labels)
{
    QJsonObject tree;
    for (const QString &label : labels)
        tree.insert(label, reading(1, QStringLiteral("°C")));
    return tree;
}

SensorGroup card(const QString &group, const QString &device, const QString &place,
                 const QStringList &mayHave)
{
    return {group, device, place, mayHave};
}

} // namespace

class DistinctLabelsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_trees = SensorTrees(); }

    void labelsOfOneHolderStayPlain();
    void firstHolderKeepsTheLabelAlsoWhileItSleeps();
    void labelThatTheFirstNeverHasIsTheSecondsOwn();
    void devicesOfOneNameAreToldApart();
    void groupsOfOneDeviceHaveOnePrefix();
    void groupAddedTwiceMayHaveTheLabelsOfBoth();
    void deviceThatIsAddedRenamesNone();
    void labelThatLooksLikeAnOwnOneIsAvoided();
    void groupWithoutDeviceLendsItsName();
    void samplesAreJoinedInTheirOrder();
    void groupAddedAgainMayHaveTheLabelsOfBoth();

private:
    [[nodiscard]] QStringList labels(const QString &group) const
    {
        return m_trees.allSensors().value(group).toObject().keys();
    }

    SensorTrees m_trees;
};

void DistinctLabelsTest::labelsOfOneHolderStayPlain()
{
    m_trees.addDevice(Query::AllSensorsData, QStringLiteral("CPU"), tree({QStringLiteral("load")}));
    m_trees.addGroup(card(QStringLiteral("GPU [#0]"), QStringLiteral("One"), {}, {temperature}),
                     tree({temperature, fan}));
    QCOMPARE(m_trees.allSensors(), m_trees.tree(Query::AllSensorsData));
}

void DistinctLabelsTest::firstHolderKeepsTheLabelAlsoWhileItSleeps()
{
    m_trees.addGroup(card(QStringLiteral("GPU [#1]"), QStringLiteral("One"), {}, {temperature}),
                     {});
    m_trees.addGroup(card(QStringLiteral("GPU [#0]"), QStringLiteral("Two"), {}, {temperature}),
                     tree({temperature}));
    QCOMPARE(labels(QStringLiteral("GPU [#0]")),
             QStringList{QStringLiteral("Two GPU Temperature")});
    QCOMPARE(
        m_trees.tree(Query::AllSensorsData).value(QStringLiteral("GPU [#0]")).toObject().keys(),
        QStringList{temperature});
}

void DistinctLabelsTest::labelThatTheFirstNeverHasIsTheSecondsOwn()
{
    m_trees.addGroup(card(QStringLiteral("A"), QStringLiteral("One"), {}, {temperature}),
                     tree({temperature}));
    m_trees.addGroup(card(QStringLiteral("B"), QStringLiteral("Two"), {}, {temperature, fan}),
                     tree({temperature, fan}));
    const QStringList expected{fan, QStringLiteral("Two GPU Temperature")};
    QCOMPARE(labels(QStringLiteral("B")), expected);
}

void DistinctLabelsTest::devicesOfOneNameAreToldApart()
{
    for (const char *const place : {"03", "04", "05"})
        m_trees.addGroup(card(QString::fromLatin1(place), QStringLiteral("Card"),
                              QString::fromLatin1(place), {temperature}),
                         tree({temperature}));
    QCOMPARE(labels(QStringLiteral("03")), QStringList{temperature});
    QCOMPARE(labels(QStringLiteral("04")),
             QStringList{QStringLiteral("Card (04) GPU Temperature")});
    QCOMPARE(labels(QStringLiteral("05")),
             QStringList{QStringLiteral("Card (05) GPU Temperature")});
}

void DistinctLabelsTest::groupsOfOneDeviceHaveOnePrefix()
{
    for (const auto &[device, place] :
         {std::pair("Other", "0"), std::pair("Disk", "1"), std::pair("Disk", "2")}) {
        for (const QString &label : {temperature, fan})
            m_trees.addGroup(card(label + QLatin1String(place), QLatin1String(device),
                                  QLatin1String(place), {label}),
                             tree({label}));
    }
    QCOMPARE(labels(temperature + QLatin1Char('1')),
             QStringList{QStringLiteral("Disk ") + temperature});
    QCOMPARE(labels(fan + QLatin1Char('1')), QStringList{QStringLiteral("Disk ") + fan});
    QCOMPARE(labels(fan + QLatin1Char('2')), QStringList{QStringLiteral("Disk (2) ") + fan});
}

void DistinctLabelsTest::groupAddedTwiceMayHaveTheLabelsOfBoth()
{
    const QString group = QStringLiteral("A");
    for (const QString &label : {temperature, fan})
        m_trees.addGroup(card(group, QStringLiteral("One"), {}, {label}), {});
    m_trees.addGroup(card(QStringLiteral("B"), QStringLiteral("Two"), {}, {}),
                     tree({temperature, fan}));
    const QStringList expected{QStringLiteral("Two GPU Fan"),
                               QStringLiteral("Two GPU Temperature")};
    QCOMPARE(labels(QStringLiteral("B")), expected);
}

void DistinctLabelsTest::deviceThatIsAddedRenamesNone()
{
    m_trees.addGroup(card(QStringLiteral("A"), QStringLiteral("One"), QStringLiteral("1"), {fan}),
                     tree({fan}));
    m_trees.addGroup(card(QStringLiteral("B"), QStringLiteral("Two"), QStringLiteral("2"), {fan}),
                     tree({fan}));
    const QStringList before = labels(QStringLiteral("A")) + labels(QStringLiteral("B"));
    for (const char *const name : {"One", "Two"})
        m_trees.addGroup(card(QStringLiteral("another %1").arg(QLatin1String(name)),
                              QString::fromLatin1(name), QStringLiteral("3"), {fan}),
                         tree({fan}));
    QCOMPARE(labels(QStringLiteral("A")) + labels(QStringLiteral("B")), before);
}

void DistinctLabelsTest::labelThatLooksLikeAnOwnOneIsAvoided()
{
    m_trees.addGroup(card(QStringLiteral("A"), QStringLiteral("One"), {}, {}),
                     tree({fan, QStringLiteral("Two GPU Fan")}));
    m_trees.addGroup(card(QStringLiteral("B"), QStringLiteral("Two"), {}, {}), tree({fan}));
    QCOMPARE(labels(QStringLiteral("B")), QStringList{QStringLiteral("B GPU Fan")});
}

void DistinctLabelsTest::groupWithoutDeviceLendsItsName()
{
    m_trees.addDevice(Query::AllSensorsData, QStringLiteral("A"), tree({fan}));
    m_trees.addDevice(Query::AllSensorsData, QStringLiteral("B"), tree({fan}));
    QCOMPARE(labels(QStringLiteral("B")), QStringList{QStringLiteral("B GPU Fan")});
}

void DistinctLabelsTest::samplesAreJoinedInTheirOrder()
{
    SensorTrees part;
    part.addGroup(card(QStringLiteral("Z"), QStringLiteral("One"), {}, {fan}), {});
    part.add(Query::CpuInfo, tree({QStringLiteral("load")}));
    m_trees.add(part);
    part = SensorTrees();
    part.addGroup(card(QStringLiteral("B"), QStringLiteral("Two"), {}, {fan}), tree({fan}));
    m_trees.add(part);
    QCOMPARE(labels(QStringLiteral("B")), QStringList{QStringLiteral("Two GPU Fan")});
    QVERIFY(m_trees.tree(Query::CpuInfo).contains(QStringLiteral("load")));
}

void DistinctLabelsTest::groupAddedAgainMayHaveTheLabelsOfBoth()
{
    m_trees.addGroup(card(QStringLiteral("A"), QStringLiteral("One"), {}, {temperature}), {});
    m_trees.addGroup(card(QStringLiteral("A"), QStringLiteral("One"), {}, {fan}), {});
    m_trees.addGroup(card(QStringLiteral("B"), QStringLiteral("Two"), {}, {}),
                     tree({temperature, fan}));
    const QStringList expected{QStringLiteral("Two GPU Fan"),
                               QStringLiteral("Two GPU Temperature")};
    QCOMPARE(labels(QStringLiteral("B")), expected);
}

QTEST_APPLESS_MAIN(DistinctLabelsTest)
#include "tst_distinctlabels.moc"
