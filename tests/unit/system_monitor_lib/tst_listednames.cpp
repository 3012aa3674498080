#include "system_monitor_lib/ListedNames.h"
#include "system_monitor_lib/live/drives/DriveActivityGroups.h"
#include "system_monitor_lib/live/drives/DriveTree.h"
#include "system_monitor_lib/live/network/WirelessLinksCollector.h"
#include "system_monitor_lib/live/power/BatteryState.h"

#include <QtTest>

#include <functional>

namespace {

constexpr qint64 second = 1'000'000'000;

using Add = std::function<void(SensorTrees &, const QString &)>;

class OneLink : public WirelessLinks
{
public:
    explicit OneLink(const QString &adapter)
        : m_adapter(adapter)
    {
    }

    std::vector<WirelessLink> read(qint64 /*nowNs*/) override
    {
        return {{m_adapter, true, -60, 866'700'000}};
    }

private:
    QString m_adapter;
};

/// A drive that gives all labels.
void addActivity(SensorTrees &trees, const QString &name)
{
    DriveActivityGroups groups;
    SensorTrees first;
    groups.add({{{name, name, QStringLiteral("0")}, DriveCounters()}}, 0, first);
    groups.add({{{name, name, QStringLiteral("0")}, DriveCounters()}}, second, trees);
}

} // namespace

Q_DECLARE_METATYPE(Add)

class ListedNamesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void replacesWords_data();
    void replacesWords();
    void prefixMakesNoPumpAndNoFan_data();
    void prefixMakesNoPumpAndNoFan();
    void devicesOfAnyNameAreNotMistaken_data();
    void devicesOfAnyNameAreNotMistaken();
};

void ListedNamesTest::replacesWords_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("group");
    const auto row = [](const char *name, const char *group) {
        QTest::newRow(name) << QString::fromLatin1(name) << QString::fromLatin1(group);
    };
    row("Samsung SSD 990", "Drive: Samsung SSD 990");
    row("", "Drive: ");
    row("CPU backup", "Drive: processor backup");
    row("the cpus", "Drive: the processors");
    row("eGPU disk: GPU", "Drive: egraphics disk: graphics");
    row("CCPUPU", "Drive: CprocessorPU");
    row("an Aio pump", "Drive: an AIO-Pump");
    row("AIO PumpCPU GPU", "Drive: AIO-Pumpprocessor graphics");
}

void ListedNamesTest::replacesWords()
{
    QFETCH(const QString, name);
    QTEST(deviceGroup(QStringLiteral("Drive"), name), "group");
}

void ListedNamesTest::prefixMakesNoPumpAndNoFan_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("full");
    const auto row = [](const char *name, const char *label, const char *full) {
        QTest::addRow("%s %s", name, label)
            << QString::fromLatin1(name) << QString::fromLatin1(label) << QString::fromLatin1(full);
    };
    row("Disk", "Drive Busy", "Disk Drive Busy");
    row("CPU Disk", "Drive Busy", "CPU Disk Drive Busy");
    row("Fan of a cpu", "Drive Busy", "Fan of a processor Drive Busy");
    row("CPU card", "Graphics Fan Speed", "processor card Graphics Fan Speed");
    row("GPU card", "Graphics Fan Speed", "GPU card Graphics Fan Speed");
    row("aio pump", "Drive Busy", "AIO-Pump Drive Busy");
    row("AIO", "Pump", "AIO-Pump");
    // A second one of these.
    row("it87", "CPU Fan", "it87 CPU Fan");
    row("d5next", "AIO Pump", "d5next AIO Pump");
}

void ListedNamesTest::prefixMakesNoPumpAndNoFan()
{
    QFETCH(const QString, name);
    QFETCH(const QString, label);
    QTEST(labelOfDevice(name, label), "full");
}

void ListedNamesTest::devicesOfAnyNameAreNotMistaken_data()
{
    QTest::addColumn<Add>("add");
    const auto row = [](const char *name, const Add &add) { QTest::newRow(name) << add; };
    row("battery", [](SensorTrees &trees, const QString &name) {
        BatteryState state;
        state.percent = 50;
        trees.addGroup({batteryGroup(name), name, {}, batteryLabelNames()}, batteryLabels(state));
    });
    row("drive with a temperature", [](SensorTrees &trees, const QString &name) {
        addDrive(trees, {name, name, QStringLiteral("0")}, 40, DriveActivity());
    });
    row("drive without a temperature", [](SensorTrees &trees, const QString &name) {
        addListedDrive(trees, {name, name, QStringLiteral("0")}, DriveActivity());
    });
    row("activity of a drive", addActivity);
    row("wireless adapter", [](SensorTrees &trees, const QString &name) {
        WirelessLinksCollector collector(std::make_unique<OneLink>(name));
        QVERIFY(collector.collect(second, trees));
    });
}

void ListedNamesTest::devicesOfAnyNameAreNotMistaken()
{
    QFETCH(const Add, add);
    static const QRegularExpression isFound(QStringLiteral("CPU.*Fan|Fan.*CPU|AIO Pump"),
                                            QRegularExpression::CaseInsensitiveOption);
    SensorTrees trees;
    // The first one keeps the labels, so the other two have prefixes.
    for (const char *const name : {"Some", "CPU GPU Fan", "Aio Pump"})
        add(trees, QString::fromLatin1(name));
    const QJsonObject all = trees.allSensors();
    QCOMPARE(all.size(), 3);
    for (const QString &group : all.keys()) {
        QVERIFY2(!group.contains(QLatin1String("CPU")), qPrintable(group));
        QVERIFY2(!group.contains(QLatin1String("GPU")), qPrintable(group));
        const QStringList labels = all.value(group).toObject().keys();
        QVERIFY2(!labels.isEmpty(), qPrintable(group));
        for (const QString &label : labels)
            QVERIFY2(!isFound.match(label).hasMatch(), qPrintable(label));
    }
}

QTEST_APPLESS_MAIN(ListedNamesTest)
#include "tst_listednames.moc"
