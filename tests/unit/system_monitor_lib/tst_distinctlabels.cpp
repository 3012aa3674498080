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

/// A device, and the labels for which it has readings.
struct Device
{
    SensorGroup group;
    QStringList has;
};

using Devices = std::vector<Device>;

SensorTrees treesOf(const Devices &devices)
{
    SensorTrees trees;
    for (const Device &device : devices)
        trees.addGroup(device.group, tree(device.has));
    return trees;
}

} // namespace

Q_DECLARE_METATYPE(Devices)

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
    void knownLabelsAreThoseOfAFreshList_data();
    void knownLabelsAreThoseOfAFreshList();

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

void DistinctLabelsTest::knownLabelsAreThoseOfAFreshList_data()
{
    QTest::addColumn<Devices>("before");
    QTest::addColumn<Devices>("after");
    const QString load = QStringLiteral("GPU Load");
    const auto device = [](const char *group, const char *name, const char *place,
                           const QStringList &mayHave, const QStringList &has) {
        return Device{card(QString::fromLatin1(group), QString::fromLatin1(name),
                           QString::fromLatin1(place), mayHave),
                      has};
    };
    const Device one = device("A", "One", "1", {temperature}, {temperature});
    const Device two = device("B", "Two", "2", {temperature}, {temperature});
    const auto row = [](const char *name, const Devices &before, const Devices &after) {
        QTest::newRow(name) << before << after;
    };
    row("a device comes first", {two}, {one, two});
    row("a device comes last", {one}, {one, two});
    row("all devices come", {}, {one, two});
    row("the order changes", {one, two}, {two, one});
    row("a group is renamed", {one, device("B", "", "2", {}, {temperature})},
        {one, device("C", "", "2", {}, {temperature})});
    row("a device is renamed", {one, two}, {one, device("B", "Three", "2", {}, {temperature})});
    row("two devices get one name", {one, two},
        {one, device("B", "One", "2", {temperature}, {temperature})});
    row("a device has another place", {one, device("B", "One", "2", {temperature}, {temperature})},
        {one, device("B", "One", "3", {temperature}, {temperature})});
    row("the first device may have one more label", {device("A", "One", "1", {}, {fan}), two},
        {device("A", "One", "1", {temperature}, {fan}), two});
    row("the first device may have another label",
        {device("A", "One", "1", {load}, {}), device("B", "Two", "2", {}, {load, temperature})},
        {device("A", "One", "1", {temperature}, {}),
         device("B", "Two", "2", {}, {load, temperature})});
    row("an equal label appears", {one, device("B", "Two", "2", {}, {fan})},
        {one, device("B", "Two", "2", {}, {fan, temperature})});
    row("an equal label takes another's place",
        {device("A", "One", "1", {}, {fan}), device("B", "Two", "2", {}, {temperature})},
        {device("A", "One", "1", {}, {temperature}), device("B", "Two", "2", {}, {temperature})});
    row("a renamed label takes another's place",
        {device("A", "One", "1", {fan, temperature}, {}), device("B", "Two", "2", {}, {fan})},
        {device("A", "One", "1", {fan, temperature}, {}),
         device("B", "Two", "2", {}, {temperature})});
}

void DistinctLabelsTest::knownLabelsAreThoseOfAFreshList()
{
    QFETCH(const Devices, before);
    QFETCH(const Devices, after);
    QVERIFY(treesOf(before).allSensors() != treesOf(after).allSensors());
    DistinctLabels known;
    // Back again as well; a second look finds what the first one knew.
    for (const Devices *devices : {&before, &before, &after, &after, &before}) {
        const SensorTrees trees = treesOf(*devices);
        QCOMPARE(trees.allSensors(known), trees.allSensors());
    }
}

QTEST_APPLESS_MAIN(DistinctLabelsTest)
#include "tst_distinctlabels.moc"
